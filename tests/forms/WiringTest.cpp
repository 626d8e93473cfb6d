#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QSet>
#include <QTabBar>
#include <QTimer>
#include <set>

#include "palette/PalettePages.h"
#include "platform/NaturalOrder.h"
#include "shell/frmSplash.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Collects the region that a widget repaints.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

  QRegion painted;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

struct Wiring : FormFixture {
  /// The visible entries of a menu with their shortcuts.
  QString Entries(const QMenu& menu) {
    QStringList entries;
    for (const QAction* action : menu.actions()) {
      if (!action->isVisible()) continue;
      const QString shortcut = action->shortcut().toString();
      entries << (action->isSeparator() ? "-" : action->text()) +
                     (shortcut.isEmpty() ? "" : "|" + shortcut);
    }
    return entries.join(", ");
  }
  void Hover(QWidget* widget, QPoint place) {
    form.palette.Shape1.Visible = true;
    QTest::mouseMove(widget, place);
    QCoreApplication::processEvents();
  }
  static QWidget* FocusAfter(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    return QApplication::focusWidget();
  }
};

TEST_F(Wiring, MenusAndToolBar) {
  QStringList menus;
  for (const QAction* action : window.menuBar()->actions()) {
    menus << action->text() + ": " + Entries(*action->menu());
  }
  EXPECT_EQ(menus.join('\n').toStdString(),
            "&File: &New|Ctrl+N, &Open...|Ctrl+O, &Save|Ctrl+S, Save &As...|F12, -, "
            "Print Set&up..., &Print...|Ctrl+P, -, E&xit\n"
            "&Edit: &Undo|Ctrl+Z\n"
            "&View: Status &Bar\n"
            "&Tools: &Options..., Insert &Text...|Ctrl+T\n"
            "&Help: &About ");
  QStringList hidden;
  for (const QAction* action : window.menuBar()->findChildren<QAction*>()) {
    if (!action->isVisible()) hidden << action->objectName();
  }
  EXPECT_EQ(hidden.join(' '),
            "mnuFileClose mnuFileBar1 mnuFilePrintPreview mnuFileMRU-1 mnuFileMRU-2 mnuFileMRU-3 "
            "mnuFileBar5 mnuEditRedo mnuEditBar0 mnuEditCut mnuEditCopy mnuEditPaste "
            "mnuViewToolbar mnuHelpContents mnuHelpSearchForHelpOn mnuHelpBar0");
  QStringList keys;
  for (const QAction* action : Find<QToolBar>("tbToolBar")->actions()) {
    keys << (action->isSeparator() ? "(" + action->objectName() + ")" : action->objectName());
    if (action->isSeparator()) continue;
    EXPECT_EQ(action->toolTip(), action->objectName());
    EXPECT_TRUE(action->isEnabled());
    EXPECT_FALSE(action->icon().pixmap(QSize(16, 16)).isNull());
  }
  EXPECT_EQ(keys.join(' '), "New Open Save () Print () Undo Redo (sep) Cut Copy Paste");
}

TEST_F(Wiring, EachCommandOpensItsDialog) {
  struct Row {
    std::function<void()> run;
    std::string opened;  ///< title of the dialog or message box
  };
  const auto key = [this](Qt::Key letter) {
    return [this, letter] { QTest::keyClick(&window, letter, Qt::ControlModifier); };
  };
  const auto entry = [this](const char* name) { return [this, name] { Choose(name); }; };
  const auto tool = [this](const char* name) { return [this, name] { ClickTool(name); }; };
  const std::vector<Row> rows = {{entry("mnuFileNew"), "New map"},
                                 {entry("mnuFileOpen"), "Open"},
                                 {entry("mnuFileSave"), "Save As"},
                                 {key(Qt::Key_S), "Save As"},
                                 {tool("Save"), "Save As"},
                                 {key(Qt::Key_O), "Open"},
                                 {entry("mnuFilePageSetup"), "Print Setup"},
                                 {entry("mnuFilePrint"), "Printed"},
                                 {key(Qt::Key_P), "Printed"},
                                 {tool("Print"), "Printed"},
                                 {entry("mnuFileExit"), "Save?"},
                                 {entry("mnuToolsOptions"), "Options"},
                                 {entry("mnuHelpAbout"), "About Morvane"},
                                 {tool("Redo"), ""},
                                 {tool("Cut"), ""},
                                 {tool("Copy"), ""},
                                 {tool("Paste"), ""},
                                 {key(Qt::Key_R), ""},
                                 {key(Qt::Key_X), ""},
                                 {key(Qt::Key_C), ""},
                                 {key(Qt::Key_V), ""}};
  const Picture before(form.document.Canvas.Image());
  for (const Row& row : rows) {
    std::string opened;
    QTimer::singleShot(0, &window, [&opened] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      opened = dialog->windowTitle().toStdString();
      dialog->reject();
    });
    platform.answers.push_back(Answer::Cancel);
    window.activateWindow();
    row.run();
    QCoreApplication::processEvents();
    if (!platform.boxes.empty()) opened = platform.boxes.back().title;
    if (!platform.dialogs.empty()) opened = platform.dialogs.back().DialogTitle;
    if (platform.prints > 0) opened = "Printed";
    EXPECT_EQ(opened, row.opened) << "row " << &row - rows.data();
    static_cast<DialogScript&>(platform) = {};
    platform.prints = 0;
  }
  EXPECT_EQ(Difference(Picture(form.document.Canvas.Image()), before), "");
  EXPECT_TRUE(window.isVisible());
}

