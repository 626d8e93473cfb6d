#include "platform/NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace morvane {
namespace {

using Names = std::vector<std::string>;

Names Sorted(Names names) {
  SortNaturally(names);
  return names;
}

TEST(NaturalOrder, NumbersCountAsNumbersAndCaseDoesNot) {
  const Names expected = {"Tile",   "tile 1.bmp", "Tile 2.bmp", "tile 007.bmp", "tile 10.bmp",
                          "tile a", "tiles",      "wall-1",     "Wall2"};
  Names mixed = expected;
  std::reverse(mixed.begin(), mixed.end());
  EXPECT_EQ(Sorted(mixed), expected);
  EXPECT_EQ(Sorted({"z", "Ébène", "eben", "漢", "a10", "a9"}),
            (Names{"a9", "a10", "eben", "Ébène", "z", "漢"}));
  EXPECT_EQ(Sorted({}), Names());
}

}  // namespace
}  // namespace morvane
