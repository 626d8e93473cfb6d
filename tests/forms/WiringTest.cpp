#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTimer>

#include "palette/PalettePages.h"
#include "platform/NaturalOrder.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Collects the region that a widget repaints.
struct PaintWatch : QObject {
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  QRegion painted;
};

struct Wiring : FormFixture {
  /// Chooses a menu entry, presses keys on the map, or clicks a button of the tool bar.
  void Do(const QString& command) {
    window.activateWindow();
    if (command.startsWith("mnu")) return Choose(qPrintable(command));
    const bool isKey = command.contains('+') || command.startsWith("F1");
    if (!isKey) return ClickTool(qPrintable(command));
    QTest::keySequence(Find("Canvas"), QKeySequence(command));
  }
  /// Expects controls as in "name left top width height", and "12b" for a bold font of 12 pixels.
  static void ExpectPlaces(const QWidget& form, const QSize& size, const QString& controls) {
    EXPECT_EQ(form.size(), size);
    for (const QString& expected : controls.split(", ")) {
      const auto* control = form.findChild<QWidget*>(expected.section(' ', 0, 0));
      ASSERT_NE(control, nullptr) << expected.toStdString();
      const QRect place = control->geometry();
      const QFont font = control->font();
      QString found = control->objectName() + QString(" %1 %2").arg(place.x()).arg(place.y()) +
                      QString(" %1 %2").arg(place.width()).arg(place.height());
      if (font.pixelSize() > 0) found += QString(" %1").arg(font.pixelSize());
      if (font.bold()) found += 'b';
      EXPECT_EQ(found.toStdString(), expected.toStdString());
    }
  }
  /// Expects lines on the ground of a form, and nothing else.
  static void ExpectLines(QWidget& form, const std::vector<QRect>& lines) {
    QPixmap ground(form.size());
    form.render(&ground, {}, {}, QWidget::DrawWindowBackground);
    const QColor color = ground.toImage().pixelColor(1, 1);
    QRegion designed;
    for (const QRect& line : lines) designed += line;
    const QRegion wrong = designed.xored(ground.createMaskFromColor(color));
    EXPECT_TRUE(wrong.isEmpty()) << wrong.boundingRect().x() << ", " << wrong.boundingRect().y();
  }
};

TEST_F(Wiring, MenusAndToolBar) {
  QStringList menus;
  for (const QAction* menu : window.menuBar()->actions()) {
    QStringList entries;
    for (const QAction* action : menu->menu()->actions()) {
      if (!action->isVisible()) continue;
      const QString shortcut = action->shortcut().toString();
      entries << action->text() + (shortcut.isEmpty() ? "" : "|" + shortcut);
    }
    menus << menu->text() + ": " + entries.join(", ");
  }
  EXPECT_EQ(menus.join('\n').toStdString(),
            "&File: &New|Ctrl+N, &Open...|Ctrl+O, &Save|Ctrl+S, Save &As...|F12, , "
            "Print Set&up..., &Print...|Ctrl+P, , E&xit\n"
            "&Edit: &Undo|Ctrl+Z\n"
            "&View: Status &Bar\n"
            "&Tools: &Options..., Insert &Text...|Ctrl+T\n"
            "&Help: &About ");
  QStringList tips;
  for (const QAction* action : Find<QToolBar>("tbToolBar")->actions()) {
    tips << (action->isSeparator() ? "-" : action->toolTip());
  }
  for (const char* name :
       {"WallButton", "FlipVertical", "FlipHorizontal", "RotateLeft", "Rotate"}) {
    tips << Find(name)->toolTip();
  }
  EXPECT_EQ(tips.join(", ").toStdString(),
            "New, Open, Save, -, Print, -, Undo, Redo, -, Cut, Copy, Paste, Mode, Flip Vertical, "
            "Flip Horizontal, Rotate Left, Rotate Right");
  form.document.StatusText = std::string(300, 'w');  // too long for the status bar
  window.ShowState();
  EXPECT_EQ(Find("SimpleText")->toolTip(), QString(300, 'w'));
}

