#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "document/Printing.h"
#include "document/Undo.h"
#include "palette/FlipAndRotate.h"
#include "palette/TileSelection.h"
#include "platform/Images.h"
#include "shell/widgets/Text.h"
#include "tests/support/RandomSession.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

/// Does everything by functions of the core, or with events of mouse and keyboard in the window.
class Driver : public FormFixture {
 public:
  Driver(unsigned seed, bool throughWindow)
      : FormFixture(&SpeckledSheet), random_(seed), throughWindow_(throughWindow) {}
  void TestBody() override {}

  void ChooseSet(int set) {
    OneOf({[&] { TileSetSelector_Click(palette, set); },
           [&] {
             auto* selector = Find<QComboBox>("TileSetSelector");
             selector->setFocus();
             if (selector->currentIndex() == set) return selector->activated(set);
             QTest::keyClick(selector, Qt::Key_Home);
             for (int i = 0; i < set; ++i) QTest::keyClick(selector, Qt::Key_Down);
           }});
  }
  void ChooseTab(int set, int tab) {
    OneOf({[&] { TabStrip_Click(palette, set, tab); },
           [&] {
             auto* tabs = Find(TextOf(TileSets()[set].tabStrip))->findChild<QTabBar*>();
             QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab - 1).center());
           }});
  }
  void PickItem(const Item& item) {
    OneOf({[&] { Item_Click(palette, item); },
           [&] {
             QTest::mouseClick(Find(TextOf(item.control)), Qt::LeftButton, {}, {2, 2});
           }});
  }
  void NextMode() {
    OneOf({[&] { WallButton_Click(palette); }, [&] { Click("WallButton"); },
           [&] { MapKey("Ctrl+M"); }});
  }
  void Turn(Transform transform) {
    const auto at = static_cast<std::size_t>(transform);
    const std::array rules = {&FlipHorizontal_Click, &FlipVertical_Click, &Rotate_Click,
                              &RotateLeft_Click};
    const std::array buttons = {"FlipHorizontal", "FlipVertical", "Rotate", "RotateLeft"};
    const std::array keys = {"Down", "Up", "Right", "Left"};
    OneOf({[&] { rules.at(at)(palette); }, [&] { Click(buttons.at(at)); },
           [&] { MapKey(keys.at(at)); }});
  }
  void Undo() { Command(&mnuEditUndo_Click, "mnuEditUndo", "Undo", "Ctrl+Z"); }
  void NewMap() { Command(&mnuFileNew_Click, "mnuFileNew", "New", "Ctrl+N"); }
  void Open() {
    Command(&mnuFileOpen_Click, "mnuFileOpen", "Open", random_() % 2 == 0 ? "Ctrl+O" : "F11");
  }
  void Save() { Command(&mnuFileSave_Click, "mnuFileSave", "Save", "Ctrl+S"); }
  void SaveAs() { Command(&mnuFileSaveAs_Click, "mnuFileSaveAs", "", "F12"); }
  void Print() { Command(&mnuFilePrint_Click, "mnuFilePrint", "Print", "Ctrl+P"); }
  void ArmText() { Command(&mnuToolsInsertText_Click, "mnuToolsInsertText", "", "Ctrl+T"); }
  void CancelText() {
    OneOf({[&] { Canvas_KeyDown(palette, kKeyEscape, 0); }, [&] { MapKey("Esc"); }});
  }
  bool IsExitCanceled() { return throughWindow_ ? !window.close() : form.Form_Unload(); }
  void Press(int button, int X, int Y) {
    const auto pressed = static_cast<Qt::MouseButton>(button);
    const bool isDouble = random_() % 8 == 0;
    const auto press = isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
    OneOf({[&] { Canvas_MouseDown(palette, button, float(X), float(Y)); },
           [&] {
             SendMouse(press, pressed, pressed, X, Y);
             SendMouse(QEvent::MouseButtonRelease, pressed, {}, X, Y);
           }});
  }
  void Move(int buttons, int X, int Y) {
    OneOf({[&] { Canvas_MouseMove(palette, buttons, float(X), float(Y)); },
           [&] { SendMouse(QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(buttons), X, Y); }});
  }
  /// Returns the size of the inside of the window.
  Size Resize(int width, int height) {
    OneOf({[&] { form.Form_Resize(width, height); },
           [&] {
             window.resize(width, height);
             QCoreApplication::processEvents();
           }});
    return throughWindow_ ? Size{Client()->width(), Client()->height()} : Size{width, height};
  }
  void ToggleStatusBar() {
    OneOf({[&] { form.mnuViewStatusBar_Click(); }, [&] { Choose("mnuViewStatusBar"); }});
  }
  void PickFile(const std::string& name) {
    ChooseSet(kCustomSet);
    OneOf({[&] { File1_Click(palette, name); },
           [&] {
             auto* list = Find<QListWidget>("File1");
             const auto rows = list->findItems(TextOf(name), Qt::MatchExactly);
             ASSERT_EQ(rows.size(), 1);
             list->scrollToItem(rows[0]);
             QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                               list->visualItemRect(rows[0]).center());
           }});
  }

  /// What the window shows differently from the core; empty if nothing.
  std::string WindowMismatch() {
    if (!throughWindow_) return {};
    const int set = palette.TileSetSelector.ListIndex;
    const std::array modes = {"Tile", "Wall", "Door"};
    const auto* status = Find<QLabel>("SimpleText");
    const std::vector<std::pair<const char*, bool>> checks = {
        {"mode", Find<QLabel>("lbMode")->text() == modes.at(int(palette.CurrentMode()))},
        {"tile", Find("Label2")->toolTip() == ToolTipOf(TextOf(palette.Label2))},
        {"undo entry", Find<QAction>("mnuEditUndo")->isEnabled() == document.mnuEditUndoEnabled},
        {"undo button", Tool("Undo")->isEnabled() == document.UndoButtonEnabled},
        {"title", window.windowHandle()->title() == TextOf(document.Caption)},
        {"status", status->text() == TextOf(document.StatusText)},
        {"announcement", status->accessibleName() == status->text()},
        {"status bar", Find("sbStatusBar")->isHidden() != form.StatusBarVisible},
        {"check", Find<QAction>("mnuViewStatusBar")->isChecked() == form.StatusBarVisible},
        {"pointer", Find("Canvas")->cursor().shape() == Qt::CrossCursor},
        {"set", Find<QComboBox>("TileSetSelector")->currentIndex() == set},
        {"stamp",
         Find("Picture1")->size() == QSize(palette.Picture1.Width(), palette.Picture1.Height())},
        {"pages", ShownPages() == ExpectedPages()},
        {"screen", random_() % 8 != 0 || Screen() == ExpectedScreen()}};
    for (const auto& [name, isRight] : checks) {
      if (!isRight) return name;
    }
    return {};
  }

 private:
  /// Calls the function of the core, which is the first, or does the same in the window.
  void OneOf(std::initializer_list<std::function<void()>> ways) {
    std::begin(ways)[throughWindow_ ? 1 + random_() % (ways.size() - 1) : 0]();
  }
  void Command(void (*rule)(Document&), const char* entry, const char* tool, const char* keys) {
    OneOf({[&] { rule(document); }, [&] { Choose(entry); }, [&] { MapKey(keys); },
           [&] { *tool != 0 ? ClickTool(tool) : Choose(entry); }});
  }

  void MapKey(const char* keys) {
    window.activateWindow();
    Find("Canvas")->setFocus();
    QTest::keySequence(Find("Canvas"), QKeySequence(keys));
  }

  void SendMouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, int X, int Y) {
    QWidget* canvas = Find("Canvas");
    const QPointF place(X + 2, Y + 2);
    QMouseEvent event(type, place, canvas->mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(canvas, &event);
  }

  /// The strips and pages that show.
  QStringList ShownPages() {
    QStringList names;
    for (const auto* page : window.findChildren<QWidget*>(QRegularExpression("^(Tab|Frame)"))) {
      if (page->isVisibleTo(&window)) names << page->objectName();
    }
    return names;
  }
  QStringList ExpectedPages() {
    const int set = palette.TileSetSelector.ListIndex;
    if (set == kCustomSet) return {"Frame5"};
    const QString strip = TextOf(TileSets()[set].tabStrip);
    const int page = CurrentPage(palette, set);
    EXPECT_EQ(Find(strip)->findChild<QTabBar*>()->currentIndex() + 1, page);
    return {strip, TextOf(TileSets()[set].frame) + "-" + QString::number(page)};
  }

  /// The map as the display shows it after its partial updates.
  QImage Screen() {
    QCoreApplication::processEvents();
    QWidget* canvas = Find("Canvas");
    const QRect inside = canvas->contentsRect();
    const QRect place(canvas->mapTo(&window, inside.topLeft()), inside.size());
    // Qt can't take screenshots of enlarged or cut off windows without a display.
    const bool isCut = inside.isEmpty() || !window.rect().contains(place);
    if (isCut || window.devicePixelRatioF() != 1) return ExpectedScreen();
    const QPixmap screen = window.screen()->grabWindow(window.winId());
    return screen.toImage().copy(place).convertToFormat(QImage::Format_RGB32);
  }
  /// The visible part of the map with the outline of the stamp.
  QImage ExpectedScreen() {
    const PictureView map = document.Canvas.Image();
    QImage screen = ImageOver(map).copy(QRect(QPoint(), Find("Canvas")->contentsRect().size()));
    const Outline& outline = palette.Shape1;
    if (!outline.Visible) return screen;
    const QRect outer(outline.Left, outline.Top, outline.Width, outline.Height);
    QPainter painter(&screen);
    painter.setClipRegion(QRegion(outer) - outer.adjusted(2, 2, -2, -2));
    painter.fillRect(outer, QColor(0, 106, 236));
    return screen;
  }

  std::mt19937 random_;
  bool throughWindow_;
};

struct Session : testing::TestWithParam<unsigned> {};

TEST_P(Session, ThroughTheCoreAgreesWithTheReferenceModelAfterEveryStep) {
  Driver driver(GetParam(), false);
  RandomSession(GetParam(), driver).Run(800);
}

TEST_P(Session, ThroughTheWindowAgreesWithTheReferenceModelAfterEveryStep) {
  Driver driver(GetParam(), true);
  RandomSession(GetParam(), driver).Run(400);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Session, testing::Range(1U, 5U));

}  // namespace
}  // namespace morvane
