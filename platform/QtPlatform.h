#pragma once

#include <functional>

#include "document/Platform.h"
#include "platform/MapPrinter.h"
#include "platform/QtDialogs.h"
#include "platform/SnapshotFile.h"

class QWidget;

namespace morvane {

/// Platform implemented with Qt.
class QtPlatform : public Platform {
 public:
  /// Sets the memory limit of Qt's decoders, before any thread uses them.
  QtPlatform();

  /// The main window, once it exists: the owner of all dialogs, and the function that updates it.
  void SetWindow(QWidget* window, std::function<void()> showState);
  /// The form that edits rich text: changes the text and returns whether the user accepted it.
  void SetTextForm(std::function<bool(std::string& text)> showTextForm);

  void ShowState() override;
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override;
  std::string ShowOpen(const FileDialog& dialog) override;
  std::string ShowSave(const FileDialog& dialog) override;
  std::string CurrentDirectory() override;
  bool FileExists(const std::string& path) override;
  bool IsFolderReadable(const std::string& path) override;
  Result<std::unique_ptr<ByteSource>> OpenFile(const std::string& path) override;
  Failure WriteFile(const std::string& path, ByteSource& content) override;
  std::vector<std::string> ListFolders(const std::string& folder) override;
  std::vector<std::string> ListDrives() override;
  std::vector<std::string> ListFiles(const std::string& folder,
                                     const std::string& pattern) override;
  NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content) override;
  std::vector<std::string> RescueFolders() override;
  void NoteRescueCopy(const std::string& path) override;
  std::vector<std::string> RescueNotes() override;
  void DeleteRescueNotes(const std::vector<std::string>& paths) override;
  std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                      const std::string& dv, std::size_t size,
                                      const std::string& path) override;
  Failure WritePrivateProfileString(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& path) override;
  Failure WriteSnapshot(ByteSource& content) override;
  Result<std::unique_ptr<ByteSource>> OpenSnapshot() override;
  bool IsSnapshotUntouched() override;
  void DeleteSnapshot() override;
  std::vector<std::unique_ptr<Leftover>> FindLeftovers() override;
  Result<Picture> DecodePicture(Bytes content) override;
  bool EditText(std::string& text) override;
  void DrawText(const std::string& text, Picture& picture) override;
  Failure Print(const PictureView& picture) override;
  void ShowPrinterSetup(const std::string& title) override;
  std::string BrowseForFolder(const std::string& title) override;
  void ShowColor(std::uint32_t& color) override;

 private:
  /// Starts in the given folder if it exists, else in that of the last file.
  std::string ShowFileDialog(const FileDialog& dialog, FileDialogMode mode);

  QWidget* window_ = nullptr;
  std::function<void()> showState_;
  std::function<bool(std::string&)> showTextForm_;
  std::string lastFolder_;  ///< of the last file that was chosen
  SnapshotFile snapshot_;
  MapPrinter printer_;
};

}  // namespace morvane
