#include "platform/Files.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

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

  static Bytes Read(const std::string& path) {
    return ReadAll(*OpenRegularFile(path).Value()).Value();
  }
  Failure Replace(const char* name) const {
    MemorySource source(content);
    return ReplaceFile(folder.File(name), source);
  }
  /// Why a picture can't be decoded; empty if it can.
  Failure Refusal(const Bytes& bytes) {
    const Result<Picture> decoded = platform.DecodePicture(bytes);
    return decoded.Ok() ? "" : decoded.Reason();
  }
};

TEST_F(Files, LinksAreFollowedAndTheModeIsKept) {
  std::ofstream("target ü") << "old";
  std::filesystem::permissions("target ü", std::filesystem::perms(0640));
  std::filesystem::create_directory("sub");
  std::filesystem::create_symlink("sub/link", "link");
  std::filesystem::create_symlink("../target ü", "sub/link");
  EXPECT_EQ(Replace("link"), "");
  EXPECT_TRUE(std::filesystem::is_symlink("link"));
  EXPECT_EQ(Read("target ü"), content);
  EXPECT_EQ(std::filesystem::status("target ü").permissions(), std::filesystem::perms(0640));
  std::filesystem::create_symlink("loop", "loop");
  EXPECT_EQ(Replace("loop"), std::strerror(ELOOP));
}

TEST_F(Files, FoldersPipesDevicesAndHugeFilesAreRefused) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  std::filesystem::create_directory("map.bmp");
  std::ofstream("huge").close();
  std::filesystem::resize_file("huge", std::uintmax_t{1} << 40U);
  const std::vector<std::array<const char*, 3>> rows = {
      {"pipe", "This is not a normal file.", "This is not a normal file."},
      {"map.bmp", "This is a folder, not a file.", "This is a folder, not a file."},
      {"gone/a.bmp", "There is no such file.", "The folder doesn't exist."},
      {"huge", "The file is too large.", ""}};
  for (const auto& [name, whyNotRead, whyNotWritten] : rows) {
    EXPECT_EQ(LoadPicture(platform, folder.File(name)).Reason(), whyNotRead) << name;
    EXPECT_EQ(Replace(name), whyNotWritten) << name;
  }
  EXPECT_EQ(LoadPicture(platform, "/dev/zero").Reason(), "This is not a normal file.");
}

TEST_F(Files, OtherFormatsAreDecodedOnWhite) {
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixelColor(0, 0, Qt::red);
  picture.setPixelColor(1, 0, Qt::transparent);
  ASSERT_TRUE(picture.save("a.png"));
  const Picture decoded = platform.DecodePicture(Read("a.png")).Value();
  EXPECT_EQ(GetPixel(decoded.View(), 0, 0), 0x0000FFU);
  EXPECT_EQ(GetPixel(decoded.View(), 1, 0), kWhite);
  EXPECT_TRUE(Refusal({'n', 'o'}).starts_with("This is not a picture"));
  const std::string header = "P6\n30000 30000\n255\n";  // without pixels
  EXPECT_EQ(Refusal(Bytes(header.begin(), header.end())), kTooLarge);
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
      const Bytes cut(whole.begin(), whole.begin() + whole.size() * percent / 100);
      EXPECT_NE(Refusal(cut), "") << percent << " % of " << whole.size();
    }
    Bytes longer = whole;
    longer.insert(longer.end() - 2, 0);  // ignored by both formats
    longer.insert(longer.end(), {0, 0xFF, 0xD8, 0xFF});
    EXPECT_EQ(Refusal(longer), "");
  }
  Bytes holed = Read("a.jpg");
  std::fill(holed.begin() + holed.size() / 2, holed.end() - 2, 0x55);
  EXPECT_EQ(Refusal(holed), "The file is incomplete or damaged.");
}

TEST_F(Files, SlowDecodingIsAbandoned) {
  const std::string header = "P2\n10000 10000\n9\n";  // a text format
  Bytes slow(200'000'000, '\n');
  for (std::size_t i = 0; i < slow.size(); i += 2) slow[i] = '1';
  std::copy(header.begin(), header.end(), slow.begin());
  EXPECT_EQ(DecodeForeignPicture(slow, {.time = std::chrono::milliseconds(1)}).Reason(),
            "The picture takes too long to decode.");
  EXPECT_TRUE(QTest::qWaitFor([] { return !IsStillDecoding(); }));
}

}  // namespace
}  // namespace morvane
