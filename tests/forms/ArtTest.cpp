#include <QFile>
#include <QImage>
#include <algorithm>
#include <map>
#include <set>

#include "palette/TilePictures.h"
#include "shell/ArtSheets.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

QString SheetOf(const Item& item) {
  const TileSet& set = TileSets()[item.set];
  return TextOf(set.folder) + "/" + TextOf(set.pages[item.page - 1].sheet);
}

QString SheetOf(const EdgePicture& edge) {
  return TextOf(TileSets()[edge.set].folder) + "/edges";
}

QRect PlaceOf(const Item& item) {
  return {item.column * 20, item.row * 20, item.stored.width, item.stored.height};
}

QRect PlaceOf(const EdgePicture& edge) {
  const Rect rect = EdgeOnSheet(edge);
  return {rect.left, rect.top, rect.Width(), rect.Height()};
}

/// The colors of a picture, which must be opaque.
std::set<QRgb> ColorsOf(const QString& sheet, const QRect& place) {
  const QImage image(":/tiles/" + sheet + ".png");
  EXPECT_TRUE(image.rect().contains(place));
  std::set<QRgb> colors;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) {
      colors.insert(image.pixel(x, y));
      EXPECT_EQ(qAlpha(image.pixel(x, y)), 255) << sheet.toStdString() << " " << x << "," << y;
    }
  }
  return colors;
}

template <typename Row>
void ExpectDrawn(const Row& row) {
  QFile source(QString(MORVANE_ART "/%1.svg").arg(SheetOf(row)));
  ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << source.fileName().toStdString();
  EXPECT_EQ(source.readAll().count("id=\"" + TextOf(row.control).toUtf8() + "\""), 1)
      << row.control;
  EXPECT_GE(ColorsOf(SheetOf(row), PlaceOf(row)).size(), 2U) << row.control;
}

TEST(Art, EveryItemAndEdgeIsDrawnAtItsPlace) {
  for (const Item& item : Items()) ExpectDrawn(item);
  for (const EdgePicture& edge : EdgePictures()) {
    // A wall may have a single colour.
    if (edge.edge != Edge::Wall) ExpectDrawn(edge);
    ColorsOf(SheetOf(edge), PlaceOf(edge));
  }
}

TEST(Art, TheFenceHasItsColourKeyInTheGapsWithoutBlending) {
  const TilePictures pictures(&LoadArtSheet);
  const QRgb key = qRgb(255, 0, 255);
  for (const Direction direction : {Direction::Vertical, Direction::Horizontal}) {
    const bool vertical = direction == Direction::Vertical;
    const PictureView fence = pictures.Of(kClassicVillage, Edge::Wall, direction)->View();
    EXPECT_EQ(fence.Row(vertical ? 4 : 0)[vertical ? 0 : 4], key);
    int transparent = 0;
    for (int y = 0; y < fence.height; ++y) {
      for (int x = 0; x < fence.width; ++x) {
        const QRgb pixel = fence.Row(y)[x];
        if (pixel == key)
          ++transparent;
        else
          EXPECT_FALSE(qGreen(pixel) < qRed(pixel) / 2 && qBlue(pixel) > qRed(pixel) / 2);
      }
    }
    EXPECT_GT(transparent, 20);
    EXPECT_LT(transparent, 70);
  }
}

}  // namespace
}  // namespace morvane