TEST_F(Wiring, EachCommandOpensItsDialogAndTheExitAsks) {
  const std::map<std::string, QString> rows = {
      {"New map", "mnuFileNew New Ctrl+N"},
      {"Open", "mnuFileOpen Open Ctrl+O F11"},
      {"Save As", "mnuFileSave Save Ctrl+S mnuFileSaveAs F12"},
      {"Print Setup", "mnuFilePageSetup"},
      {"Printed", "mnuFilePrint Print Ctrl+P"},
      {"Save?", "mnuFileExit"},
      {"Options", "mnuToolsOptions"},
      {"About Morvane", "mnuHelpAbout"},
      {"", "Redo Cut Copy Paste Ctrl+R Ctrl+X Ctrl+C Ctrl+V"}};
  for (const auto& [opened, commands] : rows) {
    for (const QString& command : commands.split(' ')) {
      std::string title;
      QTimer::singleShot(0, &window, [&title] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        title = dialog->windowTitle().toStdString();
        dialog->reject();
      });
      platform.answers = {Answer::Cancel};
      Do(command);
      QCoreApplication::processEvents();
      if (!platform.boxes.empty()) title = platform.boxes.back().title;
      if (!platform.dialogs.empty()) title = platform.dialogs.back().DialogTitle;
      if (std::exchange(platform.prints, 0) > 0) title = "Printed";
      EXPECT_EQ(title, opened) << command.toStdString();
      static_cast<DialogScript&>(platform) = {};
    }
  }
  platform.memoryRunsOut = true;
  for (const char* command : {"Open", "F11"}) {
    form.document.StatusText.clear();
    Do(command);
    EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "There is not enough memory for this.");
  }
  EXPECT_TRUE(window.isVisible() && QFile::exists("mvtmp.~mp"));
  platform.answers = {Answer::No};
  window.close();
  EXPECT_FALSE(window.isVisible() || QFile::exists("mvtmp.~mp"));
}

TEST_F(Wiring, ControlsStandAtTheirDesignedPlaces) {
  ExpectPlaces(
      *Client(), {787, 537},
      "tbToolBar 0 0 787 28, sbStatusBar 0 519 787 18 11, Canvas 168 32 619 487, "
      "WallButton 8 42 28 27, Label4 42 40 41 17 12b, lbMode 42 56 33 17 11, "
      "Label1 86 40 89 17 12b, Label2 86 56 118 17 11, Picture1 55 88 20 20, "
      "FlipVertical 8 88 28 27, FlipHorizontal 128 88 28 27, RotateLeft 8 120 28 27, "
      "Rotate 128 120 28 27, Label3 8 165 49 17 12b, TileSetSelector 50 163 110 22 11, "
      "TabStrip1 8 192 154 209, TabStrip2 8 192 154 209, TabStrip3 8 192 153 209, "
      "TabStrip4 8 192 154 257, Frame1-1 16 224 142 165, Frame1-2 16 224 145 169, "
      "Frame1-3 16 224 145 169, Frame2-1 16 224 142 161, Frame3-1 16 224 142 169, "
      "Frame3-2 16 224 142 169, Frame3-3 16 224 142 169, Frame4-1 16 224 145 217, "
      "Frame4-2 16 224 145 217, Frame4-3 16 224 145 217, Frame5 8 192 153 321 11, "
      "Drive1 8 16 73 21 11, Label5 88 20 57 17 11, Dir1 8 40 137 81 11, File1 8 120 137 188 11");
  ExpectLines(*Client(), {{4, 32, 157, 1},
                          {4, 80, 158, 1},
                          {4, 155, 157, 1},
                          {80, 32, 1, 49},
                          {120, 80, 1, 76},
                          {48, 80, 1, 76}});
  EXPECT_EQ(Client()->childAt(172, 45), Find("Canvas")) << "above the labels that reach under it";
  EXPECT_EQ(Find("Frame1-1")->childAt(24, 5), Find("pbmarking")) << "the later of two tiles";
  ExpectPlaces(frmOptions(form.document, &window), {409, 230},
               "Frame1 8 8 393 81 11, Label1 8 24 113 17 11, TextMapDir 96 24 265 19 11, "
               "ButtonMapDir 368 24 17 17 11, Label2 8 48 129 17 11, "
               "TextCustomDir 96 48 265 19 11, ButtonCustomDir 368 48 17 17 11, "
               "Frame2 8 96 393 97 11, Label3 8 32 105 17 11, ColorBox 104 24 25 25 11, "
               "PaletteButton 136 24 73 25 11, Label4 8 64 73 17 11, GridColorBox 104 56 25 25 11, "
               "GridPaletteButton 136 56 73 25 11, Label5 224 64 49 17 11, "
               "GridCheck 272 64 17 17 11, cmdOK 246 201 73 25 11, cmdCancel 328 201 73 25 11");
  frmAbout about(platform, &window);
  ExpectPlaces(about, {391, 230},
               "picIcon 2 1 383 154, Picture1 343 114 20 20, lblDisclaimer 12 168 279 55 11, "
               "cmdOK 299 200 82 23 11");
  ExpectLines(about, {{15, 162, 363, 1}});
  ExpectPlaces(frmText("", &window), {312, 110},
               "RichTextBox1 0 0 313 73, cmdOK 240 80 65 25 11, cmdFont 168 80 65 25 11");
}

