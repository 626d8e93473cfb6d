#include "shell/ThumbnailCache.h"

#include <sys/stat.h>

#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

bool HasFinished() {
  // The sanitizers need up to 30 seconds.
  return QTest::qWaitFor([] { return !ThumbnailCache::AreBeingMade(); }, 30'000);
}

void MakePicture(const std::string& name, Color color) {
  WriteFile(name, WriteBmp(Picture(64, 48, color).View()));
}

TEST(Thumbnail, IsReducedSharpOrRefused) {
  const StartFolder folder;
  // Widths of the file, and of both thumbnails in physical pixels.
  const std::vector<std::array<int, 4>> rows = {{10, 2, 20, 20},   {16, 1, 16, 16},
                                                {20, 1, 16, 20},   {20, 2, 32, 40},
                                                {200, 2, 32, 240}, {500, 1, 16, 120}};
  for (const auto& [width, zoom, small, large] : rows) {
    const QSize size(width, width / 2);
    ASSERT_TRUE(QImage(size, QImage::Format_RGB32).save("a.png"));
    const Thumbnail thumbnail = ReadThumbnail("a.png", {16, 120, zoom}, false);
    EXPECT_EQ(thumbnail.size, size);
    const std::pair widths(thumbnail.small.width(), thumbnail.large.width());
    EXPECT_EQ(widths, std::pair(small, large)) << width << " at " << zoom;
  }
  QImage dot(20, 10, QImage::Format_ARGB32);
  dot.fill(Qt::transparent);
  dot.setPixelColor(3, 5, Qt::red);
  ASSERT_TRUE(dot.save("a.png"));
  const QImage sharp = ReadThumbnail("a.png", {16, 120, 2}, false).large;
  EXPECT_EQ(sharp.pixelColor(7, 11), Qt::red);
  EXPECT_EQ(sharp.pixelColor(8, 12), Qt::white);
  ASSERT_TRUE(QImage(6000, 5000, QImage::Format_Mono).save("large.bmp"));
  ASSERT_EQ(mkfifo("pipe.bmp", 0600), 0);
  for (const auto& [name, isCanceled] :
       {std::pair("large.bmp", false), {"pipe.bmp", false}, {"a.png", true}}) {
    EXPECT_TRUE(ReadThumbnail(name, {16, 120}, isCanceled).size.isEmpty()) << name;
  }
}

TEST(Thumbnail, OfASlowPictureIsAbandoned) {
  const StartFolder folder;
  const std::string slow = folder.File("slow.pgm");
  const std::string quick = folder.File("quick.bmp");
  WriteFile(slow, SlowPicture());
  MakePicture(quick, kWhite);
  ThumbnailCache thumbnails({16, 120});
  thumbnails.Request({slow}, 4);
  thumbnails.Request({quick}, 4);  // the slow one is no longer visible
  EXPECT_TRUE(HasFinished());
  ASSERT_NE(thumbnails.Of(quick), nullptr);
  EXPECT_EQ(thumbnails.Of(quick)->large.devicePixelRatio(), 4);
  EXPECT_EQ(thumbnails.Of(slow), nullptr);
  thumbnails.Request({}, 2);
  EXPECT_EQ(thumbnails.Of(quick), nullptr) << "too large for the other scale";
  ThumbnailCache impatient({16, 120}, std::chrono::milliseconds(1));
  impatient.Request({slow}, 1);
  EXPECT_TRUE(HasFinished());
  EXPECT_TRUE(impatient.Of(slow) != nullptr && impatient.Of(slow)->size.isEmpty());
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
    return QToolTip::text();
  }
  bool HasPixel(int row, const QColor& color) const {
    return QTest::qWaitFor(
        [&] { return Shown(*list->viewport()).pixelColor(PlaceOf(row)) == color; });
  }
  void PressReturn(QListWidget* control, int row) {
    window.activateWindow();
    control->setFocus();
    control->setCurrentRow(row);
    QTest::keyClick(control, Qt::Key_Return);
  }
};

TEST_F(CustomFiles, AreListedWithThumbnailsAndToolTips) {
  const std::string longName = std::string(200, 'n') + "<b>.bmp";
  MakePicture(longName, 0x0000FF);
  std::filesystem::create_directory("art");
  MakePicture("art/a & %2.bmp", 0x0000FF);
  MakePicture("Tile2.GIF", 0x00FF00);
  for (const char* name : {"tile10.gif", "notes.txt"}) WriteFile(name, {'n', 'o'});
  ASSERT_EQ(mkfifo("art/pipe.gif", 0600), 0);
  auto* sets = Find<QComboBox>("TileSetSelector");
  auto* drive = Find<QComboBox>("Drive1");
  platform.drives.push_back(folder.File(""));
  emit sets->activated(kCustomSet);
  EXPECT_EQ(list->item(2)->text(), "tile10.gif");
  EXPECT_EQ(drive->currentText().toStdString(), folder.File(""));
  EXPECT_TRUE(ToolTipAt(0).contains("n&lt;b&gt;.bmp")) << "it doesn't fit in the list";
  EXPECT_TRUE(HasPixel(0, Qt::red));
  EXPECT_TRUE(HasPixel(1, Qt::green));

  auto* folders = Find<QListWidget>("Dir1");
  EXPECT_EQ(folders->currentItem()->toolTip(), QDir::currentPath());
  EXPECT_EQ(folders->currentItem()->data(Qt::AccessibleDescriptionRole), QDir::currentPath());
  PressReturn(folders, folders->count() - 1);
  EXPECT_EQ(list->count(), 1) << "a pipe isn't listed";
  EXPECT_EQ(folders->count(), std::ssize(palette.Dir1.Rows()));
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return ToolTipAt(0).endsWith("a &amp; %2.bmp, 64 x 48</div>"); }));
  PressReturn(list, 0);
  EXPECT_EQ(Find<QLabel>("Label5")->text(), "64x48");
  EXPECT_TRUE(Find("Canvas")->hasFocus());
  MakePicture("art/a & %2.bmp", 0xFF0000);
  emit sets->activated(kCustomSet);  // reads the folder again
  EXPECT_TRUE(HasPixel(0, Qt::blue));

  emit folders->itemDoubleClicked(folders->item(1));
  EXPECT_EQ(palette.Dir1.Path(), QDir::currentPath().section('/', 0, 1).toStdString());
  emit drive->activated(0);
  EXPECT_EQ(drive->accessibleDescription(), "/");
  emit drive->activated(1);
  EXPECT_EQ(palette.Dir1.Path(), folder.File(""));
  EXPECT_TRUE(HasFinished());
}

}  // namespace
}  // namespace morvane
