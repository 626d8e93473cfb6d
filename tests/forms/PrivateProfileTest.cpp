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
  const auto with = [](const std::string& text, const char* section, const char* key,
                       const char* value) {
    return WithProfileValue(text, section, key, value).Value();
  };
  const std::string text = "; mine\n\n[color]\n canvas = 1 ; old\n\n[Map]\nDir=/a";
  EXPECT_EQ(with(text, "Color", "Canvas", "2"), "; mine\n\n[color]\n canvas =2\n\n[Map]\nDir=/a");
  EXPECT_EQ(with(text, "Color", "Grid", "3"),
            "; mine\n\n[color]\n canvas = 1 ; old\nGrid=3\n\n[Map]\nDir=/a");
  EXPECT_EQ(with(text, "Map", "Grid", "1"), text + "\nGrid=1\n");
  EXPECT_EQ(with(text, "Custom", "Dir", "/c"), text + "\n\n[Custom]\nDir=/c\n");
  EXPECT_EQ(with("", "Map", "Dir", "/m"), "[Map]\r\nDir=/m\r\n");
  EXPECT_EQ(with("[Map]\r\nDir=x\r\n", "Map", "Dir", ""), "[Map]\r\nDir=\r\n");
}

TEST(PrivateProfile, ValuesThatCouldNotBeReadBackAreRefused) {
  const StartFolder folder;
  QtPlatform platform;
  Settings settings(platform);
  settings.StartDir = folder.File("");
  for (const std::string& value : {std::string("/a\n[Color]"), std::string("\r"),
                                   std::string(1, '\0'), std::string(100'000, 'x')}) {
    EXPECT_NE(settings.Write("Map", "Dir", value), "");
  }
  EXPECT_EQ(settings.Write("Map", "Dir", " ü "), "");
  EXPECT_EQ(settings.GetINIFileString("Map", "Dir", ""), " ü ");
}

}  // namespace
}  // namespace morvane
