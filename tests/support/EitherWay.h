#pragma once

#include <random>

#include "palette/PalettePages.h"
#include "platform/Images.h"
#include "shell/widgets/Text.h"
#include "tests/support/ReferenceModel.h"
#include "tools/CanvasMouse.h"

namespace morvane {

/// The editor, used through functions of the core or by events of mouse and keyboard in its window,
/// and a reference model that it must agree with.
class EitherWay : public FormFixture {
 public:
  EitherWay(unsigned seed, bool throughWindow)
      : FormFixture(&SpeckledSheet), random_(seed), throughWindow_(throughWindow) {
    model.status = document.StatusText;
  }

 protected:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
  template <typename List>
  const auto& AnyOf(const List& list) {
    return list[Random(0, std::ssize(list) - 1)];
  }
  Picture RandomPicture(int maxWidth, int maxHeight) {
    return Speckled(Random(1, maxWidth), Random(1, maxHeight), Random(1, 99));
  }

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

  void Press(int button, int X, int Y) {
    const auto pressed = static_cast<Qt::MouseButton>(button);
    const bool isDouble = Random(0, 7) == 0;
    const auto press = isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
    OneOf({[&] { Canvas_MouseDown(palette, button, float(X), float(Y)); },
           [&] {
             SendMouse(press, pressed, pressed, -1, Y);  // on the border
             SendMouse(press, pressed, pressed, X, Y);
             SendMouse(QEvent::MouseButtonRelease, pressed, {}, X, Y);
           }});
  }

  void Move(int buttons, int X, int Y) {
    OneOf({[&] { Canvas_MouseMove(palette, buttons, float(X), float(Y)); },
           [&] { SendMouse(QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(buttons), X, Y); }});
  }

  bool Exits() {
    if (throughWindow_) return window.close();
    if (form.Form_Unload()) return false;
    form.EndRun();
    return true;
  }

  static Picture ShownIn(const PictureBox& box) {
    return Cut(box.Image(), {0, 0, box.ScaleWidth(), box.ScaleHeight()});
  }

  void ExpectSame() {
    ASSERT_EQ(Difference(document.Canvas.Image(), model.map.View()), "");
    ASSERT_EQ(Difference(document.pbclear.Image(), model.blank.View()), "");
    ASSERT_EQ(Difference(ShownIn(palette.Picture1).View(), model.stamp.View()), "");
    ASSERT_EQ(Difference(ShownIn(palette.Custom).View(), model.custom.View()), "");
    ASSERT_EQ(palette.Shape1, model.outline);
    ASSERT_EQ(std::tuple(document.Canvas.Width(), document.Canvas.Height(), palette.CurrentMode(),
                         palette.TileSetSelector.ListIndex, palette.Label2, palette.Label5,
                         document.StatusText, document.mnuEditUndoEnabled,
                         document.UndoButtonEnabled, document.Caption, form.StatusBarVisible),
              std::tuple(model.box.width, model.box.height, model.mode, model.set, model.tile,
                         model.dimensions, model.status, model.canUndo, model.undoButton,
                         model.caption, model.statusBar));
    for (int set = 0; set < kBuiltInSets; ++set) {
      ASSERT_EQ(CurrentPage(palette, set), model.pages[set]);
    }
    ASSERT_EQ(WindowMismatch(), "");
    ExpectSameDialogs();
  }
  void ExpectSameDialogs() {
    ASSERT_EQ(std::exchange(platform.boxes, {}), std::exchange(model.boxes, {}));
    ASSERT_EQ(std::exchange(platform.dialogs, {}), std::exchange(model.dialogs, {}));
  }
  void ExpectSameFiles() const {
    for (const auto& [path, content] : model.files) EXPECT_TRUE(ReadFile(path) == content) << path;
  }

  ReferenceModel model{palette.pictures};

 private:
  /// What the window shows differently from the core; empty if nothing.
  std::string WindowMismatch() {
    if (!throughWindow_) return {};
    const int set = palette.TileSetSelector.ListIndex;
    const std::array modes = {"Tile", "Wall", "Door"};
    const QString mode = modes.at(int(palette.CurrentMode()));
    const QIcon modeIcon = LoadIcon(("mode-" + mode).toLower().toUtf8());
    const auto* modeButton = Find<QToolButton>("WallButton");
    const auto* status = Find<QLabel>("SimpleText");
    const bool isNew = status->text() != std::exchange(shownStatus_, status->text());
    const QStringList spoken = std::exchange(heard, {});
    const std::vector<std::pair<const char*, bool>> checks = {
        {"mode", Find<QLabel>("lbMode")->text() == mode},
        {"spoken mode", modeButton->accessibleDescription() == mode},
        {"mode icon", modeButton->icon().pixmap(24).toImage() == modeIcon.pixmap(24).toImage()},
        {"tile", Find("Label2")->toolTip() == ToolTipOf(TextOf(palette.Label2))},
        {"undo entry", Find<QAction>("mnuEditUndo")->isEnabled() == document.mnuEditUndoEnabled},
        {"undo button", Tool("Undo")->isEnabled() == document.UndoButtonEnabled},
        {"title", window.windowHandle()->title() == TextOf(document.Caption)},
        {"status", status->text() == TextOf(document.StatusText)},
        {"announcement", !isNew || !status->isVisible() || spoken.contains(status->text())},
        {"status bar", Find("sbStatusBar")->isHidden() != form.StatusBarVisible},
        {"check", Find<QAction>("mnuViewStatusBar")->isChecked() == form.StatusBarVisible},
        {"pointer", Find("Canvas")->cursor().shape() == Qt::CrossCursor},
        {"set", Find<QComboBox>("TileSetSelector")->currentIndex() == set},
        {"stamp",
         Find("Picture1")->size() == QSize(palette.Picture1.Width(), palette.Picture1.Height())},
        {"page", ShowsOnlyThePage()},
        {"screen", Screen() == ExpectedScreen()}};
    for (const auto& [name, isRight] : checks) {
      if (!isRight) return name;
    }
    return {};
  }

  void SendMouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, int X, int Y) {
    QWidget* canvas = Find("Canvas");
    const QPointF place(X + 2.5, Y + 2.5);  // fractional, as on high-DPI displays
    QMouseEvent event(type, place, canvas->mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(canvas, &event);
  }

  /// The page of the set and its strip of tabs show, and no others.
  bool ShowsOnlyThePage() {
    const int set = palette.TileSetSelector.ListIndex;
    QStringList expected = {"Frame5"};
    if (set != kCustomSet) {
      const QString page = QString::number(CurrentPage(palette, set));
      expected = {TextOf(TileSets()[set].tabStrip), TextOf(TileSets()[set].frame) + "-" + page};
    }
    const auto pages = window.findChildren<QWidget*>(QRegularExpression("^(Tab|Frame)"));
    return std::all_of(pages.begin(), pages.end(), [&](const QWidget* page) {
      return page->isVisibleTo(&window) == expected.contains(page->objectName());
    });
  }

  /// The map as the display shows it after its partial updates.
  QImage Screen() {
    QCoreApplication::processEvents();
    QWidget* canvas = Find("Canvas");
    const QRect inside = canvas->contentsRect();
    const QRect place(canvas->mapTo(&window, inside.topLeft()), inside.size());
    // Qt's offscreen platform can't show parts outside the window, nor on high-DPI displays.
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

  QString shownStatus_;
  std::mt19937 random_;
  bool throughWindow_;
};

}  // namespace morvane
