#include <set>

#include "palette/TilePictures.h"
#include "shell/ArtSheets.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Expects an element on a sheet of a set, once, and drawn opaque in several colours.
void ExpectDrawn(int set, std::string_view page, std::string_view element, const QRect& place,
                 int colors) {
  const QString sheet = TextOf(TileSets()[set].folder) + "/" + TextOf(page);
  SCOPED_TRACE(sheet.toStdString() + " " + std::string(element));
  QFile source(MORVANE_ART "/" + sheet + ".svg");
  ASSERT_TRUE(source.open(QIODevice::ReadOnly));
  EXPECT_EQ(source.readAll().count("id=\"" + TextOf(element).toUtf8() + "\""), 1);
  const QImage image = QImage(":/tiles/" + sheet + ".png").convertToFormat(QImage::Format_ARGB32);
  ASSERT_TRUE(image.rect().contains(place));
  std::set<QRgb> drawn;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) drawn.insert(image.pixel(x, y));
  }
  EXPECT_GE(std::ssize(drawn), colors);
  EXPECT_EQ(qAlpha(*drawn.begin()), 255);  // the least of all
}

TEST(Art, EveryItemAndEdgeIsDrawnAtItsPlace) {
  for (const Item& item : Items()) {
    ExpectDrawn(item.set, TileSets()[item.set].pages[item.page - 1].sheet, item.control,
                {item.column * 20, item.row * 20, item.stored.width, item.stored.height}, 2);
  }
  for (const EdgePicture& edge : EdgePictures()) {
    const auto [left, top, right, bottom] = EdgeOnSheet(edge);
    ExpectDrawn(edge.set, "edges", edge.control, {left, top, right - left, bottom - top},
                edge.edge == Edge::Wall ? 1 : 2);
  }
}

TEST(Art, TheFenceHasItsColourKeyInTheGapsWithoutBlending) {
  const TilePictures pictures(&LoadArtSheet);
  const QRgb key = qRgb(255, 0, 255);
  for (const Direction direction : {Direction::Vertical, Direction::Horizontal}) {
    const PictureView fence = pictures.Of(kClassicVillage, Edge::Wall, direction)->View();
    EXPECT_EQ(direction == Direction::Vertical ? fence.Row(4)[0] : fence.Row(0)[4], key);
    int transparent = 0;
    for (int i = 0; i < fence.width * fence.height; ++i) {
      const QRgb pixel = fence.Row(i / fence.width)[i % fence.width];
      const bool isPink = qGreen(pixel) < qRed(pixel) / 2 && qBlue(pixel) > qRed(pixel) / 2;
      EXPECT_EQ(isPink, pixel == key) << "a blend with the key";
      transparent += isPink ? 1 : 0;
    }
    EXPECT_TRUE(transparent > 20 && transparent < 70) << transparent;
  }
}

}  // namespace
}  // namespace morvane
