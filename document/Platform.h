#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "document/io/ByteSources.h"
#include "document/io/Result.h"

namespace morvane {

class Picture;
struct PictureView;

/// The outcome of creating a file under a name that must not exist yet.
enum class NewFileOutcome { Done, NameTaken, Failed };

/// A snapshot that an earlier run left behind. It is locked while this object exists, so that no
/// other run takes it.
class Leftover : public ByteSource {
 public:
  virtual std::time_t WrittenAt() const = 0;
  /// Renames the file, but never replaces another one. Fails if the path is on another volume.
  virtual NewFileOutcome MoveTo(const std::string& path) = 0;
  /// Deletes the file unless it was renamed. If it can't be deleted, truncates it.
  virtual void Delete() = 0;
};

/// Buttons and icon of a message box.
enum class BoxStyle {
  OkOnly = 0,
  YesNoCancelQuestion = 35,
  YesNoQuestion = 36,
  OkExclamation = 48,
  YesNoExclamation = 52,
};

enum class Answer { Ok, Cancel, Yes, No };

/// The fixed texts and preset values of a file dialog.
struct FileDialog {
  std::string DialogTitle;
  std::string Filter;    ///< "Description (*.ext)|*.ext"
  std::string FileName;  ///< preset, may be empty
  std::string InitDir;   ///< folder to start in; empty leaves the choice to the platform
};

/// Also the title of the main window and of most message boxes.
inline constexpr const char* kProgramName = "Morvane";

/// The interface to the desktop and the file system. Paths and texts are UTF-8.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  /// Updates the window while an event is still being handled.
  virtual void ShowState() = 0;
  /// Shows a message box, and returns when a button was pressed.
  virtual Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) = 0;
  /// Lets the user choose a file to open; empty after a cancel.
  virtual std::string ShowOpen(const FileDialog& dialog) = 0;
  /// Lets the user name a file to save, without asking about one that exists; empty after a cancel.
  virtual std::string ShowSave(const FileDialog& dialog) = 0;

  virtual std::string CurrentDirectory() = 0;
  /// Whether the path is a regular file.
  virtual bool FileExists(const std::string& path) = 0;
  /// Whether the path is a folder that can be listed and whose files can be opened.
  virtual bool IsFolderReadable(const std::string& path) = 0;
  /// Opens a regular file for reading; anything else is refused with a reason.
  virtual OpenedFile OpenFile(const std::string& path) = 0;
  /// Replaces a file atomically: after a failure the old file is intact.
  virtual Failure WriteFile(const std::string& path, ByteSource& content) = 0;
  /// Writes a new file as a whole. Never replaces an existing one.
  virtual NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content) = 0;
  /// The names of the folders in a folder, in natural order. One that can't be read has none.
  virtual std::vector<std::string> ListFolders(const std::string& folder) = 0;
  /// The roots of the mounted volumes, that of the system first.
  virtual std::vector<std::string> ListDrives() = 0;
  /// The names of the files in a folder that match one of the patterns "*.a;*.b", case ignored,
  /// in natural order. A folder that can't be read has none.
  virtual std::vector<std::string> ListFiles(const std::string& folder,
                                             const std::string& pattern) = 0;
  /// The folders for rescue copies, best first.
  virtual std::vector<std::string> RescueFolders() = 0;
  /// Remembers a rescue copy that the next run has to report.
  virtual void NoteRescueCopy(const std::string& path) = 0;
  /// The rescue copies that have been noted.
  virtual std::vector<std::string> RescueNotes() = 0;
  /// Deletes the notes of these copies.
  virtual void DeleteRescueNotes(const std::vector<std::string>& paths) = 0;

  /// One value of a private-profile file, at most size - 1 bytes of it; dv if there is none.
  virtual std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                              const std::string& dv, std::size_t size,
                                              const std::string& path) = 0;

  /// Sets one value of a private-profile file and leaves its other lines unchanged.
  virtual Failure WritePrivateProfileString(const std::string& section, const std::string& key,
                                            const std::string& value, const std::string& path) = 0;

  /// Replaces the one snapshot of this process. After a failure there is none.
  virtual Failure WriteSnapshot(ByteSource& content) = 0;
  /// The snapshot, to be read before the next one is written.
  virtual OpenedFile OpenSnapshot() = 0;
  /// Whether the snapshot is unmodified since it was written.
  virtual bool IsSnapshotUntouched() = 0;
  virtual void DeleteSnapshot() = 0;
  /// The snapshots that earlier runs of this user left behind, valid or not. To be called before
  /// the first snapshot is written, which replaces the one in the current directory.
  virtual std::vector<std::unique_ptr<Leftover>> FindLeftovers() = 0;

  /// Decodes a picture of any format but BMP, laid over white. Decoding is abandoned after two
  /// seconds.
  virtual Result<Picture> DecodePicture(Bytes content) = 0;

  /// Lets the user edit rich text. Returns whether the user accepted it; if so, text is the result.
  virtual bool EditText(std::string& text) = 0;
  /// Draws rich text at the top left of a picture, wrapped at its width, without anti-aliasing.
  virtual void DrawText(const std::string& text, Picture& picture) = 0;

  /// Prints one page with the picture at its top left, 96 pixels to the inch.
  virtual Failure Print(const PictureView& picture) = 0;
  /// Lets the user choose the printer and paper for later calls of Print.
  virtual void ShowPrinterSetup(const std::string& title) = 0;

  /// Lets the user choose a folder; empty after a cancel.
  virtual std::string BrowseForFolder(const std::string& title) = 0;
  /// Lets the user change a colour 0xBBGGRR; unchanged after a cancel.
  virtual void ShowColor(std::uint32_t& color) = 0;
};

}  // namespace morvane
