#include <gtest/gtest.h>

#include "tools/EdgeSearch.h"
#include "tools/GridTests.h"

namespace morvane {
namespace {

/// The search as it is told: every index in turn, without an early exit.
template <typename Passes>
std::optional<int> Scan(int extent, Passes passes) {
  std::optional<int> found;
  for (int i = 0; i <= extent / 20; ++i) {
    if (passes(static_cast<float>(20 * i))) found = i;
  }
  return found;
}

TEST(Grid, SearchesEqualTheScansForEveryCoordinate) {
  for (const int extent : {0, 19, 20, 599, 600, 619}) {
    for (float v = -45; v < 700; v += 0.25F) {
      ASSERT_EQ(FindCell(v, extent),
                Scan(extent, [v](float at) { return v > at - 1 && v < at + 19; }))
          << v;
      ASSERT_EQ(FindLine(v, extent),
                Scan(extent, [v](float at) { return v > at - 3 && v < at + 3; }))
          << v;
      ASSERT_EQ(FindBody(v, extent),
                Scan(extent, [v](float at) { return v > at + 3 && v < at + 17; }))
          << v;
    }
  }
}

TEST(Grid, CellSidesByTheRemaindersOfBothAxes) {
  const auto nearLine = [](int r) { return r >= 18 || r <= 2; };
  const auto inBody = [](int r) { return r >= 4 && r <= 16; };
  for (int x = 0; x < 615; ++x) {
    for (int y = 0; y < 483; ++y) {
      std::optional<CellSide> expected;
      if (nearLine(x % 20) && inBody(y % 20)) {
        expected = {Direction::Vertical, (x + 2) / 20, y / 20};
      } else if (inBody(x % 20) && nearLine(y % 20)) {
        expected = {Direction::Horizontal, (y + 2) / 20, x / 20};
      }
      ASSERT_EQ(FindCellSide(static_cast<float>(x), static_cast<float>(y), {615, 483}), expected)
          << x << "," << y;
    }
  }
}

TEST(Grid, TheLastIndexReachesAWholeQuotient) {
  EXPECT_FALSE(FindCellSide(598, 50, {599, 400}));
  EXPECT_EQ(FindCellSide(598, 50, {600, 400}), (CellSide{Direction::Vertical, 30, 2}));
  EXPECT_EQ(FindCellSide(-1, 10, {600, 400}), (CellSide{Direction::Vertical, 0, 0}));
}

}  // namespace
}  // namespace morvane
