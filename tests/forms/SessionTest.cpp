#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTabBar>
#include <QToolBar>
#include <fstream>

#include "palette/PalettePages.h"
#include "platform/Files.h"
#include "platform/TextDrawing.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"
#include "tests/support/RandomSession.h"
#include "tools/Buttons.h"

namespace morvane {
namespace {

void WriteBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

/// Does everything with events of mouse and keyboard, in the real window.
class WindowDriver : public FormFixture, public Driver {
 public:
  explicit WindowDriver(unsigned seed) : random_(seed) {
    platform.SetTextForm([](std::string& text) {
      text = "<b>Crypt</b> of the <i>seven</i> kings";
      return true;
    });
  }
  void TestBody() override {}

  void ChooseSet(int set) override {
    auto* selector = Find<QComboBox>("TileSetSelector");
    selector->setFocus();
    if (selector->currentIndex() == set) return selector->activated(set);
    QTest::keyClick(selector, Qt::Key_Home);
    for (int i = 0; i < set; ++i) QTest::keyClick(selector, Qt::Key_Down);
  }
  void ChooseTab(int set, int tab) override {
    auto* tabs = Find(TextOf(TileSets()[set].tabStrip))->findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab - 1).center());
  }
  void PickItem(const Item& item) override {
    QTest::mouseClick(Find(TextOf(item.control)), Qt::LeftButton, {}, {2, 2});
  }
  void NextMode() override {
    OneOf({[this] { Click("WallButton"); },
           [this] { QTest::keyClick(FocusedMap(), Qt::Key_M, Qt::ControlModifier); }});
  }
  void Turn(Transform transform) override {
    struct Way {
      const char* button;
      Qt::Key key;
    };
    static const std::map<Transform, Way> kWays = {
        {Transform::FlipHorizontal, {"FlipHorizontal", Qt::Key_Down}},
        {Transform::FlipVertical, {"FlipVertical", Qt::Key_Up}},
        {Transform::RotateRight, {"Rotate", Qt::Key_Right}},
        {Transform::RotateLeft, {"RotateLeft", Qt::Key_Left}}};
    const Way& way = kWays.at(transform);
    OneOf({[&] { Click(way.button); }, [&] { QTest::keyClick(FocusedMap(), way.key); }});
  }
  void Undo() override {
    OneOf({[this] { Choose("mnuEditUndo"); }, [this] { ClickTool("Undo"); },
           [this] { QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier); }});
  }
  void Press(int button, int X, int Y) override {
    const auto pressed = static_cast<Qt::MouseButton>(button);
    const bool isDouble = random_() % 8 == 0;
    SendMouse(isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, pressed, pressed,
              X, Y);
    SendMouse(QEvent::MouseButtonRelease, pressed, {}, X, Y);
  }
  void Move(int buttons, int X, int Y) override {
    SendMouse(QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(buttons), X, Y);
  }
  Size Resize(int width, int height) override {
    window.resize(width, height);
    QCoreApplication::processEvents();
    return {Client()->width(), Client()->height()};
  }
  void ToggleStatusBar() override { Choose("mnuViewStatusBar"); }
  void NewMap(Color color, bool grid, Color gridColor) override {
    std::ofstream("Morvane.ini") << "[Color]\nCanvas=" << color << "\nGrid=" << gridColor
                                 << "\n[Map]\nGrid=" << grid << '\n';
    platform.answers.push_back(Answer::Yes);
    OneOf({[this] { Choose("mnuFileNew"); }, [this] { ClickTool("New"); },
           [this] { QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier); }});
  }
  void OpenMap(const Bytes& file) override {
    WriteBytes("map.bmp", file);
    platform.chosenFiles.push_back(folder.File("map.bmp"));
    OneOf({[this] { Choose("mnuFileOpen"); }, [this] { ClickTool("Open"); },
           [this] { QTest::keyClick(FocusedMap(), Qt::Key_F11); }});
  }
  Bytes SaveMap() override {
    QFile::remove("saved.bmp");
    platform.chosenFiles.push_back(folder.File("saved.bmp"));
    OneOf({[this] { Choose("mnuFileSaveAs"); }, [this] { QTest::keyClick(&window, Qt::Key_F12); }});
    return ReadAll(*OpenRegularFile(folder.File("saved.bmp")).Value()).Value();
  }
  void PickFile(const std::string& name, const Bytes& file) override {
    WriteBytes(name, file);
    ChooseSet(kCustomSet);
    auto* list = Find<QListWidget>("File1");
    const auto rows = list->findItems(TextOf(name), Qt::MatchExactly);
    ASSERT_EQ(rows.size(), 1);
    list->scrollToItem(rows[0]);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(rows[0]).center());
  }
  Picture InsertText(int X, int Y) override {
    OneOf({[this] { Choose("mnuToolsInsertText"); },
           [this] { QTest::keyClick(&window, Qt::Key_T, Qt::ControlModifier); }});
    EXPECT_EQ(Find("Canvas")->cursor().shape(), Qt::IBeamCursor);
    Press(kLeftButton, X, Y);
    Picture block(509, 349, kWhite);
    DrawRichText(form.document.TextToInsert, block);
    return block;
  }
  std::string WindowMismatch() override {
    const Palette& palette = form.palette;
    const int set = palette.TileSetSelector.ListIndex;
    const char* modes[] = {"Tile", "Wall", "Door"};
    if (Find<QLabel>("lbMode")->text() != modes[static_cast<int>(palette.CurrentMode())]) {
      return "mode";
    }
    if (Find<QLabel>("Label2")->toolTip() != ToolTipOf(TextOf(palette.Label2))) return "tile";
    if (Find<QAction>("mnuEditUndo")->isEnabled() != form.document.mnuEditUndoEnabled) {
      return "menu entry Undo";
    }
    if (Tool("Undo")->isEnabled() != form.document.UndoButtonEnabled) return "button Undo";
    const auto* status = Find<QLabel>("SimpleText");
    if (status->text() != TextOf(form.document.StatusText)) return "status";
    if (status->accessibleName() != status->text()) return "announced status";
    if (Find("sbStatusBar")->isHidden() == form.StatusBarVisible ||
        Find<QAction>("mnuViewStatusBar")->isChecked() != form.StatusBarVisible) {
      return "status bar";
    }
    if (Find("Canvas")->cursor().shape() != Qt::CrossCursor) return "pointer";
    if (Find<QComboBox>("TileSetSelector")->currentIndex() != set) return "tile set";
    if (Find("Picture1")->size() != QSize(palette.Picture1.Width(), palette.Picture1.Height())) {
      return "stamp";
    }
    if (Find("Frame5")->isHidden() == (set == kCustomSet)) return "frame of custom tiles";
    for (int i = 0; i < kBuiltInSets; ++i) {
      const TileSet& tiles = TileSets()[i];
      const int page = CurrentPage(palette, i);
      auto* strip = Find(TextOf(tiles.tabStrip));
      if (strip->isHidden() == (set == i)) return "tab strip";
      if (strip->findChild<QTabBar*>()->currentIndex() + 1 != page) return "tab";
      for (int k = 1; k <= tiles.pageCount; ++k) {
        const QString frame = TextOf(tiles.frame) + "-" + QString::number(k);
        if (Find(frame)->isHidden() == (set == i && k == page)) return "page";
      }
    }
    return random_() % 16 == 0 ? ScreenMismatch() : "";
  }

 private:
  using Action = std::function<void()>;
  void OneOf(std::vector<Action> ways) { ways[random_() % ways.size()](); }

  QWidget* FocusedMap() {
    window.activateWindow();
    Find("Canvas")->setFocus();
    return Find("Canvas");
  }

  void SendMouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, int X, int Y) {
    QWidget* canvas = Find("Canvas");
    const QPointF place(X + 2, Y + 2);
    QMouseEvent event(type, place, canvas->mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(canvas, &event);
  }

  /// Compares the pixels of the canvas with the map and its outline.
  std::string ScreenMismatch() {
    const QImage shown = Shown(*Find("Canvas"));
    Picture expected(form.document.Canvas.Image());
    const Outline& outline = form.palette.Shape1;
    if (outline.Visible) {
      const Rect outer = {outline.Left, outline.Top, outline.Left + outline.Width,
                          outline.Top + outline.Height};
      for (int y = std::max(0, outer.top); y < std::min(outer.bottom, expected.Height()); ++y) {
        for (int x = std::max(0, outer.left); x < std::min(outer.right, expected.Width()); ++x) {
          const int border =
              std::min({x - outer.left, outer.right - 1 - x, y - outer.top, outer.bottom - 1 - y});
          if (border < 2) expected.Row(y)[x] = MakePixel(0, 106, 236);
        }
      }
    }
    const QRect inside = Find("Canvas")->contentsRect();
    for (int y = 0; y < inside.height(); ++y) {
      for (int x = 0; x < inside.width(); ++x) {
        if (shown.pixel(inside.left() + x, inside.top() + y) != expected.Row(y)[x]) {
          return "pixel " + std::to_string(x) + ", " + std::to_string(y) + " on the screen";
        }
      }
    }
    return {};
  }

  std::mt19937 random_;
};

class WindowSession : public testing::TestWithParam<unsigned> {};

TEST_P(WindowSession, AgreesWithTheReferenceModelAfterEveryStep) {
  WindowDriver driver(GetParam());
  RandomSession(GetParam(), driver.form, driver).Run(400);
}

INSTANTIATE_TEST_SUITE_P(Seeds, WindowSession, testing::Range(11U, 14U));

}  // namespace
}  // namespace morvane
