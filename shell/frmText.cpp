#include "shell/frmText.h"

#include <QKeyEvent>
#include <QPushButton>

#include "shell/RichTextBox.h"
#include "shell/widgets/FontDialog.h"
#include "shell/widgets/Layout.h"

namespace morvane {

frmText::frmText(const std::string& text, QWidget* owner)
    : FixedDialog("frmText", "Insert Text", {Px(4680), Px(1650)}, owner),
      RichTextBox1_(Placed(new RichTextBox(this), "RichTextBox1", PlaceOf(0, 0, 4695, 1095))) {
  RichTextBox1_->setAccessibleName("Text");
  QFont font("Arial");
  font.setPointSizeF(9.75);
  RichTextBox1_->document()->setDefaultFont(font);
  RichTextBox1_->setHtml(QString::fromStdString(text));

  auto* cmdOK = Placed(new QPushButton("OK", this), "cmdOK", PlaceOf(3600, 1200, 975, 375));
  auto* cmdFont =
      Placed(new QPushButton("Font...", this), "cmdFont", PlaceOf(2520, 1200, 975, 375));
  for (QPushButton* button : {cmdOK, cmdFont}) {
    button->setFont(ArialFont(kSmallText));
    button->setAutoDefault(false);
  }
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdFont, &QPushButton::clicked, this, &frmText::cmdFont_Click);
  RichTextBox1_->setFocus();
}

// Esc would discard all that was typed; only the close box does that.
void frmText::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) FixedDialog::keyPressEvent(event);
}

std::string frmText::TextRTF() const {
  return RichTextBox1_->toHtml().toStdString();
}

void frmText::cmdFont_Click() {
  FontDialog dialog(this);
  if (dialog.exec() != QDialog::Accepted) return;
  const QFont font = dialog.selectedFont();
  QTextCharFormat format;
  format.setFontFamilies({font.family()});
  format.setFontPointSize(font.pointSizeF());
  format.setFontWeight(font.bold() ? QFont::Bold : QFont::Normal);
  format.setFontItalic(font.italic());
  format.setFontStrikeOut(font.strikeOut());
  format.setFontUnderline(font.underline());
  format.setForeground(dialog.Color());
  RichTextBox1_->Format(format);
  RichTextBox1_->setFocus();
}

}  // namespace morvane
