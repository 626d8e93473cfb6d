#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "document/picture/Blit.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct Commands : FormFixture {
  /// The entries of a menu that a user sees, with their shortcuts.
  QStringList Visible(const char* menuName) {
    QStringList entries;
    for (QAction* action : Find<QMenu>(menuName)->actions()) {
      if (!action->isVisible()) continue;
      const QString shortcut = action->shortcut().toString();
      entries << (action->isSeparator() ? "-" : action->text()) +
                     (shortcut.isEmpty() ? "" : "|" + shortcut);
    }
    return entries;
  }
  void Push(const char* key) {
    auto* bar = Find<QToolBar>("tbToolBar");
    QTest::mouseClick(bar->widgetForAction(bar->findChild<QAction*>(key)), Qt::LeftButton);
  }
  bool MenuUndo() { return Find<QAction>("mnuEditUndo")->isEnabled(); }
  bool ToolBarUndo() { return Find("tbToolBar")->findChild<QAction*>("Undo")->isEnabled(); }
  Picture Map() const { return Picture(form.document.Canvas.Image()); }
};

TEST_F(Commands, MenusShowWhatAUserReaches) {
  QStringList menus;
  for (QAction* action : window.menuBar()->actions()) menus << action->text();
  EXPECT_EQ(menus, (QStringList{"&File", "&Edit", "&View", "&Tools", "&Help"}));
  EXPECT_EQ(Visible("mnuFile"),
            (QStringList{"&New|Ctrl+N", "&Open...|Ctrl+O", "&Save|Ctrl+S", "Save &As...|F12", "-",
                         "Print Set&up...", "&Print...|Ctrl+P", "-", "E&xit"}));
  EXPECT_EQ(Visible("mnuEdit"), (QStringList{"&Undo|Ctrl+Z"}));
  EXPECT_EQ(Visible("mnuView"), (QStringList{"Status &Bar"}));
  EXPECT_EQ(Visible("mnuTools"), (QStringList{"&Options...", "Insert &Text...|Ctrl+T"}));
  EXPECT_EQ(Visible("mnuHelp"), (QStringList{"&About "}));
  QStringList hidden;
  for (QAction* action : window.menuBar()->findChildren<QAction*>()) {
    if (!action->isVisible()) hidden << action->objectName();
  }
  EXPECT_EQ(hidden.join(' '),
            "mnuFileClose mnuFileBar1 mnuFilePrintPreview mnuFileMRU-1 mnuFileMRU-2 mnuFileMRU-3 "
            "mnuFileBar5 mnuEditRedo mnuEditBar0 mnuEditCut mnuEditCopy mnuEditPaste "
            "mnuViewToolbar mnuHelpContents mnuHelpSearchForHelpOn mnuHelpBar0");
  EXPECT_TRUE(Find<QAction>("mnuViewToolbar")->isChecked());
}

TEST_F(Commands, TwelveToolBarButtonsWithKeysAndToolTips) {
  QStringList keys;
  for (QAction* action : Find<QToolBar>("tbToolBar")->actions()) {
    keys << (action->isSeparator() ? "(" + action->objectName() + ")" : action->objectName());
    if (action->isSeparator()) continue;
    EXPECT_EQ(action->toolTip(), action->objectName());
    EXPECT_TRUE(action->isEnabled());
    EXPECT_FALSE(action->icon().pixmap(QSize(16, 16)).isNull());
  }
  EXPECT_EQ(keys.join(' '), "New Open Save () Print () Undo Redo (sep) Cut Copy Paste");
}

TEST_F(Commands, UndoIsOfferedTogetherInBothPlacesButAtStart) {
  EXPECT_FALSE(MenuUndo());
  EXPECT_TRUE(ToolBarUndo());
  Push("Undo");
  EXPECT_FALSE(MenuUndo());
  EXPECT_FALSE(ToolBarUndo());
  const Picture blank = Map();
  Press(30, 30);
  EXPECT_TRUE(MenuUndo());
  EXPECT_TRUE(ToolBarUndo());
  EXPECT_NE(Map(), blank);
  QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Difference(Map(), blank), "");
  EXPECT_FALSE(MenuUndo());
  EXPECT_FALSE(ToolBarUndo());
}

TEST_F(Commands, CommandsWithoutABodyChangeNothing) {
  Press(30, 30);
  const Picture before = Map();
  for (const char* key : {"Redo", "Cut", "Copy", "Paste"}) Push(key);
  for (const Qt::Key key : {Qt::Key_R, Qt::Key_X, Qt::Key_C, Qt::Key_V}) {
    QTest::keyClick(&window, key, Qt::ControlModifier);
  }
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_EQ(Difference(Map(), before), "");
  EXPECT_TRUE(platform.boxes.empty());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(Commands, ANewMapTakesItsColoursFromTheSettingsFile) {
  QFile settings("Morvane.ini");
  ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
  settings.write("[color]\r\nCANVAS=255\r\n\r\n[Map]\r\nGrid = 1\r\n");
  settings.close();
  QDir::setCurrent("/");  // the file is looked for where the program was started
  platform.answers = {Answer::Yes};
  QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(GetPixel(form.document.Canvas.Image(), 0, 0), 255U);
  EXPECT_EQ(GetPixel(form.document.Canvas.Image(), 19, 0), 0U);
}

TEST_F(Commands, AnyPictureOpensAsAMapButAFolderDoesNot) {
  QImage picture(30, 20, QImage::Format_RGB32);
  picture.fill(QColor(10, 20, 30));
  picture.save("map.png");
  platform.chosenFiles = {folder.File("map.png"), folder.File("")};
  Choose("mnuFileOpen");
  EXPECT_EQ(GetPixel(form.document.Canvas.Image(), 29, 19), 0x1E140AU);
  Choose("mnuFileOpen");
  EXPECT_NE(platform.boxes.back().text.find("This is a folder"), std::string::npos);
  EXPECT_EQ(window.windowTitle(), "Morvane - map.png");
}

TEST_F(Commands, ClosingAsksAndACancelKeepsEverything) {
  EXPECT_TRUE(QFile::exists("mvtmp.~mp"));
  platform.answers = {Answer::Cancel, Answer::No};
  Choose("mnuFileExit");
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(QFile::exists("mvtmp.~mp"));
  window.close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(QFile::exists("mvtmp.~mp"));
  EXPECT_EQ(platform.boxes.size(), 2U);
}

TEST_F(Commands, LackOfMemoryIsToldAndTheWindowGoesOn) {
  auto* status = Find<QLabel>("SimpleText");
  const std::function<void()> ways[] = {[this] { Choose("mnuFileOpen"); }, [this] { Push("Open"); },
                                        [this] { QTest::keyClick(Find("Canvas"), Qt::Key_F11); }};
  platform.memoryRunsOut = true;
  for (const auto& open : ways) {
    form.document.StatusText.clear();
    open();
    EXPECT_EQ(status->text(), "There is not enough memory for this.");
  }
  platform.memoryRunsOut = false;
  const Picture before = Map();
  Press(30, 30);
  EXPECT_NE(Map(), before);
}

}  // namespace
}  // namespace morvane
