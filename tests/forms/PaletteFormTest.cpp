#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <QToolTip>

#include "document/picture/Blit.h"
#include "palette/TilePictures.h"
#include "platform/PictureDecoding.h"
#include "shell/Thumbnails.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct PaletteForm : FormFixture {
  /// Chooses a set as a user does, by keyboard.
  void ChooseSet(int index) {
    auto* selector = Find<QComboBox>("TileSetSelector");
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(selector, Qt::Key_Down);
  }
  void ChooseTab(const char* strip, int tab) {
    auto* tabs = Find(strip)->findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab - 1).center());
  }
  QStringList VisiblePages() {
    QStringList visible;
    for (const TileSet& set : TileSets()) {
      if (Find(TextOf(set.tabStrip))->isVisible()) visible << TextOf(set.tabStrip);
      for (int page = 1; page <= set.pageCount; ++page) {
        const QString frame = TextOf(set.frame) + "-" + QString::number(page);
        if (Find(frame)->isVisible()) visible << frame;
      }
    }
    if (Find("Frame5")->isVisible()) visible << "Frame5";
    return visible;
  }
};

TEST_F(PaletteForm, SetsAndPagesShowAndHide) {
  auto* selector = Find<QComboBox>("TileSetSelector");
  QStringList entries;
  for (int i = 0; i < selector->count(); ++i) entries << selector->itemText(i);
  EXPECT_EQ(entries, (QStringList{"Abandoned Cathedral", "Grave Dungeon", "TSR Original",
                                  "Classic Village", "Custom"}));
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip1", "Frame1-1"}));
  ChooseTab("TabStrip1", 2);
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip1", "Frame1-2"}));
  ChooseSet(1);
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip3", "Frame3-1"}));
  ChooseSet(2);
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip2", "Frame2-1"}));
  ChooseSet(3);
  ChooseTab("TabStrip4", 3);
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip4", "Frame4-3"}));
  ChooseSet(4);
  EXPECT_EQ(VisiblePages(), (QStringList{"Frame5"}));
  ChooseSet(0);
  EXPECT_EQ(VisiblePages(), (QStringList{"TabStrip1", "Frame1-2"}));
  EXPECT_EQ(Find("TabStrip1")->findChild<QTabBar*>()->currentIndex(), 1);
}

TEST_F(PaletteForm, EveryItemStandsAtItsCell) {
  for (const Item& item : Items()) {
    QWidget* box = Find(TextOf(item.control));
    ASSERT_TRUE(box->toolTip().startsWith(TextOf(item.caption) + ", "));
    ASSERT_EQ(box->pos(), QPoint(item.column * 24, item.row * 24));
    const QSize cells(item.stored.width / 20 * 24 + 1, item.stored.height / 20 * 24 + 1);
    ASSERT_EQ(box->size(), item.control == "pbaltar" ? QSize(49, 51) : cells);
  }
  EXPECT_EQ(Find("pbchest")->toolTip(), "Chest, 1 x 1 cell");
  EXPECT_EQ(Find("ptcrevasse")->toolTip(), "Crevasse, 3 x 1 cells");
  QTest::mouseClick(Find("ptcrevasse"), Qt::LeftButton, {}, {2, 2});
  EXPECT_EQ(Find<QLabel>("Label2")->text(), "Crevasse");
  EXPECT_EQ(Find("Picture1")->size(), QSize(59, 19));
  EXPECT_TRUE(Find("Canvas")->hasFocus());
}

TEST_F(PaletteForm, OfTwoOverlappingBoxesTheLaterLiesAbove) {
  QWidget* page = Find("Frame1-1");
  EXPECT_EQ(page->childAt(24, 5), Find("pbmarking"));
  EXPECT_EQ(page->childAt(5, 24), Find("pb4040"));
}

TEST_F(PaletteForm, ABoxShowsItsPicturePixelForPixel) {
  const Item& chest = *FindItem("pbchest");
  Find("pbchest")->window()->activateWindow();
  const QImage shown = Shown(*Find("pbchest"));
  const PictureView picture = form.palette.pictures.Of(chest).View();
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 20; ++x) ASSERT_EQ(shown.pixel(x, y), picture.Row(y)[x]);
  }
}

