#include "platform/QtDialogs.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>

#include "document/Color.h"
#include "platform/ScreenRoom.h"

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

/// The toolkit gives letters to Yes and No only.
void GiveLetters(const QMessageBox& box) {
  if (auto* ok = box.button(QMessageBox::Ok)) ok->setText("&OK");
  if (auto* cancel = box.button(QMessageBox::Cancel)) cancel->setText("&Cancel");
}

/// The path chosen in the dialog, which fits on its screen; empty after a cancel.
std::string ChoiceIn(QFileDialog& box) {
  const QSize fitting = box.sizeHint().boundedTo(ScreenRoomOf(box));
  if (fitting != box.sizeHint()) box.resize(fitting);
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
  return box.selectedFiles().constFirst().toStdString();
}

}  // namespace

Answer ShowMessage(QWidget* owner, const std::string& text, BoxStyle style,
                   const std::string& title) {
  QMessageBox box(IconOf(style), QString::fromStdString(title), QString::fromStdString(text),
                  ButtonsOf(style), owner);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(box.button(QMessageBox::Yes) != nullptr ? QMessageBox::Yes
                                                               : QMessageBox::Ok);
  GiveLetters(box);
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

std::string AskForFile(QWidget* owner, const FileDialog& dialog, FileDialogMode mode,
                       const std::string& folder) {
  QFileDialog box(owner, QString::fromStdString(dialog.DialogTitle), QString::fromStdString(folder),
                  QString::fromStdString(dialog.Filter).section('|', 0, 0));
  box.setOption(QFileDialog::DontUseNativeDialog);
  // Whether a file exists, and whether to write over it, are the rules' own questions.
  box.setOption(QFileDialog::DontConfirmOverwrite);
  box.setFileMode(QFileDialog::AnyFile);
  const bool saves = mode == FileDialogMode::Save;
  box.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (!dialog.FileName.empty()) box.selectFile(QString::fromStdString(dialog.FileName));
  return ChoiceIn(box);
}

std::string AskForFolder(QWidget* owner, const std::string& title) {
  QFileDialog box(owner, QString::fromStdString(title));
  box.setOption(QFileDialog::DontUseNativeDialog);
  box.setOption(QFileDialog::ShowDirsOnly);
  box.setFileMode(QFileDialog::Directory);
  return ChoiceIn(box);
}

void AskForColor(QWidget* owner, std::uint32_t& color) {
  const Pixel pixel = PixelOf(color);
  const QColor chosen =
      QColorDialog::getColor(QColor::fromRgb(pixel), owner, {}, QColorDialog::DontUseNativeDialog);
  if (chosen.isValid()) color = ColorOf(chosen.rgb());
}

}  // namespace morvane
