#include "platform/QtPlatform.h"

#include <QApplication>
#include <QImageReader>
#include <QStandardPaths>
#include <filesystem>
#include <utility>

#include "platform/PrivateProfile.h"

namespace morvane {
namespace {

/// The largest settings file that is read into memory.
constexpr std::size_t kMaxSettingsBytes = 16'000'000;

Result<std::string> ReadText(const std::string& path) {
  OpenedFile file = OpenRegularFile(path);
  if (!file.Ok()) return Failed{file.Reason()};
  if (file.Value()->Size() > kMaxSettingsBytes) return Failed{kTooLargeFile};
  Result<Bytes> bytes = ReadAll(*file.Value());
  if (!bytes.Ok()) return Failed{bytes.Reason()};
  return std::string(bytes.Value().begin(), bytes.Value().end());
}

/// A dialog that a form opens is owned by that form, not by the main window.
QWidget* OwnerAbove(QWidget* window) {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : window;
}

}  // namespace

QtPlatform::QtPlatform() {
  constexpr long long kMaxBytesPerPixel = 8;
  constexpr int kMegabyte = 1'000'000;
  QImageReader::setAllocationLimit(static_cast<int>(kMaxPixels * kMaxBytesPerPixel / kMegabyte));
}

void QtPlatform::ShowState() {
  if (showState_) showState_();
}

Answer QtPlatform::MsgBox(const std::string& text, BoxStyle style, const std::string& title) {
  ShowState();
  return ShowMessage(OwnerAbove(window_), text, style, title);
}

std::string QtPlatform::ShowFileDialog(const FileDialog& dialog, FileDialogMode mode) {
  ShowState();
  const std::string& folder = IsFolderReadable(dialog.InitDir) ? dialog.InitDir : lastFolder_;
  std::string path = AskForFile(window_, dialog, mode, folder);
  if (!path.empty()) lastFolder_ = std::filesystem::path(path).parent_path();
  return path;
}

bool QtPlatform::FileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

std::vector<std::string> QtPlatform::RescueFolders() {
  std::vector<std::string> folders;
  for (const QString& folder :
       {QDir::currentPath(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
        QDir::homePath(), QDir::tempPath()}) {
    if (!folder.isEmpty()) folders.push_back(folder.toStdString());
  }
  return folders;
}

std::string QtPlatform::GetPrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& dv, std::size_t size,
                                                const std::string& path) {
  Result<std::string> text = ReadText(path);
  if (!text.Ok()) return CutText(dv, size - 1);
  return CutText(FindProfileValue(text.Value(), section, key, dv), size - 1);
}

Failure QtPlatform::WritePrivateProfileString(const std::string& section, const std::string& key,
                                              const std::string& value, const std::string& path) {
  std::string text;
  // A file that exists but can't be read, maybe only for the moment, must not be replaced.
  std::error_code error;
  if (std::filesystem::status(path, error).type() != std::filesystem::file_type::not_found) {
    Result<std::string> old = ReadText(path);
    if (!old.Ok()) return old.Reason();
    text = std::move(old.Value());
  }
  Result<std::string> changed = WithProfileValue(text, section, key, value);
  if (!changed.Ok()) return changed.Reason();
  const Bytes bytes(changed.Value().begin(), changed.Value().end());
  MemorySource content(bytes);
  return ReplaceFile(path, content);
}

bool QtPlatform::EditText(std::string& text) {
  ShowState();
  return showTextForm_ && showTextForm_(text);
}

void QtPlatform::ShowPrinterSetup(const std::string& title) {
  ShowState();
  printer_.ShowSetup(window_, title);
}

std::string QtPlatform::BrowseForFolder(const std::string& title) {
  return AskForFolder(OwnerAbove(window_), title);
}

void QtPlatform::ShowColor(std::uint32_t& color) {
  AskForColor(OwnerAbove(window_), color);
}

}  // namespace morvane
