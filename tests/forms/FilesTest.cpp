#include "platform/Files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <cerrno>
#include <cstring>

#include "document/PictureFile.h"
#include "document/picture/Blit.h"
#include "platform/PictureDecoding.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct Files : testing::Test {
  StartFolder folder;
  const Bytes content = {1, 2, 3, 4};

  Bytes Read(const char* name) {
    Result<std::unique_ptr<ByteSource>> file = OpenRegularFile(folder.File(name));
    EXPECT_TRUE(file.Ok()) << name << ": " << file.Reason();
    return file.Ok() ? ReadAll(*file.Value()).Value() : Bytes();
  }
  static Failure Replace(const std::string& path, const Bytes& bytes) {
    MemorySource source(bytes);
    return ReplaceFile(path, source);
  }
};

TEST_F(Files, WhatIsWrittenIsRead) {
  EXPECT_EQ(Replace(folder.File("a b ü.bmp"), content), "");
  EXPECT_EQ(Read("a b ü.bmp"), content);
  EXPECT_EQ(QDir().entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(Files, AFileLargerThanMemoryIsRefusedUnread) {
  const std::string path = folder.File("huge");
  ASSERT_TRUE(QFile(QString::fromStdString(path)).open(QIODevice::WriteOnly));
  ASSERT_EQ(truncate(path.c_str(), off_t{1} << 40U), 0);
  QtPlatform platform;
  Result<LoadedPicture> picture = LoadPicture(platform, path);
  ASSERT_FALSE(picture.Ok());
  EXPECT_EQ(picture.Reason(), "The file is too large.");
  EXPECT_EQ(platform.GetPrivateProfileString("Map", "Dir", "none", 2048, path), "none");
  EXPECT_EQ(platform.WritePrivateProfileString("Map", "Dir", "/", path), "The file is too large.");
}

TEST_F(Files, LinksAreFollowedAndTheModeIsKept) {
  ASSERT_EQ(Replace(folder.File("target"), {}), "");
  ASSERT_EQ(chmod("target", 0640), 0);
  ASSERT_TRUE(QFile::link("target", "link"));
  EXPECT_EQ(Replace(folder.File("link"), content), "");
  EXPECT_TRUE(QFileInfo("link").isSymLink());
  EXPECT_EQ(Read("target"), content);
  struct stat status {};
  ASSERT_EQ(stat("target", &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(Files, LinksMayLeadFarNowhereOrInCircles) {
  ASSERT_TRUE(QDir().mkdir("sub"));
  ASSERT_TRUE(QFile::link("sub/two", "one"));
  ASSERT_TRUE(QFile::link("../three", "sub/two"));
  EXPECT_EQ(Replace(folder.File("one"), content), "");
  EXPECT_EQ(Read("three"), content);
  EXPECT_TRUE(QFileInfo("one").isSymLink());
  ASSERT_TRUE(QFile::link("b", "a"));
  ASSERT_TRUE(QFile::link("a", "b"));
  EXPECT_EQ(Replace(folder.File("a"), content), std::strerror(ELOOP));
}

TEST_F(Files, OtherNamesOfTheFileKeepTheOldContent) {
  ASSERT_EQ(Replace(folder.File("one"), {7}), "");
  ASSERT_EQ(link("one", "other"), 0);
  EXPECT_EQ(Replace(folder.File("one"), content), "");
  EXPECT_EQ(Read("one"), content);
  EXPECT_EQ(Read("other"), Bytes{7});
}

TEST_F(Files, WhatIsNoNormalFileIsRefusedWithoutAHang) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  ASSERT_TRUE(QDir().mkdir("map.bmp"));
  const std::vector<std::pair<std::string, std::string>> rows = {
      {folder.File("pipe"), "This is not a normal file."},
      {folder.File("map.bmp"), "This is a folder, not a file."},
      {folder.File("missing"), "There is no such file."},
      {"/dev/zero", "This is not a normal file."}};
  for (const auto& [path, reason] : rows) {
    Result<std::unique_ptr<ByteSource>> read = OpenRegularFile(path);
    ASSERT_FALSE(read.Ok()) << path;
    EXPECT_EQ(read.Reason(), reason);
  }
  EXPECT_EQ(Replace(folder.File("map.bmp"), content), "This is a folder, not a file.");
  EXPECT_EQ(Replace(folder.File("pipe"), content), "This is not a normal file.");
  EXPECT_EQ(Replace(folder.File("gone/a.bmp"), content), "The folder doesn't exist.");
  EXPECT_EQ(Replace("/dev/full", content), "This is not a normal file.");
  EXPECT_NE(Replace("/proc/a.bmp", content), "");
}

TEST_F(Files, PicturesOfOtherFormatsLieOnWhite) {
  QtPlatform platform;
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixelColor(0, 0, QColor(255, 0, 0, 255));
  picture.setPixelColor(1, 0, QColor(0, 0, 0, 0));
  ASSERT_TRUE(picture.save("a.png"));
  Result<Picture> decoded = platform.DecodePicture(Read("a.png"));
  ASSERT_TRUE(decoded.Ok()) << decoded.Reason();
  EXPECT_EQ(GetPixel(decoded.Value().View(), 0, 0), 0x0000FFU);
  EXPECT_EQ(GetPixel(decoded.Value().View(), 1, 0), kWhite);
  Result<Picture> refused = platform.DecodePicture({'n', 'o'});
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Reason().find("This is not a picture that can be read"), 0U);
  // A header alone, which claims 30,000 by 30,000 pixels.
  const std::string claims = "P6\n30000 30000\n255\n";
  EXPECT_EQ(platform.DecodePicture(Bytes(claims.begin(), claims.end())).Reason(), kTooLarge);
}

TEST_F(Files, OnlyWholeJpegsAndGifsAreOpened) {
  QtPlatform platform;
  QImage picture(150, 100, QImage::Format_RGB32);
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 150; ++x) picture.setPixel(x, y, qRgb(x * y, x * 7, y * 9));
  }
  for (const bool progressive : {false, true}) {
    QImageWriter writer(progressive ? "b.jpg" : "a.jpg");
    writer.setProgressiveScanWrite(progressive);
    ASSERT_TRUE(writer.write(picture));
  }
  // One pixel of a picture of two; Qt leaves the other empty.
  const Bytes gif = {'G', 'I', 'F', '8', '9', 'a', 2, 0, 1,  0,  0,  0, 0, ',', 0, 0, 0,  0,
                     1,   0,   1,   0,   128, 9,   9, 9, 80, 80, 80, 2, 2, 68,  1, 0, ';'};
  for (const Bytes& whole : {Read("a.jpg"), Read("b.jpg"), gif}) {
    for (std::size_t percent = 1; percent < 100; ++percent) {
      Bytes cut = whole;
      cut.resize(whole.size() * percent / 100);
      EXPECT_FALSE(platform.DecodePicture(cut).Ok()) << percent << " % of " << whole.size();
    }
    Bytes longer = whole;
    longer.insert(longer.end(), {0, 0xFF, 0xD8, 0xFF});
    Result<Picture> decoded = platform.DecodePicture(longer);
    ASSERT_TRUE(decoded.Ok()) << decoded.Reason();
    EXPECT_EQ(ReadBmp(WriteBmp(decoded.Value().View())).Value(), decoded.Value());
  }
  Bytes holed = Read("a.jpg");
  std::fill(holed.begin() + static_cast<long>(holed.size() / 2), holed.end() - 2, 0x55);
  EXPECT_EQ(platform.DecodePicture(holed).Reason(), "The file is incomplete or damaged.");
}

TEST_F(Files, APictureThatTakesTooLongIsGivenUp) {
  const QtPlatform memoryLimit;
  // Written in digits, a line for each pixel: that takes far longer than is waited for below.
  const std::string header = "P2\n10000 10000\n9\n";
  Bytes slow(header.begin(), header.end());
  slow.resize(header.size() + 200'000'000, '\n');
  for (std::size_t i = header.size(); i < slow.size(); i += 2) slow[i] = '1';
  Result<Picture> refused = DecodeForeignPicture(slow, {.time = std::chrono::milliseconds(1)});
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Reason(), "The picture takes too long to decode.");
  ASSERT_TRUE(QTest::qWaitFor([] { return !IsStillDecoding(); }));
  const std::string quick = "P1\n1 1\n1";
  EXPECT_TRUE(DecodeForeignPicture(Bytes(quick.begin(), quick.end())).Ok());
}

}  // namespace
}  // namespace morvane
