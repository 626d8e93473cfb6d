#include "document/Settings.h"

#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace morvane {
namespace {

TEST(Settings, TrailingSeparatorIsThereOnce) {
  EXPECT_EQ(WithTrailingBackslash(""), "/");
  EXPECT_EQ(WithTrailingBackslash("/"), "/");
  EXPECT_EQ(WithTrailingBackslash("/a"), "/a/");
  EXPECT_EQ(WithTrailingBackslash("/a/"), "/a/");
}

TEST(Settings, NumericValueIsTheNumberAtTheStart) {
  const std::map<std::string, double> table = {{"", 0},
                                               {"x", 0},
                                               {"12632256", 12632256},
                                               {" 1 2 3 x", 123},
                                               {"1", 1},
                                               {"-7.5z", -7.5},
                                               {"+4", 4},
                                               {"1e3", 1000},
                                               {".5", 0.5},
                                               {"0", 0},
                                               {"inf", 0},
                                               {"nan", 0},
                                               {"-", 0},
                                               {"--1", 0},
                                               {"+-1", 0},
                                               {"\t16777215", 16777215},
                                               {"yes 1", 0}};
  for (const auto& [text, value] : table) EXPECT_EQ(NumericValue(text), value) << text;
}

TEST(Settings, LongsAreRoundedToEvenAndColoursAre24Bits) {
  EXPECT_EQ(LongValue("2.5"), 2);
  EXPECT_EQ(LongValue("3.5"), 4);
  EXPECT_EQ(LongValue("99999999999"), 0);
  EXPECT_EQ(LongValue("1e400"), 0);
  EXPECT_EQ(ColorValue("12632256"), 0xC0C0C0U);
  EXPECT_EQ(ColorValue("-1"), 0xFFFFFFU);
  EXPECT_EQ(ColorValue("16777216"), 0U);
}

}  // namespace
}  // namespace morvane
