#include "shell/PaletteView.h"

#include <algorithm>

#include "palette/PalettePages.h"
#include "shell/TileBox.h"
#include "shell/widgets/Accessible.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/TabRing.h"
#include "shell/widgets/TabStrip.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

/// Designed sizes in twips, by set and page.
constexpr std::array<Size, kBuiltInSets> kStripSizes = {
    {{2310, 3135}, {2295, 3135}, {2310, 3135}, {2310, 3855}}};
constexpr std::array<std::array<Size, kMaxPages>, kBuiltInSets> kFrameSizes = {{
    {{{2130, 2475}, {2175, 2535}, {2175, 2535}}},
    {{{2130, 2535}, {2130, 2535}, {2130, 2535}}},
    {{{2130, 2415}, {}, {}}},
    {{{2175, 3255}, {2175, 3255}, {2175, 3255}}},
}};

}  // namespace

PaletteView::PaletteView(const Palette& palette, QWidget* window)
    : QObject(window), palette_(palette) {
  for (int set = 0; set < kBuiltInSets; ++set) AddSet(set, window);
  for (const Item& item : Items()) {
    auto* box = new TileBox(item, palette_.pictures.Of(item), frames_[item.set][item.page - 1]);
    connect(box, &TileBox::clicked, this, [this, &item] { emit ItemClicked(item); });
  }
}

void PaletteView::AddSet(int set, QWidget* window) {
  const TileSet& tileSet = TileSets()[set];
  QStringList captions;
  for (int page = 0; page < tileSet.pageCount; ++page) {
    captions << TextOf(tileSet.pages[page].caption);
  }
  const Size size = kStripSizes[set];
  auto* strip = Placed(new TabStrip(captions, window), TextOf(tileSet.tabStrip),
                       PlaceOf(120, 2880, size.width, size.height));
  connect(strip, &TabStrip::TabChosen, this, [this, set](int tab) { emit TabClicked(set, tab); });
  strips_[set] = strip;

  for (int page = 1; page <= tileSet.pageCount; ++page) {
    const Size pageSize = kFrameSizes[set][page - 1];
    auto* frame = Placed(new QWidget(window), TextOf(tileSet.frame) + "-" + QString::number(page),
                         PlaceOf(240, 3360, pageSize.width, pageSize.height));
    SetRole(frame, QAccessible::Grouping);
    frame->setAccessibleName(captions[page - 1]);
    frames_[set].push_back(frame);
  }
}

void PaletteView::AddStops(TabRing& ring) const {
  const auto isEarlier = [](const QWidget* one, const QWidget* other) {
    return std::pair(one->y(), one->x()) < std::pair(other->y(), other->x());
  };
  for (int set = 0; set < kBuiltInSets; ++set) {
    ring.Add({strips_[set]->Tabs()});
    for (const QWidget* page : frames_[set]) {
      const QWidgetList items = page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
      std::vector<QWidget*> group(items.begin(), items.end());
      std::sort(group.begin(), group.end(), isEarlier);
      ring.Add(group);
    }
  }
}

void PaletteView::ShowState() {
  for (int set = 0; set < kBuiltInSets; ++set) {
    strips_[set]->SelectTab(CurrentPage(palette_, set));
    strips_[set]->setVisible(palette_.TileSetSelector.ListIndex == set);
    for (int page = 1; page <= TileSets()[set].pageCount; ++page) {
      frames_[set][page - 1]->setVisible(IsPageVisible(palette_, set, page));
    }
  }
}

}  // namespace morvane
