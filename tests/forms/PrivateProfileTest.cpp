#include "platform/PrivateProfile.h"

#include <QFile>

#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

std::string Value(const std::string& text, const char* section, const char* key) {
  return FindProfileValue(text, section, key, "none");
}

TEST(PrivateProfile, FindsKeysWithoutRegardToCase) {
  const std::string text =
      "; colours\r\n[COLOR]\r\n canvas = 16777215 \r\nGrid=\r\n\r\n[map]\r\nDIR=/my maps/ü=1\r\n"
      "quoted=\" a \"\r\nhalf=\"x\r\n";
  EXPECT_EQ(Value(text, "Color", "Canvas"), "16777215");
  EXPECT_EQ(Value(text, "Color", "Grid"), "");
  EXPECT_EQ(Value(text, "Map", "Dir"), "/my maps/ü=1");
  EXPECT_EQ(Value(text, "Map", "Quoted"), " a ");
  EXPECT_EQ(Value(text, "Map", "Half"), "\"x");
  EXPECT_EQ(Value(text, "Map", "Canvas"), "none");
  EXPECT_EQ(Value(text, "Custom", "Dir"), "none");
  EXPECT_EQ(Value("\xEF\xBB\xBF[a]\nb=1\nb=2\n[a]\nc=3", "A", "B"), "1");
}

std::string With(const std::string& text, const char* section, const char* key,
                 const std::string& value) {
  return WithProfileValue(text, section, key, value).Value();
}

TEST(PrivateProfile, SettingAValueLeavesAllOtherLines) {
  const std::string text = "; mine\n\n[color]\n canvas = 1 ; old\n\n[Map]\nDir=/a";
  EXPECT_EQ(With(text, "Color", "Canvas", "2"), "; mine\n\n[color]\n canvas =2\n\n[Map]\nDir=/a");
  EXPECT_EQ(With(text, "Color", "Grid", "3"),
            "; mine\n\n[color]\n canvas = 1 ; old\nGrid=3\n\n[Map]\nDir=/a");
  EXPECT_EQ(With(text, "Map", "Grid", "1"), text + "\nGrid=1\n");
  EXPECT_EQ(With(text, "Custom", "Dir", "/c"), text + "\n\n[Custom]\nDir=/c\n");
  EXPECT_EQ(With("", "Map", "Dir", "/m"), "[Map]\r\nDir=/m\r\n");
  EXPECT_EQ(With("[Map]\r\nDir=x\r\n", "Map", "Dir", ""), "[Map]\r\nDir=\r\n");
}

TEST(PrivateProfile, RefusesValuesThatCouldNotBeReadBack) {
  QtPlatform platform;
  const StartFolder folder;
  for (const std::string& value :
       {std::string("/a\n[Color]"), std::string("\r"), std::string(1, 0)}) {
    EXPECT_NE(platform.WritePrivateProfileString("Map", "Dir", value, folder.File("a.ini")), "");
  }
  Settings settings(platform);
  settings.StartDir = folder.File("");
  EXPECT_NE(settings.Write("Map", "Dir", std::string(100'000, 'x')), "");
  EXPECT_FALSE(QFile::exists("a.ini"));
  EXPECT_FALSE(QFile::exists("Morvane.ini"));
}

}  // namespace
}  // namespace morvane
