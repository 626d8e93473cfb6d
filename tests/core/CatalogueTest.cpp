#include "palette/Catalogue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <sstream>
#include <tuple>

#include "palette/TilePictures.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

/// A checksum (FNV-1a) of all that a table row says.
class Checksum {
 public:
  template <typename... Fields>
  void Add(const Fields&... fields) {
    std::ostringstream row;
    ((row << fields << '|'), ...);
    for (const char byte : row.str())
      value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325U;
};

// Maps of other users depend on every name, caption, place and size, so no row may change by
// accident.
TEST(Catalogue, EveryRowIsAsItWasPublished) {
  Checksum items;
  for (const Item& item : Items()) {
    items.Add(item.control, item.caption, item.set, item.page, item.column, item.row,
              item.stored.width, item.stored.height);
  }
  EXPECT_EQ(items.Value(), 4657574473393665680U);
  Checksum edges;
  for (const EdgePicture& edge : EdgePictures()) {
    edges.Add(edge.control, edge.set, static_cast<int>(edge.edge), static_cast<int>(edge.direction),
              edge.stored.width, edge.stored.height);
  }
  EXPECT_EQ(edges.Value(), 12568249178469911804U);
}

TEST(Catalogue, ItemsShareNoCellAndStayOnTheirPage) {
  std::set<std::tuple<int, int, int, int>> taken;
  for (const Item& item : Items()) {
    for (int x = 0; x < item.stored.width / 20; ++x) {
      for (int y = 0; y < item.stored.height / 20; ++y) {
        EXPECT_TRUE(taken.insert({item.set, item.page, item.column + x, item.row + y}).second)
            << item.control;
        EXPECT_LT(item.column + x, 6) << item.control;
        EXPECT_LT(item.row + y, item.set == kClassicVillage ? 9 : 7) << item.control;
      }
    }
  }
}

TEST(Catalogue, StampsOfOneSetAreOnePixelSmallerThanTheirPictures) {
  EXPECT_EQ(StampSize(*FindItem("ptcrevasse")), (Size{59, 19}));
  EXPECT_EQ(StampSize(*FindItem("pbfireplace")), (Size{40, 20}));
  EXPECT_EQ(StampSize(*FindItem("ptfireplace")), (Size{19, 19}));
  EXPECT_EQ(StampSize(*FindItem("pvbuildings-9")), (Size{60, 40}));
  EXPECT_EQ(StampSize(*FindItem("pvvarious-8")), (Size{20, 40}));
}

TEST(Catalogue, PicturesAreCutFromTheSheetOfTheirPage) {
  const TilePictures pictures(&SpeckledSheet);
  const Picture furniture = SpeckledSheet("grave-dungeon/furniture");
  EXPECT_EQ(pictures.Of(*FindItem("pgtorturetable")), Cut(furniture.View(), {40, 100, 80, 120}));
  const Picture edges = SpeckledSheet("classic-village/edges");
  EXPECT_EQ(*pictures.Of(kClassicVillage, Edge::Wall, Direction::Vertical),
            Cut(edges.View(), {0, 0, 4, 24}));
  EXPECT_EQ(*pictures.Of(kClassicVillage, Edge::Door, Direction::Horizontal),
            Cut(edges.View(), {30, 10, 46, 16}));
  EXPECT_EQ(pictures.Of(kClassicVillage, Edge::SecretDoor, Direction::Vertical), nullptr);
  EXPECT_EQ(pictures.Of(kCustomSet, Edge::Wall, Direction::Vertical), nullptr);
}

}  // namespace
}  // namespace morvane
