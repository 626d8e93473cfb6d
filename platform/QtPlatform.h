#pragma once

#include <QDir>
#include <functional>
#include <utility>

#include "document/Platform.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/Leftovers.h"
#include "platform/MapPrinter.h"
#include "platform/PictureDecoding.h"
#include "platform/QtDialogs.h"
#include "platform/RescueNotes.h"
#include "platform/SnapshotFile.h"
#include "platform/TextDrawing.h"

class QWidget;

namespace morvane {

/// Implements Platform with Qt and system calls.
class QtPlatform : public Platform {
 public:
  /// Sets the memory limit of Qt's decoders, before any thread uses them.
  QtPlatform();

  /// The main window, once it exists: the owner of all dialogs, and the function that updates it.
  void SetWindow(QWidget* window, std::function<void()> showState) {
    window_ = window;
    showState_ = std::move(showState);
  }
  /// The form that edits rich text: changes the text and returns whether the user accepted it.
  void SetTextForm(std::function<bool(std::string& text)> showTextForm) {
    showTextForm_ = std::move(showTextForm);
  }

  void ShowState() override;
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override;
  std::string ShowOpen(const FileDialog& dialog) override {
    return ShowFileDialog(dialog, FileDialogMode::Open);
  }
  std::string ShowSave(const FileDialog& dialog) override {
    return ShowFileDialog(dialog, FileDialogMode::Save);
  }
  std::string CurrentDirectory() override { return QDir::currentPath().toStdString(); }
  bool FileExists(const std::string& path) override;
  bool IsFolderReadable(const std::string& path) override { return IsReadableFolder(path); }
  OpenedFile OpenFile(const std::string& path) override { return OpenRegularFile(path); }
  Failure WriteFile(const std::string& path, ByteSource& content) override {
    return ReplaceFile(path, content);
  }
  std::vector<std::string> ListFolders(const std::string& folder) override {
    return FoldersIn(folder);
  }
  std::vector<std::string> ListDrives() override { return MountedVolumes(); }
  std::vector<std::string> ListFiles(const std::string& folder,
                                     const std::string& pattern) override {
    return MatchingFiles(folder, pattern);
  }
  NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content) override {
    return morvane::WriteNewFile(path, content);
  }
  std::vector<std::string> RescueFolders() override;
  void NoteRescueCopy(const std::string& path) override { WriteRescueNote(path); }
  std::vector<std::string> RescueNotes() override { return ReadRescueNotes(); }
  void DeleteRescueNotes(const std::vector<std::string>& paths) override {
    morvane::DeleteRescueNotes(paths);
  }
  std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                      const std::string& dv, std::size_t size,
                                      const std::string& path) override;
  Failure WritePrivateProfileString(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& path) override;
  Failure WriteSnapshot(ByteSource& content) override { return snapshot_.Write(content); }
  OpenedFile OpenSnapshot() override { return snapshot_.Read(); }
  bool IsSnapshotUntouched() override { return snapshot_.IsUntouched(); }
  void DeleteSnapshot() override { snapshot_.Delete(); }
  std::vector<std::unique_ptr<Leftover>> FindLeftovers() override { return LeftoverSnapshots(); }
  Result<Picture> DecodePicture(Bytes content) override {
    return DecodeForeignPicture(std::move(content));
  }
  bool EditText(std::string& text) override;
  void DrawText(const std::string& text, Picture& picture) override { DrawRichText(text, picture); }
  Failure Print(const PictureView& picture) override { return printer_.Print(picture); }
  void ShowPrinterSetup(const std::string& title) override;
  std::string BrowseForFolder(const std::string& title) override;
  void ShowColor(std::uint32_t& color) override;

 private:
  /// Starts in the folder of the dialog if that is readable, else in that of the last file.
  std::string ShowFileDialog(const FileDialog& dialog, FileDialogMode mode);

  QWidget* window_ = nullptr;
  std::function<void()> showState_;
  std::function<bool(std::string&)> showTextForm_;
  std::string lastFolder_;  ///< of the last file that was chosen
  SnapshotFile snapshot_;
  MapPrinter printer_;
};

}  // namespace morvane
