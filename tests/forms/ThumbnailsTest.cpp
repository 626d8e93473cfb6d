#include "shell/Thumbnails.h"

#include <sys/stat.h>

#include <QImage>
#include <filesystem>

#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct ThumbnailFiles : testing::Test {
  StartFolder folder;
  Thumbnails thumbnails;

  ~ThumbnailFiles() override {
    EXPECT_TRUE(Waited([] { return !Thumbnails::AreBeingMade(); }));
  }

  static bool Waited(const std::function<bool()>& condition) {
    constexpr int kLong = 30'000;  // ms, for the sanitizers
    return QTest::qWaitFor(condition, kLong);
  }
  std::string MakePicture(const char* name, int side) const {
    QImage picture(side, side, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(name));
    return folder.File(name);
  }
  /// A picture written in digits, a line for each pixel, so that decoding takes long.
  std::string MakeSlowPicture(const char* name) const {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("P2\n4000 4000\n9\n" + QByteArray("1\n").repeated(16'000'000));
    return folder.File(name);
  }
  bool IsMade(const std::string& path, int zoom) const {
    const Thumbnail* made = thumbnails.Of(path);
    return made != nullptr && made->large.devicePixelRatio() == zoom;
  }
};

TEST_F(ThumbnailFiles, AreReducedOrKeepSharpPixels) {
  const std::atomic<bool> isGivenUp = false;
  QImage picture(20, 10, QImage::Format_ARGB32);
  for (int x = 0; x < 20; ++x) {
    for (int y = 0; y < 10; ++y) picture.setPixel(x, y, x == 0 ? 0 : qRgb(x * 9, y * 20, 7));
  }
  struct Row {
    int width, zoom, small, large;  // in pixels of the display
  };
  for (const Row& row : {Row{10, 2, 20, 20}, Row{20, 1, 16, 20}, Row{20, 2, 32, 40},
                         Row{200, 2, 32, 240}, Row{500, 1, 16, 120}, Row{500, 2, 32, 240}}) {
    const QSize size(row.width, row.width / 2);
    ASSERT_TRUE(picture.scaled(size).save("a.png"));
    const Thumbnail thumbnail = ReadThumbnail(folder.File("a.png"), row.zoom, isGivenUp);
    EXPECT_EQ(thumbnail.size, size);
    EXPECT_EQ(thumbnail.small.width(), row.small) << row.width << " at " << row.zoom;
    EXPECT_EQ(thumbnail.large.width(), row.large) << row.width << " at " << row.zoom;
  }
  ASSERT_TRUE(picture.save("a.png"));
  const QImage twice = ReadThumbnail(folder.File("a.png"), 2, isGivenUp).large;
  for (int x = 0; x < 40; ++x) {
    for (int y = 0; y < 20; ++y) {
      ASSERT_EQ(twice.pixel(x, y), x < 2 ? qRgb(255, 255, 255) : picture.pixel(x / 2, y / 2));
    }
  }
  ASSERT_TRUE(picture.scaled(1000, 500).save("b.jpg"));
  QFile file("b.jpg");
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  QByteArray onItsSide = file.readAll();
  onItsSide.insert(2, QByteArray::fromHex("ffe10022457869660000"
                                          "4d4d002a00000008"
                                          "0001011200030000000100060000"
                                          "00000000"));
  ASSERT_TRUE(file.seek(0) && file.write(onItsSide) == onItsSide.size());
  file.close();
  const Thumbnail upright = ReadThumbnail(folder.File("b.jpg"), 1, isGivenUp);
  EXPECT_EQ(upright.size, QSize(500, 1000));
  EXPECT_EQ(upright.large.size(), QSize(60, 120));
  EXPECT_TRUE(ReadThumbnail(folder.File("b.jpg"), 1, true).size.isEmpty());
  ASSERT_TRUE(QImage(6000, 5000, QImage::Format_Mono).save("large.bmp"));
  ASSERT_TRUE(QImage(6000, 5000, QImage::Format_Mono).save("large.png"));
  for (const char* large : {"large.bmp", "large.png"}) {
    EXPECT_TRUE(ReadThumbnail(folder.File(large), 1, isGivenUp).size.isEmpty()) << large;
  }
  ASSERT_EQ(mkfifo("pipe.bmp", 0600), 0);
  EXPECT_TRUE(ReadThumbnail(folder.File("pipe.bmp"), 1, isGivenUp).size.isEmpty());
}

TEST_F(ThumbnailFiles, OfAWholeListStayInTheCacheAtEachZoom) {
  constexpr int kRows = 14;
  std::deque<std::string> paths = {MakePicture("0.jpg", 800)};
  for (int row = 1; row < kRows; ++row) {
    paths.push_back(folder.File((std::to_string(row) + ".jpg").c_str()));
    std::filesystem::create_hard_link(paths.front(), paths.back());
  }
  for (const int zoom : {1, 4, 2}) {
    thumbnails.Want(paths, zoom);
    EXPECT_TRUE(Waited([] { return !Thumbnails::AreBeingMade(); }));
    for (const std::string& path : paths) EXPECT_TRUE(IsMade(path, zoom)) << path << " at " << zoom;
  }
  thumbnails.Clear();
  EXPECT_EQ(thumbnails.Of(paths.front()), nullptr);
}

TEST_F(ThumbnailFiles, OfSlowPicturesAreAbandoned) {
  const std::string slow = MakeSlowPicture("slow.pgm");
  const std::string quick = MakePicture("quick.png", 20);
  thumbnails.Want({slow}, 1);
  // Scrolled out of view.
  thumbnails.Want({quick}, 1);
  EXPECT_TRUE(Waited([] { return !Thumbnails::AreBeingMade(); }));
  EXPECT_TRUE(IsMade(quick, 1));
  EXPECT_EQ(thumbnails.Of(slow), nullptr);
  Thumbnails impatient(std::chrono::milliseconds(1));
  impatient.Want({slow, slow, slow}, 1);
  EXPECT_TRUE(Waited([] { return !Thumbnails::AreBeingMade(); }));
  ASSERT_NE(impatient.Of(slow), nullptr);
  EXPECT_TRUE(impatient.Of(slow)->size.isEmpty());
}

}  // namespace
}  // namespace morvane
