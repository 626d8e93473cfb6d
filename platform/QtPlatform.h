#pragma once

#include <functional>

#include "platform/Platform.h"
#include "platform/SnapshotFile.h"

class QWidget;

namespace morvane {

/// The seam realised with Qt.
class QtPlatform : public Platform {
 public:
  /// The main window, once there is one: owner of all dialogs, and how it shows the state.
  void SetWindow(QWidget* window, std::function<void()> showState);

  void ShowState() override;
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override;
  std::string ShowOpen(const FileDialog& dialog) override;
  std::string ShowSave(const FileDialog& dialog) override;
  std::string CurrentDirectory() override;
  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  Result<Bytes> ReadFile(const std::string& path) override;
  Failure WriteFile(const std::string& path, const Bytes& content) override;
  std::vector<std::string> ListFiles(const std::string& folder,
                                     const std::string& pattern) override;
  std::vector<std::string> RescueFolders() override;
  std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                      const std::string& dv, std::size_t size,
                                      const std::string& path) override;
  Failure WriteSnapshot(const Bytes& content) override;
  Result<Bytes> ReadSnapshot() override;
  void DeleteSnapshot() override;
  Result<Picture> DecodePicture(const Bytes& content) override;

 private:
  enum class FileMode { Open, Save };
  std::string ShowFileDialog(const FileDialog& dialog, FileMode mode);

  QWidget* window_ = nullptr;
  std::function<void()> showState_;
  std::string lastFolder_;  ///< of the last file that was chosen
  SnapshotFile snapshot_;
};

}  // namespace morvane
