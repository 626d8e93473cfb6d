#include "platform/QtPlatform.h"

#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QMessageBox>
#include <QPainter>
#include <QStandardPaths>
#include <utility>

#include "document/Picture.h"
#include "platform/Files.h"
#include "platform/PrivateProfile.h"

namespace morvane {
namespace {

QMessageBox::StandardButtons ButtonsOf(BoxStyle style) {
  switch (style) {
    case BoxStyle::YesNoCancelQuestion:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxStyle::YesNoQuestion:
    case BoxStyle::YesNoExclamation:
      return QMessageBox::Yes | QMessageBox::No;
    default:
      return QMessageBox::Ok;
  }
}

QMessageBox::Icon IconOf(BoxStyle style) {
  switch (style) {
    case BoxStyle::YesNoCancelQuestion:
    case BoxStyle::YesNoQuestion:
      return QMessageBox::Question;
    case BoxStyle::OkExclamation:
    case BoxStyle::YesNoExclamation:
      return QMessageBox::Warning;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

void QtPlatform::SetWindow(QWidget* window, std::function<void()> showState) {
  window_ = window;
  showState_ = std::move(showState);
}

void QtPlatform::ShowState() {
  if (showState_) showState_();
}

Answer QtPlatform::MsgBox(const std::string& text, BoxStyle style, const std::string& title) {
  ShowState();
  QMessageBox box(IconOf(style), QString::fromStdString(title), QString::fromStdString(text),
                  ButtonsOf(style), window_);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(box.button(QMessageBox::Yes) != nullptr ? QMessageBox::Yes
                                                               : QMessageBox::Ok);
  switch (box.exec()) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Ok:
      return Answer::Ok;
    default:
      return Answer::Cancel;
  }
}

std::string QtPlatform::ShowOpen(const FileDialog& dialog) {
  return ShowFileDialog(dialog, FileMode::Open);
}

std::string QtPlatform::ShowSave(const FileDialog& dialog) {
  return ShowFileDialog(dialog, FileMode::Save);
}

std::string QtPlatform::ShowFileDialog(const FileDialog& dialog, FileMode mode) {
  ShowState();
  const bool known = FolderExists(dialog.InitDir);
  const QString folder = QString::fromStdString(known ? dialog.InitDir : lastFolder_);
  QFileDialog box(window_, QString::fromStdString(dialog.DialogTitle), folder,
                  QString::fromStdString(dialog.Filter).section('|', 0, 0));
  box.setOption(QFileDialog::DontUseNativeDialog);
  // Whether to write over a file is the rules' own question.
  box.setOption(QFileDialog::DontConfirmOverwrite);
  const bool saves = mode == FileMode::Save;
  box.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  box.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!dialog.FileName.empty()) box.selectFile(QString::fromStdString(dialog.FileName));
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
  const QString path = box.selectedFiles().constFirst();
  lastFolder_ = QFileInfo(path).path().toStdString();
  return path.toStdString();
}

std::string QtPlatform::CurrentDirectory() {
  return QDir::currentPath().toStdString();
}

bool QtPlatform::FileExists(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).isFile();
}

bool QtPlatform::FolderExists(const std::string& path) {
  return !path.empty() && QFileInfo(QString::fromStdString(path)).isDir();
}

Result<Bytes> QtPlatform::ReadFile(const std::string& path) {
  return ReadNormalFile(path);
}

Failure QtPlatform::WriteFile(const std::string& path, const Bytes& content) {
  return ReplaceFile(path, content);
}

std::vector<std::string> QtPlatform::ListFiles(const std::string& folder,
                                               const std::string& pattern) {
  return MatchingFiles(folder, pattern);
}

std::vector<std::string> QtPlatform::RescueFolders() {
  return {QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString(),
          QDir::homePath().toStdString(), QDir::currentPath().toStdString(),
          QDir::tempPath().toStdString()};
}

std::string QtPlatform::GetPrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& dv, std::size_t size,
                                                const std::string& path) {
  Result<Bytes> file = ReadNormalFile(path);
  return CutText(file.Ok() ? FindProfileValue(file.Value(), section, key, dv) : dv, size - 1);
}

Failure QtPlatform::WriteSnapshot(const Bytes& content) {
  return snapshot_.Write(content);
}

Result<Bytes> QtPlatform::ReadSnapshot() {
  return snapshot_.Read();
}

void QtPlatform::DeleteSnapshot() {
  snapshot_.Delete();
}

Result<Picture> QtPlatform::DecodePicture(const Bytes& content) {
  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(content.data()),
                                             static_cast<qsizetype>(content.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QImage image = reader.read();
  if (image.isNull()) {
    return Result<Picture>::Failed(
        "This is not a picture that can be read: " + reader.errorString().toStdString() + ".");
  }
  Picture picture(image.width(), image.height());
  QImage onWhite(reinterpret_cast<uchar*>(picture.Row(0)), image.width(), image.height(),
                 image.width() * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32);
  QPainter(&onWhite).drawImage(0, 0, image);
  return picture;
}

}  // namespace morvane
