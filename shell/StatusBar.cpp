#include "shell/StatusBar.h"

#include <QLabel>

#include "shell/widgets/Accessible.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/Text.h"

namespace morvane {

StatusBar::StatusBar(QWidget* parent) : QFrame(parent), line_(new QLabel(this)) {
  SetRole(this, QAccessible::StatusBar);
  SetRole(line_, QAccessible::Notification);
  setObjectName("sbStatusBar");
  setFont(ArialFont(kSmallText));
  line_->setObjectName("SimpleText");
  line_->setTextFormat(Qt::PlainText);
  for (const char* key : {"Status", "Date", "Time"}) {
    auto* panel = new QLabel(this);
    panel->setObjectName(key);
    panel->hide();
  }
  findChild<QLabel*>("Status")->setText("Status");
}

void StatusBar::SetSimpleText(const QString& text) {
  if (text == line_->text()) return;
  line_->setText(text);
  ShowToolTip();
  Announce(line_, text);
}

void StatusBar::resizeEvent(QResizeEvent* /*event*/) {
  constexpr int kMargin = 4;
  line_->setGeometry(rect().adjusted(kMargin, 0, -kMargin, 0));
  ShowToolTip();
}

void StatusBar::ShowToolTip() {
  const bool isCut = line_->sizeHint().width() > line_->width();
  line_->setToolTip(isCut ? ToolTipOf(line_->text()) : QString());
}

}  // namespace morvane
