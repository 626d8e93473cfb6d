#include "platform/Files.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "document/PictureFile.h"
#include "platform/Images.h"
#include "platform/PictureDecoding.h"
#include "tests/support/FormFixture.h"

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
  /// Why a picture can't be decoded; empty if it can.
  Failure Refusal(const Bytes& bytes) {
    const Result<Picture> decoded = platform.DecodePicture(bytes);
    return decoded.Ok() ? "" : decoded.Reason();
  }
};

TEST_F(Files, LinksAreFollowedAndTheModeIsKept) {
  WriteFile("target ü", {});
  std::filesystem::permissions("target ü", std::filesystem::perms(0640));
  std::filesystem::create_directory("sub");
  std::filesystem::create_symlink("sub/link", "link");
  std::filesystem::create_symlink("../target ü", "sub/link");
  EXPECT_EQ(Replace("link"), "");
  EXPECT_EQ(ReadFile("target ü"), content);
  EXPECT_EQ(std::filesystem::status("target ü").permissions(), std::filesystem::perms(0640));
  std::filesystem::create_symlink("loop", "loop");
  EXPECT_EQ(Replace("loop"), std::strerror(ELOOP));
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
  EXPECT_EQ(Replace("huge"), "");
}

TEST_F(Files, OtherFormatsAreDecodedOnWhite) {
  QImage picture(1, 1, QImage::Format_ARGB32);
  picture.fill(QColor(255, 0, 0, 51));  // a fifth red
  ASSERT_TRUE(picture.save("a.png"));
  EXPECT_EQ(MapIn("a.png"), Picture(1, 1, 0xCCCCFF));
  const std::string header = "P6\n30000 30000\n255\n";  // without pixels
  EXPECT_EQ(Refusal(Bytes(header.begin(), header.end())), kTooLarge);
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
      EXPECT_NE(Refusal(cut), "") << percent << " % of " << whole.size();
    }
    Bytes longer = whole;
    longer.insert(longer.end() - 2, 0);  // ignored by both formats
    longer.insert(longer.end(), {0, 0xFF, 0xD8, 0xFF});
    EXPECT_EQ(Refusal(longer), "");
  }
  Bytes holed = ReadFile("a.jpg");
  holed.erase(holed.begin() + holed.size() / 2, holed.end() - 2);
  EXPECT_EQ(Refusal(holed), "The file is incomplete or damaged.");
}

TEST_F(Files, SlowDecodingIsAbandoned) {
  // A text format.
  const auto slow = "P2\n10000 10000\n9\n" + QByteArray("1\n").repeated(100'000'000);
  const DecodingLimits limits{.time = std::chrono::milliseconds(1)};
  EXPECT_EQ(DecodeForeignPicture({slow.begin(), slow.end()}, limits).Reason(),
            "The picture takes too long to decode.");
  EXPECT_TRUE(QTest::qWaitFor([] { return !IsStillDecoding(); }));
}

}  // namespace
}  // namespace morvane
