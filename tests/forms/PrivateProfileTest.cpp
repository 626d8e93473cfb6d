#include "platform/PrivateProfile.h"

#include <array>

#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

TEST(PrivateProfile, FindsKeysWithoutRegardToCase) {
  const std::string text =
      "\xEF\xBB\xBF[COLOR]\r\n canvas = 16777215 \r\n; b\r\nGrid=\r\n\r\n[map]\r\n"
      "DIR=/my maps/ü=1\r\nquoted=\" a \"\r\nhalf=\"x\r\nhalf=2\r\n[color]\r\nlate=1";
  const std::vector<std::array<const char*, 3>> rows = {
      {"Color", "Canvas", "16777215"}, {"Color", "Grid", ""},    {"Color", "Late", "none"},
      {"Map", "Dir", "/my maps/ü=1"},  {"Map", "Quoted", " a "}, {"Map", "Half", "\"x"},
      {"Map", "Canvas", "none"},       {"Custom", "Dir", "none"}};
  for (const auto& [section, key, value] : rows) {
    EXPECT_EQ(FindProfileValue(text, section, key, "none"), value) << section << '/' << key;
  }
}

TEST(PrivateProfile, SettingAValueLeavesAllOtherLines) {
  const std::string text = "; mine\n\n[color]\n canvas = 1 ; old\n\n[Map]\nDir=/a";
  const std::vector<std::array<std::string, 5>> rows = {
      {text, "Color", "Canvas", "2", "; mine\n\n[color]\n canvas =2\n\n[Map]\nDir=/a"},
      {text, "Color", "Grid", "3", "; mine\n\n[color]\n canvas = 1 ; old\nGrid=3\n\n[Map]\nDir=/a"},
      {text, "Map", "Grid", "1", text + "\nGrid=1\n"},
      {text, "Custom", "Dir", "/c", text + "\n\n[Custom]\nDir=/c\n"},
      {"", "Map", "Dir", "/m", "[Map]\r\nDir=/m\r\n"},
      {"[Map]\r\nDir=x\r\n", "Map", "Dir", " ü ", "[Map]\r\nDir=\" ü \"\r\n"}};
  for (const auto& [before, section, key, value, after] : rows) {
    EXPECT_EQ(WithProfileValue(before, section, key, value).Value(), after);
  }
  EXPECT_FALSE(WithProfileValue(text, "Map", "Dir", "/a\n[Color]").Ok());
}

}  // namespace
}  // namespace morvane