TEST_F(PaletteForm, CustomListsTheFolderInNaturalOrderAfreshEachTime) {
  const auto make = [](const QString& name) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  };
  for (const char* name : {"tile10.bmp", "Tile2.GIF", "notes.txt", "tile1.jpg"}) make(name);
  const auto rows = [this] {
    auto* list = Find<QListWidget>("File1");
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    return texts;
  };
  ChooseSet(4);
  EXPECT_EQ(rows(), (QStringList{"tile1.jpg", "Tile2.GIF", "tile10.bmp"}));
  make("a.ico");
  emit Find<QComboBox>("TileSetSelector")->activated(4);  // the entry already chosen
  EXPECT_EQ(rows(), (QStringList{"a.ico", "tile1.jpg", "Tile2.GIF", "tile10.bmp"}));
}

struct CustomFiles : PaletteForm {
  QListWidget* list = Find<QListWidget>("File1");

  QString TipOf(int row) {
    const QPoint place = list->visualItemRect(list->item(row)).topLeft() + QPoint(5, 5);
    QHelpEvent ask(QEvent::ToolTip, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &ask);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }
  /// The pixel in the middle of a row's picture.
  QColor PictureOf(int row) {
    const QRect place = list->visualItemRect(list->item(row));
    return Shown(*list->viewport()).pixelColor(place.left() + 11, place.center().y());
  }
  void Click(int row) {
    const QPoint place = list->visualItemRect(list->item(row)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
  }
};

TEST_F(CustomFiles, ShowTheirPicturesAndTellNamesThatAreCutOff) {
  const QString longName = QString(200, 'n') + "<b>.bmp";
  for (const QString& name : {longName, QString("z.bmp")}) {
    ASSERT_TRUE(QFile(name).open(QIODevice::WriteOnly));
  }
  QImage picture(64, 48, QImage::Format_RGB32);
  picture.fill(Qt::red);
  ASSERT_TRUE(picture.save("a & %2.bmp"));
  std::filesystem::copy_file("a & %2.bmp", "not UTF-8 \xFF.bmp");
  ChooseSet(4);
  EXPECT_TRUE(QTest::qWaitFor([this] { return PictureOf(0) == Qt::red; }));
  EXPECT_TRUE(QTest::qWaitFor([] { return !Thumbnails::AreBeingMade(); }));
  EXPECT_EQ(PictureOf(2), Qt::red);
  EXPECT_EQ(PictureOf(3), Qt::white);
  EXPECT_EQ(TipOf(3), "");
  EXPECT_EQ(TipOf(1), ToolTipOf(longName));
  EXPECT_TRUE(TipOf(0).endsWith("a &amp; %2.bmp, 64 x 48</div>")) << TipOf(0).toStdString();
  EXPECT_TRUE(TipOf(0).contains("width='64' height='48'"));
  auto* status = Find<QLabel>("SimpleText");
  EXPECT_EQ(status->toolTip(), "");
  Click(1);
  EXPECT_EQ(status->toolTip(), ToolTipOf(status->text()));
  // What was changed meanwhile is seen when the set is chosen again.
  picture.fill(Qt::blue);
  ASSERT_TRUE(picture.save("a & %2.bmp"));
  ChooseSet(4);
  EXPECT_TRUE(QTest::qWaitFor([this] { return PictureOf(0) == Qt::blue; }));
}

TEST_F(CustomFiles, AreChosenWhileASlowThumbnailIsBeingMade) {
  // Written in digits, a line for each pixel.
  QFile slow("a.bmp");
  ASSERT_TRUE(slow.open(QIODevice::WriteOnly));
  slow.write("P2\n2000 2000\n9\n" + QByteArray("1\n").repeated(4'000'000));
  slow.close();
  QImage picture(20, 20, QImage::Format_RGB32);
  picture.fill(Qt::red);
  ASSERT_TRUE(picture.save("b.bmp", "PNG"));
  ChooseSet(4);
  EXPECT_TRUE(QTest::qWaitFor([] { return Thumbnails::AreBeingMade(); }));
  Click(1);
  EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "Custom tile selected: b.bmp");
  EXPECT_TRUE(Thumbnails::AreBeingMade());
  EXPECT_TRUE(QTest::qWaitFor([] { return !Thumbnails::AreBeingMade(); }));
}

}  // namespace
}  // namespace morvane
