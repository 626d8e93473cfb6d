#include "platform/Files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QImage>
#include <QImageWriter>
#include <cerrno>
#include <cstring>

#include "document/PictureFile.h"
#include "platform/PictureDecoding.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct Files : testing::Test {
  StartFolder folder;
  QtPlatform platform;
  const Bytes content = {1, 2, 3, 4};

  Bytes Read(const char* name) {
    Result<std::unique_ptr<ByteSource>> file = OpenRegularFile(folder.File(name));
    EXPECT_TRUE(file.Ok()) << name << ": " << file.Reason();
    return file.Ok() ? ReadAll(*file.Value()).Value() : Bytes();
  }
  Failure Replace(const std::string& path) {
    MemorySource source(content);
    return ReplaceFile(path, source);
  }
};

TEST_F(Files, LinksAreFollowedAndTheModeIsKept) {
  ASSERT_EQ(Replace(folder.File("target ü")), "");
  ASSERT_EQ(chmod("target ü", 0640), 0);
  ASSERT_EQ(truncate("target ü", 1), 0);
  ASSERT_TRUE(QDir().mkdir("sub"));
  ASSERT_TRUE(QFile::link("sub/link", "link"));
  ASSERT_TRUE(QFile::link("../target ü", "sub/link"));
  EXPECT_EQ(Replace(folder.File("link")), "");
  EXPECT_TRUE(QFileInfo("link").isSymLink());
  EXPECT_EQ(Read("target ü"), content);
  struct stat status {};
  ASSERT_EQ(stat("target ü", &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
  ASSERT_TRUE(QFile::link("loop", "loop"));
  EXPECT_EQ(Replace(folder.File("loop")), std::strerror(ELOOP));
}

TEST_F(Files, FoldersPipesDevicesAndHugeFilesAreRefused) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  ASSERT_TRUE(QDir().mkdir("map.bmp"));
  ASSERT_TRUE(QFile("huge").open(QIODevice::WriteOnly));
  ASSERT_EQ(truncate("huge", off_t{1} << 40U), 0);
  const std::vector<std::pair<std::string, std::string>> rows = {
      {folder.File("pipe"), "This is not a normal file."},
      {folder.File("map.bmp"), "This is a folder, not a file."},
      {folder.File("missing"), "There is no such file."},
      {folder.File("huge"), "The file is too large."},
      {"/dev/zero", "This is not a normal file."}};
  for (const auto& [path, reason] : rows) {
    EXPECT_EQ(LoadPicture(platform, path).Reason(), reason) << path;
  }
  EXPECT_EQ(Replace(folder.File("map.bmp")), "This is a folder, not a file.");
  EXPECT_EQ(Replace(folder.File("pipe")), "This is not a normal file.");
  EXPECT_EQ(Replace(folder.File("gone/a.bmp")), "The folder doesn't exist.");
  EXPECT_NE(Replace("/proc/a.bmp"), "");
}

TEST_F(Files, OtherFormatsAreDecodedOnWhite) {
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixelColor(0, 0, QColor(255, 0, 0, 255));
  picture.setPixelColor(1, 0, QColor(0, 0, 0, 0));
  ASSERT_TRUE(picture.save("a.png"));
  const Picture decoded = platform.DecodePicture(Read("a.png")).Value();
  EXPECT_EQ(GetPixel(decoded.View(), 0, 0), 0x0000FFU);
  EXPECT_EQ(GetPixel(decoded.View(), 1, 0), kWhite);
  EXPECT_TRUE(platform.DecodePicture({'n', 'o'}).Reason().starts_with("This is not a picture"));
  const std::string header = "P6\n30000 30000\n255\n";  // without pixels
  EXPECT_EQ(platform.DecodePicture(Bytes(header.begin(), header.end())).Reason(), kTooLarge);
}

TEST_F(Files, IncompleteJpegsAndGifsAreRefused) {
  QImage picture(150, 100, QImage::Format_RGB32);
  for (int i = 0; i < 15'000; ++i) picture.setPixel(i % 150, i / 150, qRgb(i * 31, i * 7, i / 50));
  for (const bool progressive : {false, true}) {
    QImageWriter writer(progressive ? "b.jpg" : "a.jpg");
    writer.setProgressiveScanWrite(progressive);
    ASSERT_TRUE(writer.write(picture));
  }
  // The frame covers one of the two pixels.
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
    EXPECT_TRUE(platform.DecodePicture(longer).Ok());
  }
  Bytes holed = Read("a.jpg");
  std::fill(holed.begin() + static_cast<long>(holed.size() / 2), holed.end() - 2, 0x55);
  EXPECT_EQ(platform.DecodePicture(holed).Reason(), "The file is incomplete or damaged.");
}

TEST_F(Files, SlowDecodingIsAbandoned) {
  const std::string header = "P2\n10000 10000\n9\n";  // a text format
  Bytes slow(header.begin(), header.end());
  slow.resize(header.size() + 200'000'000, '\n');
  for (std::size_t i = header.size(); i < slow.size(); i += 2) slow[i] = '1';
  EXPECT_EQ(DecodeForeignPicture(slow, {.time = std::chrono::milliseconds(1)}).Reason(),
            "The picture takes too long to decode.");
  EXPECT_TRUE(QTest::qWaitFor([] { return !IsStillDecoding(); }));
}

}  // namespace
}  // namespace morvane
