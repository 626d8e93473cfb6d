#include <fstream>

#include "palette/PalettePages.h"
#include "platform/Files.h"
#include "platform/Images.h"
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
class WindowDriver : public FormFixture {
 public:
  explicit WindowDriver(unsigned seed) : random_(seed) {
    platform.SetTextForm([](std::string& text) {
      text = "<b>Crypt</b> of the <i>seven</i> kings";
      return true;
    });
  }
  void TestBody() override {}

  void ChooseSet(int set) {
    auto* selector = Find<QComboBox>("TileSetSelector");
    selector->setFocus();
    if (selector->currentIndex() == set) return selector->activated(set);
    QTest::keyClick(selector, Qt::Key_Home);
    for (int i = 0; i < set; ++i) QTest::keyClick(selector, Qt::Key_Down);
  }
  void ChooseTab(int set, int tab) {
    auto* tabs = Find(TextOf(TileSets()[set].tabStrip))->findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab - 1).center());
  }
  void PickItem(const Item& item) {
    QTest::mouseClick(Find(TextOf(item.control)), Qt::LeftButton, {}, {2, 2});
  }
  void NextMode() {
    OneOf({[this] { Click("WallButton"); }, [this] { MapKey(Qt::Key_M, Qt::ControlModifier); }});
  }
  void Turn(Transform transform) {
    const auto at = static_cast<std::size_t>(transform);
    const std::array buttons = {"FlipHorizontal", "FlipVertical", "Rotate", "RotateLeft"};
    const std::array keys = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left};
    OneOf({[&] { Click(buttons.at(at)); }, [&] { MapKey(keys.at(at)); }});
  }
  void Undo() {
    OneOf({[this] { Choose("mnuEditUndo"); }, [this] { ClickTool("Undo"); },
           [this] { MapKey(Qt::Key_Z, Qt::ControlModifier); }});
  }
  void Press(int button, int X, int Y) {
    const auto pressed = static_cast<Qt::MouseButton>(button);
    const bool isDouble = random_() % 8 == 0;
    SendMouse(isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, pressed, pressed,
              X, Y);
    SendMouse(QEvent::MouseButtonRelease, pressed, {}, X, Y);
  }
  void Move(int buttons, int X, int Y) {
    SendMouse(QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(buttons), X, Y);
  }
  /// Returns the inside of the window.
  Size Resize(int width, int height) {
    window.resize(width, height);
    QCoreApplication::processEvents();
    return {Client()->width(), Client()->height()};
  }
  void ToggleStatusBar() { Choose("mnuViewStatusBar"); }
  void NewMap(Color color, bool grid, Color gridColor) {
    std::ofstream("Morvane.ini") << "[Color]\nCanvas=" << color << "\nGrid=" << gridColor
                                 << "\n[Map]\nGrid=" << grid << '\n';
    platform.answers.push_back(Answer::Yes);
    OneOf({[this] { Choose("mnuFileNew"); }, [this] { ClickTool("New"); },
           [this] { MapKey(Qt::Key_N, Qt::ControlModifier); }});
  }
  void OpenMap(const Bytes& file) {
    WriteBytes("map.bmp", file);
    platform.chosenFiles.push_back(folder.File("map.bmp"));
    OneOf({[this] { Choose("mnuFileOpen"); }, [this] { ClickTool("Open"); },
           [this] { MapKey(Qt::Key_F11); }});
  }
  Bytes SaveMap() {
    QFile::remove("saved.bmp");
    platform.chosenFiles.push_back(folder.File("saved.bmp"));
    OneOf({[this] { Choose("mnuFileSaveAs"); }, [this] { MapKey(Qt::Key_F12); }});
    return ReadAll(*OpenRegularFile(folder.File("saved.bmp")).Value()).Value();
  }
  void PickFile(const std::string& name, const Bytes& file) {
    WriteBytes(name, file);
    ChooseSet(kCustomSet);
    auto* list = Find<QListWidget>("File1");
    const auto rows = list->findItems(TextOf(name), Qt::MatchExactly);
    ASSERT_EQ(rows.size(), 1);
    list->scrollToItem(rows[0]);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(rows[0]).center());
  }
  /// Returns the picture of the text.
  Picture InsertText(int X, int Y) {
    OneOf({[this] { Choose("mnuToolsInsertText"); },
           [this] { MapKey(Qt::Key_T, Qt::ControlModifier); }});
    EXPECT_EQ(Find("Canvas")->cursor().shape(), Qt::IBeamCursor);
    Press(kLeftButton, X, Y);
    Picture block(509, 349);
    DrawRichText(form.document.TextToInsert, block);
    return block;
  }

  /// What the window shows differently from the core; empty if nothing.
  std::string WindowMismatch() {
    const Palette& palette = form.palette;
    const auto& [document, set] = std::tie(form.document, palette.TileSetSelector.ListIndex);
    const std::array modes = {"Tile", "Wall", "Door"};
    const auto* status = Find<QLabel>("SimpleText");
    const std::vector<std::pair<const char*, bool>> checks = {
        {"mode", Find<QLabel>("lbMode")->text() == modes.at(int(palette.CurrentMode()))},
        {"tile", Find("Label2")->toolTip() == ToolTipOf(TextOf(palette.Label2))},
        {"undo entry", Find<QAction>("mnuEditUndo")->isEnabled() == document.mnuEditUndoEnabled},
        {"undo button", Tool("Undo")->isEnabled() == document.UndoButtonEnabled},
        {"status", status->text() == TextOf(document.StatusText)},
        {"announcement", status->accessibleName() == status->text()},
        {"status bar", Find("sbStatusBar")->isHidden() != form.StatusBarVisible},
        {"check", Find<QAction>("mnuViewStatusBar")->isChecked() == form.StatusBarVisible},
        {"pointer", Find("Canvas")->cursor().shape() == Qt::CrossCursor},
        {"set", Find<QComboBox>("TileSetSelector")->currentIndex() == set},
        {"stamp",
         Find("Picture1")->size() == QSize(palette.Picture1.Width(), palette.Picture1.Height())},
        {"custom tiles", Find("Frame5")->isHidden() != (set == kCustomSet)},
        {"pages", ShownPages() == ExpectedPages()},
        {"screen",
         random_() % 16 != 0 ||
             Shown(*Find("Canvas")).copy(Find("Canvas")->contentsRect()) == ExpectedScreen()}};
    for (const auto& [name, isRight] : checks) {
      if (!isRight) return name;
    }
    return {};
  }

 private:
  using Action = std::function<void()>;

  void OneOf(std::vector<Action> ways) { ways[random_() % ways.size()](); }

  void MapKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    window.activateWindow();
    Find("Canvas")->setFocus();
    QTest::keyClick(Find("Canvas"), key, modifiers);
  }

  void SendMouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, int X, int Y) {
    QWidget* canvas = Find("Canvas");
    const QPointF place(X + 2, Y + 2);
    QMouseEvent event(type, place, canvas->mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(canvas, &event);
  }

  /// The selected tab of each strip, the strips and pages that show.
  QStringList ShownPages() {
    QStringList pages;
    for (const TileSet& set : TileSets()) {
      const auto* strip = Find(TextOf(set.tabStrip));
      pages << QString::number(strip->findChild<QTabBar*>()->currentIndex() + 1);
      if (!strip->isHidden()) pages << strip->objectName();
      for (int page = 1; page <= set.pageCount; ++page) {
        const auto* frame = Find(TextOf(set.frame) + "-" + QString::number(page));
        if (!frame->isHidden()) pages << frame->objectName();
      }
    }
    return pages;
  }
  QStringList ExpectedPages() const {
    QStringList pages;
    for (int i = 0; i < kBuiltInSets; ++i) {
      const QString page = QString::number(CurrentPage(form.palette, i));
      pages << page;
      if (form.palette.TileSetSelector.ListIndex != i) continue;
      pages << TextOf(TileSets()[i].tabStrip) << TextOf(TileSets()[i].frame) + "-" + page;
    }
    return pages;
  }

  /// The visible part of the map with the outline of the stamp.
  QImage ExpectedScreen() {
    const PictureView map = form.document.Canvas.Image();
    QImage screen = ImageOver(map).copy(QRect(QPoint(), Find("Canvas")->contentsRect().size()));
    const Outline& outline = form.palette.Shape1;
    if (!outline.Visible) return screen;
    const QRect outer(outline.Left, outline.Top, outline.Width, outline.Height);
    QPainter painter(&screen);
    painter.setClipRegion(QRegion(outer) - outer.adjusted(2, 2, -2, -2));
    painter.fillRect(outer, QColor(0, 106, 236));
    return screen;
  }

  std::mt19937 random_;
};

class WindowSession : public testing::TestWithParam<unsigned> {};

TEST_P(WindowSession, AgreesWithTheReferenceModelAfterEveryStep) {
  WindowDriver driver(GetParam());
  RandomSession(GetParam(), driver).Run(400);
}

INSTANTIATE_TEST_SUITE_P(Seeds, WindowSession, testing::Range(11U, 14U));

}  // namespace
}  // namespace morvane
