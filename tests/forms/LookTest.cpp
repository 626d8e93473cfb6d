// How every form looks on each kind of display, with large fonts and with dark colours.

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <cmath>

#include "platform/Images.h"
#include "platform/MapPrinter.h"
#include "platform/QtDialogs.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "shell/widgets/WholeScale.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

/// A virtual display and the settings of its desktop.
struct Look {
  const char* name;
  int zoom = 1;                   ///< the expected number of physical pixels per pixel of a form
  int dpi = 96;                   ///< of the desktop
  int fontSize = 9;               ///< points
  const char* variable = "NONE";  ///< of the environment
  const char* value = "";
  bool isDark = false;
  QSize size = {1200, 900};  ///< in pixels of forms
};

void PrintTo(const Look& look, std::ostream* stream) {
  *stream << look.name;
}

/// Runs a check on the whole editor in a process of its own.
int RunOn(const Look& look, const std::function<void(Session::Window&)>& check) {
  return RunInChild(
      [&] {
        const StartFolder folder;
        std::ofstream("display.json")
            << R"({"screens":[{"name":"wide","x":0,"y":0,"logicalBaseDpi":96,"dpr":1,"logicalDpi":)"
            << look.dpi << R"(,"width":)" << look.size.width() * look.zoom << R"(,"height":)"
            << look.size.height() * look.zoom << "}]}";
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=display.json");
        qputenv(look.variable, look.value);
        UseWholeScaleFactors();
        Session session;
        if (look.isDark) QApplication::setPalette(QPalette({49, 54, 59}, {49, 54, 59}));
        QApplication::setFont(QFont("Liberation Sans", look.fontSize));
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
        check(session.editor);
      });
}

/// Opens a dialog that has its own event loop, checks it and cancels it.
void CheckModal(const std::function<void()>& open, const std::function<void(QWidget&)>& check) {
  bool isChecked = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    check(*dialog);
    dialog->reject();
    isChecked = true;
  });
  open();
  EXPECT_TRUE(isChecked);
}

/// Shows and checks each form and dialog in turn.
void ForEachForm(Session::Window& editor, const std::function<void(QWidget&)>& check) {
  const auto show = [&check](QWidget& form) {
    SCOPED_TRACE(form.windowTitle().toStdString());
    form.show();
    QCoreApplication::processEvents();
    check(form);
  };
  auto* sets = editor.Find<QComboBox>("TileSetSelector");
  for (int set = 0; set < sets->count(); ++set) {
    emit sets->activated(set);
    show(editor.window);
  }
  frmOptions options(editor.form.document, &editor.window);
  show(options);
  frmAbout about(editor.platform, &editor.window);
  show(about);
  frmText text("", &editor.window);
  text.findChild<QTextEdit*>()->setCursorWidth(0);
  text.findChild<QTextEdit*>()->setTextColor(Qt::black);
  text.findChild<QTextEdit*>()->insertPlainText("Text");
  show(text);
  FontDialog font(&text);
  show(font);
  std::uint32_t color = 0;
  CheckModal([&] { AskForColor(&options, color); }, show);
  const FileDialog files{"Open", "Map files (*.bmp)|*.bmp", "", ""};
  CheckModal([&] { AskForFile(&editor.window, files, FileDialogMode::Open, "/"); }, show);
  CheckModal([&] { AskForFolder(&options, "Select the directory"); }, show);
  CheckModal([] { MapPrinter().ShowSetup(nullptr, "Print Setup"); }, show);
  CheckModal([] { ShowMessage(nullptr, "Are you sure?", BoxStyle::YesNoCancelQuestion, "Save?"); },
             show);
}

double Luminance(QRgb pixel) {
  const auto linear = [](int channel) { return std::pow(channel / 255.0, 2.2); };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) +
         0.0722 * linear(qBlue(pixel));
}

/// Whether something legible is drawn in a region.
bool HasContrast(const QImage& picture, const QRegion& region, double required) {
  const double ground = Luminance(picture.pixel((region.end() - 1)->bottomLeft()));
  int count = 0;
  for (const QRect& rect : region) {
    for (int i = 0; i < rect.width() * rect.height(); ++i) {
      const QPoint place = rect.topLeft() + QPoint(i % rect.width(), i / rect.width());
      const auto [dark, light] = std::minmax({Luminance(picture.pixel(place)), ground});
      count += (light + 0.05) / (dark + 0.05) >= required ? 1 : 0;
    }
  }
  return count > 2;
}

/// The text of a label or button; empty if it has none.
QString CaptionOf(const QWidget& control) {
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text().trimmed();
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  return button != nullptr && !control.inherits("QToolButton") ? button->text() : QString();
}

/// The later siblings of a control, which cover it.
QRegion CoveredBySiblings(const QWidget& control) {
  QRegion covered;
  const QObjectList& siblings = control.parentWidget()->children();
  for (qsizetype i = siblings.indexOf(&control) + 1; i < siblings.size(); ++i) {
    const auto* above = qobject_cast<QWidget*>(siblings[i]);
    if (above != nullptr && above->isVisible() && !above->isWindow()) covered += above->geometry();
  }
  return covered;
}