TEST_F(Wiring, ControlsStandAtTheirDesignedPlaces) {
  ASSERT_EQ(Client()->size(), QSize(787, 537));
  const std::map<const char*, QRect> places = {
      {"tbToolBar", {0, 0, 787, 28}},        {"sbStatusBar", {0, 519, 787, 18}},
      {"Canvas", {168, 32, 619, 487}},       {"WallButton", {8, 42, 28, 27}},
      {"lbMode", {42, 56, 33, 17}},          {"Label2", {86, 56, 118, 17}},
      {"Picture1", {55, 88, 20, 20}},        {"FlipVertical", {8, 88, 28, 27}},
      {"FlipHorizontal", {128, 88, 28, 27}}, {"RotateLeft", {8, 120, 28, 27}},
      {"Rotate", {128, 120, 28, 27}},        {"TileSetSelector", {50, 163, 110, 22}},
      {"TabStrip3", {8, 192, 153, 209}},     {"TabStrip4", {8, 192, 154, 257}},
      {"Frame1-1", {16, 224, 142, 165}},     {"Frame4-3", {16, 224, 145, 217}},
      {"Frame5", {8, 192, 153, 321}}};
  for (const auto& [name, place] : places) EXPECT_EQ(Find(name)->geometry(), place) << name;
  EXPECT_EQ(Find("File1")->geometry(), QRect(8, 120, 137, 188));
  EXPECT_EQ(Client()->childAt(172, 45), Find("Canvas")) << "above the labels that reach under it";
  EXPECT_EQ(Find("Frame1-1")->childAt(24, 5), Find("pbmarking")) << "the later of two tiles";
  const QImage shown = Shown(*Client());
  for (const QPoint& point : {QPoint(160, 32), {161, 80}, {4, 155}, {80, 50}, {120, 100}}) {
    EXPECT_NE(shown.pixel(point), shown.pixel(3, 32)) << "no line";
  }
}

TEST_F(Wiring, EveryItemStandsAtItsCellAndShowsItsPicture) {
  for (const Item& item : Items()) {
    auto* box = Find(TextOf(item.control));
    ASSERT_TRUE(box->toolTip().startsWith(TextOf(item.caption) + ", "));
    ASSERT_EQ(box->pos(), QPoint(item.column * 24, item.row * 24));
    const QSize cells(item.stored.width / 20 * 24 + 1, item.stored.height / 20 * 24 + 1);
    ASSERT_EQ(box->size(), item.control == "pbaltar" ? QSize(49, 51) : cells);
    const PictureView picture = form.palette.pictures.Of(item).View();
    const QImage shown = Shown(*box);
    for (int i = 2; i < 18; ++i) ASSERT_EQ(shown.pixel(i, i), picture.Row(i)[i]) << item.control;
  }
  EXPECT_EQ(Find("pbchest")->toolTip(), "Chest, 1 x 1 cell");
  EXPECT_EQ(Find("ptcrevasse")->toolTip(), "Crevasse, 3 x 1 cells");
  auto* selector = Find<QComboBox>("TileSetSelector");
  QStringList entries;
  for (int i = 0; i < selector->count(); ++i) entries << selector->itemText(i);
  EXPECT_EQ(entries.join(", "),
            "Abandoned Cathedral, Grave Dungeon, TSR Original, Classic Village, Custom");
}

TEST_F(Wiring, ArrowKeysReachEveryItemOfEveryPage) {
  window.activateWindow();
  for (int set = 0; set < kBuiltInSets; ++set) {
    TileSetSelector_Click(form.palette, set);
    for (int page = 1; page <= TileSets()[set].pageCount; ++page) {
      TabStrip_Click(form.palette, set, page);
      window.ShowState();
      Find("Canvas")->setFocus();
      QWidget* item = FocusAfter(Qt::Key_Tab, Qt::ShiftModifier);
      std::set<QWidget*> reached;
      for (; reached.insert(item).second; item = FocusAfter(Qt::Key_Right)) continue;
      EXPECT_EQ(std::ssize(reached), item->parentWidget()->findChildren<QWidget*>().size());
      QWidget* first = FocusAfter(Qt::Key_Home);
      EXPECT_EQ(first->pos(), QPoint());
      const QWidget* below = FocusAfter(Qt::Key_Down);
      EXPECT_GT(below->y(), 0);
      EXPECT_EQ(FocusAfter(Qt::Key_Up)->y(), 0);
      FocusAfter(Qt::Key_End);
      EXPECT_EQ(FocusAfter(Qt::Key_Tab), Find("Canvas"));
    }
  }
}

