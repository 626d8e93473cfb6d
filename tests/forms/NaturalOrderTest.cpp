#include "platform/NaturalOrder.h"

#include <gtest/gtest.h>

#include <QCollator>
#include <QLocale>
#include <QString>
#include <algorithm>
#include <random>

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

TEST(NaturalOrder, PlainNamesLieAsTheSystemsCollationHasThem) {
  const std::string letters = " _-,;!'()[]{}@&#%`^+=~$.019abcxyzABCXYZ";
  std::mt19937 random(7);
  Names names(400);
  for (std::string& name : names) {
    const auto length = random() % 9 + 1;
    for (unsigned i = 0; i < length; ++i) name += letters[random() % letters.size()];
  }
  QCollator system{QLocale(QLocale::English)};
  system.setNumericMode(true);
  system.setCaseSensitivity(Qt::CaseInsensitive);
  names = Sorted(names);
  for (std::size_t i = 1; i < names.size(); ++i) {
    EXPECT_LE(
        system.compare(QString::fromStdString(names[i - 1]), QString::fromStdString(names[i])), 0)
        << names[i - 1] << " before " << names[i];
  }
}

}  // namespace
}  // namespace morvane
