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

/// Colours of a picture that must be drawn, whole and without holes.
std::set<QRgb> ColoursOf(const QString& sheet, const QRect& place) {
  const QImage image(":/tiles/" + sheet + ".png");
  EXPECT_TRUE(image.rect().contains(place));
  std::set<QRgb> colours;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) {
      colours.insert(image.pixel(x, y));
      EXPECT_EQ(qAlpha(image.pixel(x, y)), 255) << sheet.toStdString() << " " << x << "," << y;
    }
  }
  return colours;
}

template <typename Row>
void ExpectDrawn(const Row& row) {
  QFile source(QString(MORVANE_ART "/%1.svg").arg(SheetOf(row)));
  ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << source.fileName().toStdString();
  EXPECT_EQ(source.readAll().count("id=\"" + TextOf(row.control).toUtf8() + "\""), 1)
      << row.control;
  EXPECT_GE(ColoursOf(SheetOf(row), PlaceOf(row)).size(), 2U) << row.control;
}

TEST(Art, EveryItemAndEdgeIsDrawnAtItsPlaceWithoutHoles) {
  for (const Item& item : Items()) ExpectDrawn(item);
  for (const EdgePicture& edge : EdgePictures()) {
    // A wall may be one plain colour.
    if (edge.edge != Edge::Wall) ExpectDrawn(edge);
    ColoursOf(SheetOf(edge), PlaceOf(edge));
  }
}

TEST(Art, NoTwoItemsOfASetLookTheSame) {
  const TilePictures pictures(&LoadArtSheet);
  for (const Item& one : Items()) {
    for (const Item& other : Items()) {
      if (&one >= &other || one.set != other.set) continue;
      EXPECT_NE(pictures.Of(one), pictures.Of(other)) << one.control << " " << other.control;
    }
  }
}

TEST(Art, TheFenceIsDrawnOnItsSeeThroughColourWithoutBlending) {
  const TilePictures pictures(&LoadArtSheet);
  const QRgb key = qRgb(255, 0, 255);
  for (const Direction direction : {Direction::Vertical, Direction::Horizontal}) {
    const bool vertical = direction == Direction::Vertical;
    const PictureView fence = pictures.Of(kClassicVillage, Edge::Wall, direction)->View();
    EXPECT_EQ(fence.Row(vertical ? 4 : 0)[vertical ? 0 : 4], key);
    int seeThrough = 0;
    for (int y = 0; y < fence.height; ++y) {
      for (int x = 0; x < fence.width; ++x) {
        const QRgb pixel = fence.Row(y)[x];
        if (pixel == key)
          ++seeThrough;
        else
          EXPECT_FALSE(qGreen(pixel) < qRed(pixel) / 2 && qBlue(pixel) > qRed(pixel) / 2);
      }
    }
    EXPECT_GT(seeThrough, 20);
    EXPECT_LT(seeThrough, 70);
  }
}

using Strip = std::vector<Pixel>;

/// The outermost pixels of an item on one side: 'l', 'r', 't' or 'b'.
Strip StripOf(const TilePictures& pictures, const char* control, char side) {
  const PictureView view = pictures.Of(*FindItem(control)).View();
  const bool upright = side == 'l' || side == 'r';
  Strip strip;
  for (int i = 0; i < (upright ? view.height : view.width); ++i) {
    const int x = side == 'r' ? view.width - 1 : 0;
    const int y = side == 'b' ? view.height - 1 : 0;
    strip.push_back(upright ? view.Row(i)[x] : view.Row(y)[i]);
  }
  return strip;
}

/// Whether two sides lie against each other without a seam: grains of a texture may differ, a line
/// or another ground may not.
bool Fits(const Strip& one, const Strip& other) {
  const auto near = [](Pixel a, Pixel b) {
    const int most = 44;
    return std::abs(RedOf(a) - RedOf(b)) <= most && std::abs(GreenOf(a) - GreenOf(b)) <= most &&
           std::abs(BlueOf(a) - BlueOf(b)) <= most;
  };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), near);
}

TEST(Art, VillagePiecesFitEdgeToEdgeInAllTurns) {
  const TilePictures pictures(&LoadArtSheet);
  /// Pieces with their sides that belong together.
  using Group = std::vector<std::pair<const char*, std::string>>;
  const std::map<std::string, Group> groups = {
      {"road",
       {{"pvtiles-5", "lr"},
        {"pvtiles-6", "rb"},
        {"pvtiles-4", "lrb"},
        {"pvtiles-3", "lrtb"},
        {"pvtiles-2", "r"},
        {"pvtiles-18", "t"}}},
      {"grass",
       {{"pvtiles-0", "lrtb"},
        {"pvtiles-5", "tb"},
        {"pvtiles-6", "lt"},
        {"pvtiles-4", "t"},
        {"pvtiles-2", "ltb"},
        {"pvtiles-10", "t"},
        {"pvtiles-13", "t"}}},
      {"dirt", {{"pvtiles-1", "lrtb"}, {"pvtiles-10", "b"}, {"pvtiles-18", "b"}}},
      {"water", {{"pvtiles-17", "lrtb"}, {"pvtiles-13", "b"}, {"pvtiles-16", "rb"}}},
      {"shore", {{"pvtiles-13", "lr"}}},
      {"hedge", {{"pvvarious-9", "lr"}}},
      {"wall", {{"pvvarious-19", "lr"}, {"pvvarious-21", "lr"}}},
  };
  for (const auto& [name, group] : groups) {
    const Strip first = StripOf(pictures, group[0].first, group[0].second[0]);
    for (const auto& [control, sides] : group) {
      for (const char side : sides) {
        Strip strip = StripOf(pictures, control, side);
        EXPECT_TRUE(Fits(strip, first)) << name << ": " << control << " " << side;
        if (name == "shore") continue;
        std::reverse(strip.begin(), strip.end());  // flipped
        EXPECT_TRUE(Fits(strip, first)) << name << ": " << control << " " << side << " flipped";
      }
    }
  }
}

}  // namespace
}  // namespace morvane