TEST_F(Wiring, EveryItemStandsAtItsCellAndShowsItsPicture) {
  for (const Item& item : Items()) {
    auto* box = Find(TextOf(item.control));
    ASSERT_TRUE(box->toolTip().startsWith(TextOf(item.caption) + ", "));
    ASSERT_EQ(box->accessibleName(), TextOf(item.caption));
    ASSERT_EQ(box->pos(), QPoint(item.column * 24, item.row * 24));
    const QSize cells(item.stored.width / 20 * 24 + 1, item.stored.height / 20 * 24 + 1);
    ASSERT_EQ(box->size(), item.control == "pbaltar" ? QSize(49, 51) : cells);
    const PictureView picture = form.palette.pictures.Of(item).View();
    const QImage shown = Shown(*box);
    for (int i = 2; i < 18; ++i) ASSERT_EQ(shown.pixel(i, i), picture.Row(i)[i]) << item.control;
  }
  EXPECT_EQ(Find("pbchest")->toolTip(), "Chest, 1 x 1 cell");
  EXPECT_EQ(Find("ptcrevasse")->toolTip(), "Crevasse, 3 x 1 cells");
  QString sets;
  for (int i = 0; i <= kBuiltInSets; ++i)
    sets += Find<QComboBox>("TileSetSelector")->itemText(i) + ',';
  EXPECT_EQ(sets, "Abandoned Cathedral,Grave Dungeon,TSR Original,Classic Village,Custom,");
}

TEST_F(Wiring, TheOutlineIsHiddenOverTheNamedControlsOnly) {
  const auto expect = [this](bool stays, QWidget* widget, const QPoint& place) {
    form.palette.Shape1.Visible = true;
    QTest::mouseMove(widget, place);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.palette.Shape1.Visible, stays) << widget->objectName().toStdString();
  };
  const auto viewport = [this](const char* list) {
    return Find<QAbstractScrollArea>(list)->viewport();
  };
  const QImage plain = Shown(*Find("pbmarking"));
  expect(true, Find("pbmarking"), {10, 10});
  EXPECT_NE(Shown(*Find("pbmarking")), plain) << "the frame of the tile under the pointer";
  for (const char* name : {"pbfloor", "Frame1-1", "Label3", "Picture1", "WallButton"}) {
    expect(true, Find(name), Find(name)->rect().bottomRight() - QPoint(2, 2));
  }
  expect(false, Find("TabStrip1"), {10, 10});
  expect(false, Client(), {4, 400});
  expect(false, Find("sbStatusBar"), {300, 5});
  expect(false, Find("tbToolBar"), {700, 5});
  expect(false, Tool("Undo"), {5, 5});
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  expect(true, viewport("Dir1"), {5, 5});
  expect(false, viewport("File1"), {5, 5});
  expect(false, Find("Frame5"), {2, 100});
}

TEST_F(Wiring, TheMapTakesPressesInsideItsBorderAndDragsFromThere) {
  QWidget* canvas = Find("Canvas");
  QTest::mouseClick(canvas, Qt::LeftButton, {}, {1, 30});
  QTest::mouseClick(canvas, Qt::LeftButton, {}, {617, 30});
  EXPECT_FALSE(form.document.mnuEditUndoEnabled);
  QTest::mousePress(canvas, Qt::LeftButton, {}, {52, 52});
  QTest::mousePress(canvas, Qt::RightButton, {}, {-10, 600});  // while the left one is held
  QTest::mouseRelease(canvas, Qt::LeftButton, {}, {52, 52});
  EXPECT_TRUE(form.document.mnuEditUndoEnabled);
  NewMap();
  for (const double x : {98.5, 219.5}) {  // fractional positions, as at 200 %
    QMouseEvent press(QEvent::MouseButtonPress, {x + 2, 112}, {}, Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(canvas, &press);
  }
  const PictureView map = form.document.Canvas.Image();
  const PictureView floor = form.palette.pictures.Of(*FindItem("pbfloor")).View();
  EXPECT_EQ(GetPixel(map, 80, 100), GetPixel(floor, 0, 0));
  EXPECT_EQ(GetPixel(map, 220, 100), 0U);
  QCoreApplication::processEvents();
  PaintWatch watch(canvas);
  Press(105, 65);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
  EXPECT_EQ(watch.painted.boundingRect(), QRect(102, 62, 20, 20)) << "only what changed";
}

TEST(NaturalOrder, NumbersCountAsNumbersAndCaseDoesNot) {
  const std::vector<std::string> expected = {
      "a9",          "eben",   "Ébène", "Tile",   "tile 1.bmp", "Tile 2.bmp", "tile 007.bmp",
      "tile 10.bmp", "tile a", "tiles", "wall-1", "Wall2",      "漢"};
  std::vector<std::string> names(expected.rbegin(), expected.rend());
  SortNaturally(names);
  EXPECT_EQ(names, expected);
}

}  // namespace
}  // namespace morvane
