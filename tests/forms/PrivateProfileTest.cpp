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

TEST(PrivateProfile, WhatIsSetIsFoundAgain) {
  for (const char* text :
       {"", "[Map]", "[map]\ndir = old", "\xEF\xBB\xBF[MAP]\r\nDir=\"old\"\r\n"}) {
    for (const char* value : {"", "/a b", " /a ", "\"/a\"", "'", "''", "=[x]", ";"}) {
      EXPECT_EQ(Value(With(text, "Map", "Dir", value), "Map", "Dir"), value) << text;
    }
    for (const char* value : {"/a\nGrid=1", "/a\r"}) {
      EXPECT_FALSE(WithProfileValue(text, "Map", "Dir", value).Ok());
    }
  }
}

TEST(PrivateProfile, WhatCouldNotBeFoundAgainIsRefusedAndNothingWritten) {
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

TEST(PrivateProfile, HugeAndBinaryFilesAreReadAndTheirOtherLinesKept) {
  const StartFolder folder;
  const std::string path = folder.File("Morvane.ini");
  std::string noise(7'500'000, 'x');
  noise[7'000'000] = '\0';
  std::string between = noise;
  between.append("\n[Map]\nDir=/old\n").append(noise);
  for (const std::string& start : {noise, between}) {
    QFile file("Morvane.ini");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(start.data(), static_cast<qint64>(start.size()));
    file.close();
    QtPlatform platform;
    ASSERT_EQ(platform.WritePrivateProfileString("Map", "Dir", "/new", path), "");
    EXPECT_EQ(platform.GetPrivateProfileString("Map", "Dir", "", 2048, path), "/new");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string end = file.readAll().toStdString();
    EXPECT_TRUE(end.starts_with(noise));
    EXPECT_EQ(end.ends_with(noise), start.size() > noise.size());
  }
}

TEST(PrivateProfile, LongValuesAreCutToTheBuffer) {
  const StartFolder folder;
  QFile file("Morvane.ini");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[Map]\nDir=" + QByteArray(3000, 'x') + "\n[Custom]\nDir=a" +
             QString(2000, QChar(0xFC)).toUtf8() + "\n");
  file.close();
  QtPlatform platform;
  const std::string path = folder.File("Morvane.ini");
  EXPECT_EQ(platform.GetPrivateProfileString("Map", "Dir", "", 2048, path).size(), 2047U);
  const std::string cut = platform.GetPrivateProfileString("Custom", "Dir", "", 2048, path);
  EXPECT_EQ(cut.size(), 2047U);
  EXPECT_FALSE(QString::fromStdString(cut).contains(QChar::ReplacementCharacter));
  EXPECT_EQ(CutText("aü", 2), "a");
  EXPECT_EQ(platform.GetPrivateProfileString("Map", "Dir", "d", 2048, folder.File("no.ini")), "d");
}

}  // namespace
}  // namespace morvane
