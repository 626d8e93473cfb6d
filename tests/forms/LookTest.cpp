// How every form looks on each kind of display, with large fonts and with dark colours.

#include <cmath>

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
  const QSize physical = look.size * look.zoom;
  return RunInChild(
      [&] {
        const StartFolder folder;
        std::ofstream("display.json")
            << R"({"screens":[{"name":"wide","x":0,"y":0,"dpr":1,"logicalBaseDpi":96,"logicalDpi":)"
            << look.dpi << R"(,"width":)" << physical.width() << R"(,"height":)"
            << physical.height() << "}]}";
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

/// Shows and checks each form and dialog in turn.
void ForEachForm(Session::Window& editor, const std::function<void(QWidget&)>& check) {
  const auto show = [&](QWidget& form) {
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
  frmOptions options(editor.document, &editor.window);
  show(options);
  frmAbout about(editor.platform, &editor.window);
  show(about);
  frmText text("", &editor.window);
  text.findChild<QTextEdit*>()->setCursorWidth(0);
  text.findChild<QTextEdit*>()->setHtml("<span style='color:black'>Text</span>");
  show(text);
  FontDialog font(&text);
  show(font);
  // Those that have their own event loop.
  const FileDialog files{"Open", "Map files (*.bmp)|*.bmp", "", ""};
  std::uint32_t color = 0;
  const std::vector<std::function<void()>> modal = {
      [&] { AskForColor(&options, color); },
      [&] { AskForFile(&editor.window, files, FileDialogMode::Open, "/"); },
      [&] { AskForFolder(&options, "Select the directory"); },
      [] { MapPrinter().ShowSetup(nullptr, "Print Setup"); },
      [] { ShowMessage(nullptr, "Are you sure?", BoxStyle::YesNoCancelQuestion, "Save?"); }};
  int checked = 0;
  for (const auto& open : modal) {
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      show(*dialog);
      dialog->reject();
      ++checked;
    });
    open();
  }
  EXPECT_EQ(checked, std::ssize(modal));
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

/// Expects that a label, button or tab bar isn't cut off, and that all texts and icons stand out.
void ExpectLegible(const QImage& picture, const QWidget& form, const QWidget& control) {
  const auto* label = qobject_cast<const QLabel*>(&control);
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  const bool isIcon = control.inherits("QToolButton");
  const bool isTabs = control.inherits("QTabBar");
  const QString text = label != nullptr               ? label->text().trimmed()
                       : button != nullptr && !isIcon ? button->text()
                                                      : "";
  const QRegion covered = CoveredBySiblings(control);
  EXPECT_TRUE(!isTabs || control.sizeHint().width() <= control.width());
  if (!text.isEmpty() && (label == nullptr || !label->wordWrap())) {
    const QSize needed = control.fontMetrics().size(Qt::TextShowMnemonic, text);
    const auto alignment = label != nullptr ? label->alignment() : Qt::AlignCenter;
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, alignment, needed, control.geometry());
    EXPECT_TRUE(control.geometry().contains(place));
    EXPECT_FALSE(covered.intersects(place.adjusted(0, 0, 1, 0)));
  }
  const bool isGroup = control.inherits("QGroupBox");
  const bool isBox = isGroup || control.inherits("QTextEdit");
  if (text.isEmpty() && !isTabs && !isBox && !(isIcon && control.isEnabled())) return;
  QRect inside = control.geometry().adjusted(2, 2, -2, -2);
  if (isGroup) inside.setHeight(control.fontMetrics().height() - 2);
  const QPoint origin = control.parentWidget()->mapTo(&form, QPoint());
  const QRegion visible = (QRegion(inside) - covered).translated(origin) & form.rect();
  const double required = !control.isEnabled() ? 1.5 : isIcon ? 3 : 4.5;
  EXPECT_TRUE(picture.devicePixelRatio() > 1 || visible.isEmpty() ||
              HasContrast(picture, visible, required));
}

/// Each pixel of the map is a block of physical pixels, and so is the outline of the stamp.
void ExpectWholePixels(Session::Window& editor, int zoom) {
  ASSERT_EQ(editor.window.devicePixelRatioF(), zoom);
  editor.NewMap();
  editor.Press(70, 70);
  QWidget* canvas = editor.Find("Canvas");
  QTest::mouseMove(canvas, {407, 67});
  QCoreApplication::processEvents();
  const QImage screen = canvas->grab().toImage();
  const QImage shown = Shown(*canvas);
  EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32), shown.scaled(screen.size()));
  EXPECT_EQ(shown.pixelColor(402, 62), QColor(0, 106, 236));
}

struct Looks : testing::TestWithParam<Look> {};

TEST_P(Looks, EveryFormIsLegibleAndCompleteAndFitsOnTheScreen) {
  const Look& look = GetParam();
  const auto check = [&](Session::Window& editor) {
    ExpectWholePixels(editor, look.zoom);
    editor.document.UndoButtonEnabled = false;
    ForEachForm(editor, [&](QWidget& form) {
      EXPECT_LE(form.width(), look.size.width());
      EXPECT_LT(form.height(), look.size.height()) << "no room for a title bar";
      const QImage picture = form.grab().toImage();
      for (const QWidget* control : form.findChildren<QWidget*>()) {
        const QString name = control->metaObject()->className() + (" " + control->objectName());
        SCOPED_TRACE(name.toStdString());
        if (control->isVisible()) ExpectLegible(picture, form, *control);
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
