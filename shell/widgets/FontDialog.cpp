#include "shell/widgets/FontDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <array>

#include "shell/widgets/Accessible.h"

namespace morvane {
namespace {

constexpr std::array kColors = {"Black", "Maroon",  "Green",  "Olive", "Navy", "Purple",
                                "Teal",  "Gray",    "Silver", "Red",   "Lime", "Yellow",
                                "Blue",  "Fuchsia", "Aqua",   "White"};
constexpr int kFirstSize = 10;  // points

QIcon Swatch(const QColor& color) {
  QPixmap swatch(24, 12);
  swatch.fill(color);
  QPainter painter(&swatch);
  painter.setPen(Qt::gray);  // stands out from black and white backgrounds
  painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
  painter.end();
  return swatch;
}

/// Qt sets no accessible names for its lists, nor for the fields above them.
void NameFields(const QWidget& dialog) {
  for (const QLabel* label : dialog.findChildren<QLabel*>()) {
    QWidget* list = label->buddy();
    if (list == nullptr) continue;
    const QString name = label->text().remove('&');
    list->setAccessibleName(name);
    for (auto* field : dialog.findChildren<QLineEdit*>()) {
      if (field->focusProxy() == list) field->setAccessibleName(name);
    }
  }
  for (auto* list : dialog.findChildren<QListView*>(Qt::FindDirectChildrenOnly)) {
    if (list->accessibleName().isEmpty()) list->setAccessibleName("Size");
  }
}

}  // namespace

FontDialog::FontDialog(QWidget* owner) : QFontDialog(owner), colors_(new QComboBox(this)) {
  setOption(QFontDialog::DontUseNativeDialog);
  setWindowTitle("Font");
  // The font that replaces "Arial" on this machine; "Arial" itself may not be in the list.
  setCurrentFont(QFont(QFontInfo(QFont("Arial")).family(), kFirstSize));
  for (auto* before : findChildren<QComboBox*>()) {
    if (before != colors_) setTabOrder(before, colors_);
  }
  colors_->setObjectName("Color");
  AnnounceEntry(colors_);
  colors_->setIconSize({24, 12});
  for (const char* color : kColors) colors_->addItem(Swatch(color), color, QColor(color));
  auto* label = new QLabel("&Color", this);
  label->setBuddy(colors_);
  NameFields(*this);
  if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
    const int row = grid->rowCount();
    constexpr int kGap = 8;
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, kGap, 0, kGap);
    line->setSpacing(kGap);
    line->addWidget(label);
    line->addWidget(colors_, 1);
    grid->addLayout(line, row, 0);
    // The buttons stay below everything else.
    if (auto* buttons = findChild<QDialogButtonBox*>()) {
      grid->removeWidget(buttons);
      grid->addWidget(buttons, row + 1, 0, 1, grid->columnCount());
    }
  }
}

QColor FontDialog::Color() const {
  return colors_->currentData().value<QColor>();
}

}  // namespace morvane
