#include "shell/ThumbnailCache.h"

#include <sys/stat.h>

#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

bool HasFinished() {
  constexpr int kTimeout = 30'000;  // ms, for the sanitizers
  return QTest::qWaitFor([] { return !ThumbnailCache::AreBeingMade(); }, kTimeout);
}

void WriteText(const char* name, const QByteArray& text) {
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

void MakePicture(const QString& name, const QSize& size, const QColor& color) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(color);
  ASSERT_TRUE(picture.save(name));
}

TEST(Thumbnail, IsReducedOrKeepsSharpPixels) {
  const StartFolder folder;
  const auto read = [&](const char* name, int zoom) {
    return ReadThumbnail(folder.File(name), {16, 120, zoom}, false);
  };
  const auto stripes = [](const QColor& ground) {
    QImage picture(20, 10, QImage::Format_ARGB32);
    picture.fill(ground);
    for (int i = 0; i < 200; i += 3) picture.setPixel(i % 20, i / 20, qRgb(i, 0, 7));
    return picture;
  };
  // Widths of the file, and of both thumbnails in physical pixels.
  const std::vector<std::array<int, 4>> rows = {{10, 2, 20, 20},   {16, 1, 16, 16},
                                                {20, 1, 16, 20},   {20, 2, 32, 40},
                                                {200, 2, 32, 240}, {500, 1, 16, 120}};
  for (const auto& [width, zoom, small, large] : rows) {
    const QSize size(width, width / 2);
    ASSERT_TRUE(QImage(size, QImage::Format_RGB32).save("a.png"));
    const Thumbnail thumbnail = read("a.png", zoom);
    EXPECT_EQ(thumbnail.size, size);
    EXPECT_EQ(thumbnail.small.width(), small) << width << " at " << zoom;
    EXPECT_EQ(thumbnail.large.width(), large) << width << " at " << zoom;
  }
  ASSERT_TRUE(stripes(Qt::transparent).save("a.png"));
  EXPECT_EQ(read("a.png", 2).large,
            stripes(Qt::white).scaled(40, 20).convertToFormat(QImage::Format_RGB32));
  ASSERT_TRUE(QImage(6000, 5000, QImage::Format_Mono).save("large.bmp"));
  ASSERT_EQ(mkfifo("pipe.bmp", 0600), 0);
  for (const char* name : {"large.bmp", "pipe.bmp"}) EXPECT_TRUE(read(name, 1).size.isEmpty());
  EXPECT_TRUE(ReadThumbnail(folder.File("a.png"), {16, 120}, true).size.isEmpty());
}

TEST(Thumbnail, OfASlowPictureIsAbandoned) {
  const StartFolder folder;
  // A text format decodes slowly.
  WriteText("slow.pgm", "P2\n4000 4000\n9\n" + QByteArray("1\n").repeated(16'000'000));
  MakePicture("quick.png", {20, 20}, Qt::red);
  ThumbnailCache thumbnails({16, 120});
  thumbnails.Request({folder.File("slow.pgm")}, 4);
  thumbnails.Request({folder.File("quick.png")}, 4);  // the slow one is no longer visible
  EXPECT_TRUE(HasFinished());
  ASSERT_NE(thumbnails.Of(folder.File("quick.png")), nullptr);
  EXPECT_EQ(thumbnails.Of(folder.File("quick.png"))->large.devicePixelRatio(), 4);
  EXPECT_EQ(thumbnails.Of(folder.File("slow.pgm")), nullptr);
  ThumbnailCache impatient({16, 120}, std::chrono::milliseconds(1));
  impatient.Request({folder.File("slow.pgm")}, 1);
  EXPECT_TRUE(HasFinished());
  ASSERT_NE(impatient.Of(folder.File("slow.pgm")), nullptr);
  EXPECT_TRUE(impatient.Of(folder.File("slow.pgm"))->size.isEmpty());
}

struct CustomFiles : FormFixture {
  QListWidget* list = Find<QListWidget>("File1");

  QPoint PlaceOf(int row) const {
    return list->visualItemRect(list->item(row)).topLeft() + QPoint(11, 9);
  }
  QString ToolTipAt(int row) const {
    const QPoint place = PlaceOf(row);
    QHelpEvent ask(QEvent::ToolTip, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &ask);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }
  QColor PixelAt(int row) const { return Shown(*list->viewport()).pixelColor(PlaceOf(row)); }
  void PressReturn(QWidget* control) {
    window.activateWindow();
    control->setFocus();
    QTest::keyClick(control, Qt::Key_Return);
  }
};

TEST_F(CustomFiles, AreListedWithThumbnailsAndToolTips) {
  const QString longName = QString(200, 'n') + "<b>.bmp";
  MakePicture(longName, {64, 48}, Qt::red);
  ASSERT_TRUE(QDir().mkdir("art"));
  MakePicture("art/a & %2.bmp", {64, 48}, Qt::red);
  for (const char* name : {"tile10.gif", "Tile2.GIF", "notes.txt"}) WriteText(name, "text");
  ASSERT_EQ(mkfifo("art/pipe.gif", 0600), 0);
  auto* sets = Find<QComboBox>("TileSetSelector");
  emit sets->activated(kCustomSet);
  EXPECT_EQ(list->count(), 3);
  EXPECT_EQ(list->item(2)->text(), "tile10.gif");
  EXPECT_TRUE(ToolTipAt(0).contains(longName.toHtmlEscaped())) << "it doesn't fit in the list";
  EXPECT_TRUE(QTest::qWaitFor([this] { return PixelAt(0) == Qt::red; }));
  EXPECT_TRUE(HasFinished());
  EXPECT_EQ(PixelAt(1), Qt::white) << "not a picture";

  auto* folders = Find<QListWidget>("Dir1");
  EXPECT_EQ(folders->currentItem()->toolTip(), QDir::currentPath());
  EXPECT_EQ(folders->currentItem()->data(Qt::AccessibleDescriptionRole), QDir::currentPath());
  folders->setCurrentItem(folders->findItems("art", Qt::MatchContains).last());
  PressReturn(folders);
  EXPECT_EQ(list->count(), 1) << "a pipe isn't listed";
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return ToolTipAt(0).endsWith("a &amp; %2.bmp, 64 x 48</div>"); }));
  list->setCurrentRow(0);
  PressReturn(list);
  EXPECT_EQ(Find<QLabel>("Label5")->text(), "64x48");
  EXPECT_TRUE(Find("Canvas")->hasFocus());
  MakePicture("art/a & %2.bmp", {64, 48}, Qt::blue);
  emit sets->activated(kCustomSet);  // reads the folder again
  EXPECT_TRUE(QTest::qWaitFor([this] { return PixelAt(0) == Qt::blue; }));

  emit Find<QComboBox>("Drive1")->activated(0);
  EXPECT_EQ(palette.Dir1.Path(), "/");
}

}  // namespace
}  // namespace morvane