TEST_F(Wiring, TheOutlineIsHiddenOverTheNamedControlsOnly) {
  TileSetSelector_Click(form.palette, kCustomSet);
  window.ShowState();
  const auto viewport = [this](const char* list) {
    return Find<QAbstractScrollArea>(list)->viewport();
  };
  Hover(viewport("Dir1"), {5, 5});
  EXPECT_TRUE(form.palette.Shape1.Visible);
  const std::vector<std::pair<QWidget*, QPoint>> hiding = {
      {viewport("File1"), {5, 5}},     {Find("Frame5"), {2, 100}},    {Client(), {100, 530}},
      {Find("sbStatusBar"), {300, 5}}, {Find("tbToolBar"), {700, 5}}, {Tool("Undo"), {5, 5}}};
  for (const auto& [widget, place] : hiding) {
    Hover(widget, place);
    EXPECT_FALSE(form.palette.Shape1.Visible) << widget->objectName().toStdString();
  }
  TileSetSelector_Click(form.palette, 0);
  window.ShowState();
  Hover(Find("TabStrip1"), {10, 10});
  EXPECT_FALSE(form.palette.Shape1.Visible);
  for (const char* name : {"pbfloor", "Frame1-1", "Label3", "Picture1", "WallButton"}) {
    Hover(Find(name), Find(name)->rect().bottomRight() - QPoint(2, 2));
    EXPECT_TRUE(form.palette.Shape1.Visible) << name;
  }
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
  const auto pressAt = [canvas](double x, double y) {  // fractional positions, as at 200 %
    QMouseEvent press(QEvent::MouseButtonPress, {x + 2, y + 2},
                      canvas->mapToGlobal(QPointF(x + 2, y + 2)), Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(canvas, &press);
  };
  NewMap();
  const PictureView floor = form.palette.pictures.Of(*FindItem("pbfloor")).View();
  pressAt(98.5, 110);
  EXPECT_EQ(GetPixel(form.document.Canvas.Image(), 80, 100), GetPixel(floor, 0, 0));
  pressAt(219.5, 110);
  EXPECT_EQ(GetPixel(form.document.Canvas.Image(), 220, 100), 0U);
  QCoreApplication::processEvents();
  PaintWatch watch(canvas);
  Press(105, 65);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
  EXPECT_EQ(watch.painted.boundingRect(), QRect(102, 62, 20, 20)) << "only what changed";
}

TEST_F(Wiring, RunningOutOfMemoryIsReportedAndTheWindowStaysUsable) {
  platform.memoryRunsOut = true;
  for (const auto& open : std::vector<std::function<void()>>{
           [this] { Choose("mnuFileOpen"); },
           [this] { QTest::keyClick(Find("Canvas"), Qt::Key_F11); }}) {
    form.document.StatusText.clear();
    open();
    EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "There is not enough memory for this.");
  }
  Press(30, 30);
  EXPECT_TRUE(form.document.mnuEditUndoEnabled);
}

TEST_F(Wiring, ClosingAsksAndACancelKeepsEverything) {
  EXPECT_TRUE(QFile::exists("mvtmp.~mp"));
  platform.answers = {Answer::Cancel, Answer::No};
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(QFile::exists("mvtmp.~mp"));
  window.close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(QFile::exists("mvtmp.~mp"));
  EXPECT_EQ(platform.boxes.size(), 2U);
}

TEST_F(Wiring, PreparingTheWindowChangesNothingVisible) {
  MainForm otherForm{platform, &LoadArtSheet};
  frmMain prepared{otherForm};
  prepared.Prepare();
  EXPECT_FALSE(prepared.isVisible());
  prepared.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&prepared));
  EXPECT_EQ(prepared.grab().toImage(), window.grab().toImage());
}

TEST(Splash, ShowsItsPicture) {
  frmSplash splash;
  splash.ShowAtOnce();
  EXPECT_EQ(splash.size(), QSize(455, 195));
  const QImage shown = Shown(splash);
  QSet<QRgb> colors;
  for (int x = 0; x < shown.width(); ++x) colors << shown.pixel(x, 97);
  EXPECT_GT(colors.size(), 50);
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
