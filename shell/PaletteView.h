#pragma once

#include <QObject>
#include <array>
#include <vector>

#include "palette/Palette.h"

namespace morvane {

class TabRing;
class TabStrip;

/// The tab strips and pages of the built-in tile sets.
class PaletteView : public QObject {
  Q_OBJECT

 public:
  PaletteView(const Palette& palette, QWidget* window);

  /// Shows the strip and the page of the chosen set, and hides all others.
  void ShowState();

  /// Adds a tab stop for the tabs of each set and one for each page.
  void AddStops(TabRing& ring) const;

  /// The tab strips. While the pointer is over their empty areas, the outline on the map is hidden.
  const std::array<TabStrip*, kBuiltInSets>& Strips() const { return strips_; }

 signals:
  void ItemClicked(const morvane::Item& item);
  void TabClicked(int set, int tab);

 private:
  void AddSet(int set, QWidget* window);

  const Palette& palette_;
  std::array<TabStrip*, kBuiltInSets> strips_{};
  std::array<std::vector<QWidget*>, kBuiltInSets> frames_;
};

}  // namespace morvane
