#include <set>

#include "palette/TilePictures.h"
#include "platform/Images.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Expects an element on a sheet of a set, once, drawn opaque and in at least that number of
/// colours.
void ExpectDrawn(int set, std::string_view page, std::string_view element, const Rect& place,
                 const Picture& picture, std::size_t colors) {
  const QString sheet = TextOf(TileSets()[set].folder) + "/" + TextOf(page);
  SCOPED_TRACE(sheet.toStdString() + " " + std::string(element));
  QFile source(MORVANE_ART "/" + sheet + ".svg");
  ASSERT_TRUE(source.open(QIODevice::ReadOnly));
  EXPECT_EQ(source.readAll().count("id=\"" + TextOf(element).toUtf8() + "\""), 1);
  const QImage image = QImage(":/tiles/" + sheet + ".png").convertToFormat(QImage::Format_ARGB32);
  const QImage part = image.copy(place.left, place.top, place.Width(), place.Height());
  EXPECT_TRUE(ImageOver(picture.View()).convertToFormat(QImage::Format_ARGB32) == part);
  const auto* pixels = reinterpret_cast<const QRgb*>(part.constBits());
  EXPECT_GE(std::set(pixels, pixels + part.sizeInBytes() / sizeof(QRgb)).size(), colors);
}

TEST(Art, EveryItemAndEdgeIsDrawnAtItsPlace) {
  const TilePictures pictures(&LoadArtSheet);
  for (const Item& item : Items()) {
    const int x = item.column * 20;
    const int y = item.row * 20;
    ExpectDrawn(item.set, TileSets()[item.set].pages[item.page - 1].sheet, item.control,
                {x, y, x + item.stored.width, y + item.stored.height}, pictures.Of(item), 2);
  }
  for (const EdgePicture& edge : EdgePictures()) {
    ExpectDrawn(edge.set, "edges", edge.control, EdgeOnSheet(edge),
                *pictures.Of(edge.set, edge.edge, edge.direction), edge.edge == Edge::Wall ? 1 : 2);
  }
  EXPECT_EQ(pictures.Of(kClassicVillage, Edge::SecretDoor, Direction::Vertical), nullptr);
}

TEST(Art, TheFenceHasItsColourKeyInTheGapsWithoutBlending) {
  const TilePictures pictures(&LoadArtSheet);
  const QRgb key = qRgb(255, 0, 255);
  for (const Direction direction : {Direction::Vertical, Direction::Horizontal}) {
    const PictureView fence = pictures.Of(kClassicVillage, Edge::Wall, direction)->View();
    EXPECT_EQ(direction == Direction::Vertical ? fence.Row(4)[0] : fence.Row(0)[4], key);
    for (const QRgb pixel : std::span(fence.Row(0), fence.Row(fence.height))) {
      const bool isPink = qGreen(pixel) < qRed(pixel) / 2 && qBlue(pixel) > qRed(pixel) / 2;
      EXPECT_EQ(isPink, pixel == key) << "a blend with the key";
    }
  }
}

}  // namespace
}  // namespace morvane
