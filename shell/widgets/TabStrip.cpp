#include "shell/widgets/TabStrip.h"

#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>

#include "shell/widgets/FocusStyle.h"
#include "shell/widgets/Layout.h"

namespace morvane {
namespace {

/// Tabs just wide enough for their captions: three of them must fit in the strip.
class NarrowTabs : public FocusStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    constexpr int kSpaceBesideText = 14;
    if (metric == PM_TabBarTabHSpace) return kSpaceBesideText;
    return FocusStyle::pixelMetric(metric, option, widget);
  }
};

}  // namespace

TabStrip::TabStrip(const QStringList& captions, QWidget* parent)
    : QWidget(parent), tabs_(new TabBar(this)) {
  auto* narrow = new NarrowTabs;
  narrow->setParent(tabs_);
  tabs_->setStyle(narrow);
  tabs_->setFont(ArialFont(kSmallText));
  tabs_->setExpanding(false);
  tabs_->setUsesScrollButtons(false);
  tabs_->setAccessibleName("Pages");
  for (const QString& caption : captions) tabs_->addTab(caption);
  connect(tabs_, &TabBar::currentChanged, this, [this](int index) { emit TabChosen(index + 1); });
}

void TabStrip::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionTabWidgetFrame frame;
  frame.initFrom(this);
  frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  frame.shape = QTabBar::RoundedNorth;
  const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, tabs_);
  frame.rect = rect().adjusted(0, tabs_->height() - overlap, 0, 0);
  frame.tabBarSize = tabs_->size();
  frame.tabBarRect = tabs_->geometry();
  frame.selectedTabRect = tabs_->tabRect(tabs_->currentIndex());
  painter.drawPrimitive(QStyle::PE_FrameTabWidget, frame);
}

void TabStrip::resizeEvent(QResizeEvent* /*event*/) {
  tabs_->setGeometry(0, 0, width(), tabs_->sizeHint().height());
}

}  // namespace morvane
