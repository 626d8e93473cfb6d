#include "palette/Catalogue.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "palette/TilePictures.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

TEST(Catalogue, CountsPerPageAndUniqueControls) {
  std::map<std::pair<int, int>, int> counts;
  std::set<std::string_view> controls;
  for (const Item& item : Items()) {
    ++counts[{item.set, item.page}];
    controls.insert(item.control);
  }
  for (const EdgePicture& edge : EdgePictures()) controls.insert(edge.control);
  const std::map<std::pair<int, int>, int> expected = {
      {{0, 1}, 19}, {{0, 2}, 15}, {{0, 3}, 19}, {{1, 1}, 18}, {{1, 2}, 15},
      {{1, 3}, 20}, {{2, 1}, 23}, {{3, 1}, 15}, {{3, 2}, 11}, {{3, 3}, 29}};
  EXPECT_EQ(counts, expected);
  EXPECT_EQ(controls.size(), 184U + 22U);
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

TEST(Catalogue, HolesAndStampSizes) {
  for (const char* hole : {"pvtiles-7", "pvtiles-8", "pvtiles-9", "pvtiles-15", "pvbuildings-11"}) {
    EXPECT_EQ(FindItem(hole), nullptr) << hole;
  }
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
