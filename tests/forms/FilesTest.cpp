#include <sys/stat.h>
#include <unistd.h>

#include "document/PictureFile.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "platform/Leftovers.h"
#include "platform/NaturalOrder.h"
#include "platform/PictureDecoding.h"
#include "platform/PrivateFolders.h"
#include "platform/PrivateProfile.h"
#include "platform/SnapshotFile.h"
#include "tests/support/FormFixture.h"

std::array<int, 2> flushErrors;  ///< of the next two flushes to the disk; 0 for none

/// Replaces the function of the system, so that flushes can fail.
extern "C" int fsync(int /*file*/) {
  errno = std::exchange(flushErrors[0], std::exchange(flushErrors[1], 0));
  return errno == 0 ? 0 : -1;
}

namespace morvane {
namespace {

struct Files : testing::Test {
  StartFolder folder;
  QtPlatform platform;
  const Bytes content = {1, 2, 3, 4};

  Failure Replace(const char* name) const {
    MemorySource source(content);
    return ReplaceFile(folder.File(name), source);
  }
};

TEST_F(Files, LinksAreFollowedAndModeAndOwnerAreKept) {
  WriteFile("target ü", {});
  std::filesystem::permissions("target ü", std::filesystem::perms(0640));
  const bool isRoot = chown("target ü", 65534, 65533) == 0;
  std::filesystem::create_directory("sub");
  std::filesystem::create_symlink("sub/link", "link");
  std::filesystem::create_symlink("../target ü", "sub/link");
  EXPECT_EQ(Replace("link"), "");
  EXPECT_EQ(ReadFile("target ü"), content);
  struct stat status {};
  ASSERT_EQ(stat("target ü", &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
  EXPECT_TRUE(!isRoot || (status.st_uid == 65534 && status.st_gid == 65533));
  std::filesystem::create_symlink("loop", "loop");
  EXPECT_NE(Replace("loop"), "");
}

TEST_F(Files, AFailedFlushIsReportedWhereFlushingIsSupported) {
  for (const auto& errors : {std::array{EIO, 0}, {EINTR, EIO}, {EINVAL, 0}, {ENOTSUP, 0}}) {
    flushErrors = errors;
    EXPECT_EQ(Replace("a").empty(), std::count(errors.begin(), errors.end(), EIO) == 0);
  }
}

TEST_F(Files, FoldersPipesAndHugeFilesAreRefused) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  std::filesystem::create_directory("map.bmp");
  for (const auto& [name, reason] : {std::pair("pipe", "This is not a normal file."),
                                     {"map.bmp", "This is a folder, not a file."}}) {
    EXPECT_EQ(LoadPicture(platform, folder.File(name)).Reason(), reason);
    EXPECT_EQ(Replace(name), reason);
  }
  WriteFile("huge", {});
  std::filesystem::resize_file("huge", std::uintmax_t{1} << 40U);
  EXPECT_EQ(LoadPicture(platform, "huge").Reason(), "The file is too large.");
  EXPECT_NE(platform.WritePrivateProfileString("Map", "Grid", "1", folder.File("huge")), "");
  EXPECT_EQ(Replace("huge"), "");
}

TEST_F(Files, OtherFormatsAreDecodedOnWhite) {
  QImage picture(1, 1, QImage::Format_ARGB32);
  picture.fill(QColor(255, 0, 0, 51));  // a fifth red
  ASSERT_TRUE(picture.save("a.png"));
  EXPECT_EQ(MapIn("a.png"), Picture(1, 1, 0xCCCCFF));
  const std::string header = "P6\n30000 30000\n255\n";  // without pixels
  EXPECT_EQ(platform.DecodePicture(Bytes(header.begin(), header.end())).Reason(), kTooLarge);
}

TEST_F(Files, IncompleteJpegsAndGifsAreRefused) {
  const Picture picture = Speckled(150, 100);
  QImageWriter writer("a.jpg");
  writer.setProgressiveScanWrite(true);
  ASSERT_TRUE(writer.write(ImageOver(picture.View())));
  // The frame covers one of the two pixels.
  const Bytes gif = {'G', 'I', 'F', '8', '9', 'a', 2, 0, 1,  0,  0,  0, 0, ',', 0, 0, 0,  0,
                     1,   0,   1,   0,   128, 9,   9, 9, 80, 80, 80, 2, 2, 68,  1, 0, ';'};
  for (const Bytes& whole : {ReadFile("a.jpg"), gif}) {
    for (std::size_t percent = 1; percent < 100; ++percent) {
      const Bytes cut(whole.begin(), whole.begin() + whole.size() * percent / 100);
      EXPECT_FALSE(platform.DecodePicture(cut).Ok()) << percent << " % of " << whole.size();
    }
    EXPECT_TRUE(platform.DecodePicture(whole).Ok());
    Bytes longer = whole;
    longer.insert(longer.end() - 2, 0);                               // ignored by both formats
    if (whole != gif) longer.insert(longer.end() - 2, {0xFF, 0xD0});  // a restart marker
    longer.insert(longer.end(), {0, 0xFF, 0xD8, 0xFF});
    EXPECT_TRUE(platform.DecodePicture(longer).Ok());
  }
  Bytes holed = ReadFile("a.jpg");
  holed.erase(holed.begin() + holed.size() / 2, holed.end() - 2);
  EXPECT_EQ(platform.DecodePicture(holed).Reason(), "The file is incomplete or damaged.");
}

TEST_F(Files, SlowDecodingIsAbandoned) {
  const DecodingLimits limits{.time = std::chrono::milliseconds(1)};
  EXPECT_EQ(DecodeForeignPicture(SlowPicture(), limits).Reason(),
            "The picture takes too long to decode.");
  EXPECT_TRUE(QTest::qWaitFor([] { return !IsStillDecoding(); }));
}

TEST(NaturalOrder, NumbersCountAsNumbersAndCaseDoesNot) {
  const std::vector<std::string> expected = {
      "a9",          "eben",   "Ébène", "Tile",   "tile 1.bmp", "Tile 2.bmp", "tile 007.bmp",
      "tile 10.bmp", "tile a", "tiles", "wall-1", "Wall2",      "漢"};
  std::vector<std::string> names(expected.rbegin(), expected.rend());
  SortNaturally(names);
  EXPECT_EQ(names, expected);
}

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

TEST(PrivateProfile, WritesAValueInOneLineAndCutsBetweenCharacters) {
  const std::string fresh = WithProfileValue("", "Map", "Dir", "/m").Value();
  EXPECT_EQ(fresh, "[Map]\r\nDir=/m\r\n");
  EXPECT_EQ(WithProfileValue(fresh, "Map", "Dir", " ü ").Value(), "[Map]\r\nDir=\" ü \"\r\n");
  EXPECT_FALSE(WithProfileValue(fresh, "Map", "Dir", "/a\n[Color]").Ok());
  EXPECT_EQ(CutText("aü", 2), "a");
}

struct Snapshots : testing::Test {
  StartFolder folder;
  const Bytes first = {1, 2, 3, 4, 5, 6};
  const Bytes second = {9, 8};
  const char* name = "mvtmp.~mp";
  SnapshotFile file;

  static void WriteAndReadBack(SnapshotFile& file, const Bytes& bytes) {
    MemorySource source(bytes);
    EXPECT_EQ(file.Write(source), "");
    EXPECT_EQ(ReadAll(*file.Read().Value()).Value(), bytes);
  }
};

TEST_F(Snapshots, OnlyTheLatestSnapshotIsKept) {
  WriteAndReadBack(file, first);
  std::filesystem::create_hard_link(name, "old");
  WriteAndReadBack(file, first);
  EXPECT_TRUE(std::filesystem::equivalent(name, "old")) << "one of the same size overwrites it";
  WriteAndReadBack(file, second);
  EXPECT_FALSE(std::filesystem::equivalent(name, "old")) << "one of another size replaces it";
  EXPECT_TRUE(file.IsUntouched());
  EXPECT_EQ(std::filesystem::status(name).permissions(), std::filesystem::perms(0600));
  QDir::setCurrent("/");  // it stays in its folder
  WriteAndReadBack(file, first);
  file.Delete();
  EXPECT_EQ(NamesIn(folder.File("")), "old");
}

TEST_F(Snapshots, WhatHasItsNameIsNotTouched) {
  WriteFile("target", second);
  const std::vector<std::function<int()>> obstacles = {
      [this] { return symlink("target", name); }, [this] { return link("target", name); },
      [this] { return mkfifo(name, 0600); }, [this] { return mkdir(name, 0700); }};
  for (const auto& create : obstacles) {
    ASSERT_EQ(create(), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty());
    WriteAndReadBack(file, first);
    file.Delete();
    ASSERT_EQ(remove(name), 0) << "deleted";
  }
  WriteAndReadBack(file, first);
  std::filesystem::rename("target", name);
  file.Delete();
  EXPECT_EQ(ReadFile(name), second);
}

TEST_F(Snapshots, AFolderThatFailsIsGivenUp) {
  WriteAndReadBack(file, first);
  for (int i = 1; i <= 100; ++i) mkdir((".morvane-save-" + std::to_string(i)).c_str(), 0700);
  WriteAndReadBack(file, second);
  EXPECT_FALSE(std::filesystem::exists(name));
}

TEST_F(Snapshots, KilledRunsInOneFolderLeaveTheirOwn) {
  {
    SnapshotFile other;
    WriteAndReadBack(file, first);
    WriteAndReadBack(other, second);
    file = SnapshotFile();  // doesn't delete the old one
  }
  std::vector<std::unique_ptr<Leftover>> found = LeftoverSnapshots();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(ReadAll(*found[0]).Value(), first);
  EXPECT_EQ(ReadAll(*found[1]).Value(), second);
  for (const auto& leftover : found) leftover->Delete();
  found.clear();
  WriteFile(name, {});
  EXPECT_TRUE(LeftoverSnapshots().empty());
  std::filesystem::resize_file(name, std::uintmax_t{1} << 31U);
  EXPECT_TRUE(LeftoverSnapshots().empty()) << "too large";
}

TEST_F(Snapshots, PrivateFoldersMustNotBeLinksOrWritableByOthers) {
  EXPECT_TRUE(MakePrivateFolder("mine").IsOpen());
  ASSERT_EQ(symlink("mine", "link"), 0);
  EXPECT_FALSE(MakePrivateFolder("link").IsOpen());
  ASSERT_EQ(chmod("mine", 0777), 0);
  EXPECT_FALSE(MakePrivateFolder("mine").IsOpen());
}

}  // namespace
}  // namespace morvane