void ExpectContrast(const QImage& picture, const QWidget& form, const QWidget& control) {
  const bool isIcon = control.inherits("QToolButton");
  const bool isText = !CaptionOf(control).isEmpty() || control.inherits("QTabBar");
  if (!isText && !(isIcon && control.isEnabled())) return;
  const QRegion inside = control.geometry().adjusted(2, 2, -2, -2);
  const QRegion visible = (inside - CoveredBySiblings(control))
                              .translated(control.parentWidget()->mapTo(&form, QPoint())) &
                          form.rect();
  const double required = !control.isEnabled() ? 1.5 : isIcon ? 3 : 4.5;
  EXPECT_TRUE(visible.isEmpty() || HasContrast(picture, visible, required));
}

void ExpectWholeText(const QWidget& control) {
  const QFontMetrics metrics = control.fontMetrics();
  const auto* label = qobject_cast<const QLabel*>(&control);
  if (const QString text = CaptionOf(control); !text.isEmpty()) {
    if (label != nullptr && label->wordWrap()) return;
    const QRect place = QStyle::alignedRect(
        Qt::LeftToRight, label != nullptr ? label->alignment() : Qt::AlignCenter,
        metrics.size(Qt::TextShowMnemonic, text), control.geometry());
    EXPECT_TRUE(control.geometry().contains(place));
    EXPECT_FALSE(CoveredBySiblings(control).intersects(place.adjusted(0, 0, 1, 0)));
  } else if (const auto* bar = qobject_cast<const QMenuBar*>(&control)) {
    for (QAction* menu : bar->actions()) {
      EXPECT_TRUE(bar->rect().contains(bar->actionGeometry(menu))) << menu->text().toStdString();
    }
  } else if (control.inherits("QTabBar")) {
    EXPECT_LE(control.sizeHint().width(), control.width());
  } else if (control.inherits("QLineEdit")) {
    EXPECT_LE(metrics.height(), control.height());
  }
}

/// Each pixel of the map is a block of physical pixels, and so is the outline of the stamp.
void ExpectWholePixels(Session::Window& editor, int zoom) {
  ASSERT_EQ(editor.window.devicePixelRatioF(), zoom);
  editor.NewMap();
  editor.Press(70, 70);
  QWidget* canvas = editor.Find("Canvas");
  QMouseEvent move(QEvent::MouseMove, QPointF(2 + 405.5, 2 + 65.5), QPointF(), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(canvas, &move);
  QImage screen(canvas->size() * zoom, QImage::Format_RGB32);
  screen.setDevicePixelRatio(zoom);
  screen.fill(Qt::magenta);  // pixels that nobody paints
  canvas->render(&screen);
  screen.setDevicePixelRatio(1);
  const QImage shown = Shown(*canvas);
  EXPECT_EQ(screen, shown.scaled(screen.size()));
  EXPECT_EQ(shown.pixelColor(402, 62), QColor(0, 106, 236));
  EXPECT_EQ(shown.copy(2, 2, 300, 300),
            ImageOver(editor.form.document.Canvas.Image()).copy(0, 0, 300, 300));
}

struct Looks : testing::TestWithParam<Look> {};

TEST_P(Looks, EveryFormIsLegibleAndCompleteAndFitsOnTheScreen) {
  const Look& look = GetParam();
  const auto check = [&](Session::Window& editor) {
    ExpectWholePixels(editor, look.zoom);
    editor.form.document.UndoButtonEnabled = false;
    ForEachForm(editor, [&](QWidget& form) {
      EXPECT_LE(form.width(), look.size.width());
      EXPECT_LT(form.height(), look.size.height()) << "no room for a title bar";
      const QImage picture = form.grab().toImage();
      for (const QWidget* control : form.findChildren<QWidget*>()) {
        if (!control->isVisible()) continue;
        SCOPED_TRACE(control->metaObject()->className() +
                     (" " + control->objectName()).toStdString());
        ExpectWholeText(*control);
        if (look.zoom == 1) ExpectContrast(picture, form, *control);
      }
    });
  };
  EXPECT_EQ(RunOn(look, check), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Displays, Looks,
    testing::Values(Look{"Light"}, Look{"Dark", 1, 96, 9, "QT_SCALE_FACTOR", "1.25", true},
                    Look{"SmallScreen", 1, 96, 14, "QT_SCALE_FACTOR", "0.5", false, {640, 480}},
                    Look{"Dpi120", 1, 120, 14},
                    Look{"Dpi144", 2, 144, 14, "QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough"},
                    Look{"ScreenFactor150", 2, 96, 9, "QT_SCREEN_SCALE_FACTORS", "wide=1.5;"},
                    Look{"Dpi192Factor150", 4, 192, 9, "QT_SCALE_FACTOR", "1.5"}),
    [](const auto& look) { return look.param.name; });

}  // namespace
}  // namespace morvane
