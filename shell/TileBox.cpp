#include "shell/TileBox.h"

#include <QPainter>

#include "shell/PictureBoxView.h"
#include "shell/widgets/Accessible.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

constexpr int kCellTwips = 360;

/// The side of a box in twips for a side of its picture in pixels: the cells that it covers plus
/// one pixel, so that no click falls between two boxes.
constexpr int BoxSide(int pictureSide) {
  return pictureSide / kSheetCell * kCellTwips + 15;
}

/// "2 x 2 cells", as many as a picture covers wholly or in part.
QString CellsOf(const Size& picture) {
  const auto cells = [](int side) { return (side + kSheetCell - 1) / kSheetCell; };
  const int columns = cells(picture.width);
  const int rows = cells(picture.height);
  const QString unit = columns * rows == 1 ? "cell" : "cells";
  return QString("%1 x %2 %3").arg(columns).arg(rows).arg(unit);
}

}  // namespace

TileBox::TileBox(const Item& item, const Picture& picture, QWidget* page)
    : QAbstractButton(page), picture_(picture) {
  // The box of this item is 2 pixels higher, by design.
  const int height = item.control == "pbaltar" ? 765 : BoxSide(item.stored.height);
  setGeometry(
      PlaceOf(item.column * kCellTwips, item.row * kCellTwips, BoxSide(item.stored.width), height));
  setObjectName(TextOf(item.control));
  setToolTip(TextOf(item.caption) + ", " + CellsOf(item.stored));
  setAccessibleName(TextOf(item.caption));
  const Size stamp = StampSize(item);
  setAccessibleDescription(SizeDescription({stamp.width, stamp.height}));
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void TileBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect place(0, 0, picture_.Width(), picture_.Height());
  PaintPicture(painter, picture_.View(), {0, 0}, place);
  if (!underMouse() && !hasFocus()) return;
  DrawSharpBox(painter, place, palette().color(QPalette::Highlight), 2);
  if (!hasFocus()) return;
  // The keyboard focus looks different from the mouse hover.
  DrawSharpBox(painter, place.adjusted(2, 2, -2, -2), palette().color(QPalette::HighlightedText));
}

}  // namespace morvane
