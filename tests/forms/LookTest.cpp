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
  int zoom = 1;                    ///< the expected number of physical pixels per pixel of a form
  int dpi = 96;                    ///< of the desktop
  const char* variable = nullptr;  ///< of the environment
  const char* value = "";
  int fontSize = 9;  ///< points
  bool isDark = false;
  QSize size = {1200, 900};  ///< in pixels of forms
};

void PrintTo(const Look& look, std::ostream* stream) {
  *stream << look.name;
}

QPalette DarkPalette() {
  const QColor ground(49, 54, 59);
  const QColor text(239, 240, 241);
  QPalette dark(text, ground, ground.lighter(150), ground.darker(150), ground.darker(120), text,
                Qt::white, QColor(35, 38, 41), ground);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(127, 140, 141));
  }
  return dark;
}

/// Runs a check on the whole editor in a process of its own.
int RunOn(const Look& look, const std::function<void(Session::Window&)>& check) {
  return RunInChild([&] {
    const QTemporaryDir folder;
    QFile display(folder.filePath("display.json"));
    ASSERT_TRUE(display.open(QIODevice::WriteOnly));
    display.write(QString(R"({"screens":[{"name":"wide","x":0,"y":0,"width":%1,"height":%2,)"
                          R"("logicalDpi":%3,"logicalBaseDpi":96,"dpr":1}]})")
                      .arg(look.size.width() * look.zoom)
                      .arg(look.size.height() * look.zoom)
                      .arg(look.dpi)
                      .toUtf8());
    display.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + display.fileName().toUtf8());
    if (look.variable != nullptr) qputenv(look.variable, look.value);
    UseWholeScaleFactors();
    Session session;
    if (look.isDark) QApplication::setPalette(DarkPalette());
    QFont font("Liberation Sans");
    font.setPointSize(look.fontSize);
    QApplication::setFont(font);
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

double Contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

/// Whether something legible is drawn in a region.
bool HasContrast(const QImage& picture, const QRegion& region, double required) {
  const QRgb background = picture.pixel((region.end() - 1)->bottomLeft());
  int count = 0;
  for (const QRect& rect : region) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) {
        count += Contrast(picture.pixel(x, y), background) >= required ? 1 : 0;
      }
    }
  }
  return count > 2;
}

/// The text of a control; empty if it has none.
QString CaptionOf(const QWidget& control) {
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text().trimmed();
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  return button != nullptr ? button->text() : QString();
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

void ExpectLegible(QWidget& form) {
  const QImage picture = form.grab().toImage();
  for (const QWidget* control : form.findChildren<QWidget*>()) {
    const bool isIcon = control->inherits("QToolButton");
    const bool isText = !CaptionOf(*control).isEmpty() || control->inherits("QTabBar");
    if (!control->isVisible() || picture.devicePixelRatio() != 1 || (!isText && !isIcon)) continue;
    if (!control->isEnabled() && isIcon) continue;
    const QRegion inside = control->geometry().adjusted(2, 2, -2, -2);
    const QRegion visible = (inside - CoveredBySiblings(*control))
                                .translated(control->parentWidget()->mapTo(&form, QPoint())) &
                            form.rect();
    const double required = !control->isEnabled() ? 1.5 : isIcon ? 3 : 4.5;
    EXPECT_TRUE(visible.isEmpty() || HasContrast(picture, visible, required))
        << control->metaObject()->className() << ' ' << control->objectName().toStdString();
  }
}

void ExpectLabelFits(const QLabel& label) {
  if (label.text().isEmpty() || label.wordWrap()) return;
  QRect text({}, label.fontMetrics().size(Qt::TextShowMnemonic, label.text()));
  text.moveTopLeft(label.geometry().topLeft() + label.contentsRect().topLeft());
  if (label.alignment().testFlag(Qt::AlignVCenter)) {
    text.moveTop(label.y() + (label.height() - text.height()) / 2);
  }
  EXPECT_LE(text.height(), label.height());
  EXPECT_LE(text.right(), label.geometry().right());
  EXPECT_FALSE(CoveredBySiblings(label).intersects(text.adjusted(0, 0, 1, 0)));
}

void ExpectWholeTexts(QWidget& form) {
  for (QWidget* control : form.findChildren<QWidget*>()) {
    if (!control->isVisible()) continue;
    SCOPED_TRACE(control->metaObject()->className() + (" " + control->objectName()).toStdString());
    const QFontMetrics metrics = control->fontMetrics();
    const QSize text = metrics.size(Qt::TextShowMnemonic, CaptionOf(*control));
    if (const auto* label = qobject_cast<QLabel*>(control)) {
      ExpectLabelFits(*label);
    } else if (qobject_cast<QAbstractButton*>(control) != nullptr) {
      EXPECT_TRUE(CaptionOf(*control).isEmpty() || control->inherits("QToolButton") ||
                  text.boundedTo(control->size()) == text);
    } else if (const auto* tabs = qobject_cast<QTabBar*>(control)) {
      EXPECT_LE(tabs->sizeHint().width(), tabs->width());
    } else if (const auto* field = qobject_cast<QLineEdit*>(control)) {
      EXPECT_LE(metrics.height(), field->height());
    } else if (const auto* bar = qobject_cast<QMenuBar*>(control)) {
      for (QAction* menu : bar->actions()) {
        EXPECT_TRUE(bar->rect().contains(bar->actionGeometry(menu))) << menu->text().toStdString();
      }
    }
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
  EXPECT_EQ(RunOn(look,
                  [&](Session::Window& editor) {
                    ExpectWholePixels(editor, look.zoom);
                    editor.form.document.UndoButtonEnabled = false;
                    ForEachForm(editor, [&](QWidget& form) {
                      ExpectLegible(form);
                      ExpectWholeTexts(form);
                      EXPECT_LE(form.width(), look.size.width());
                      EXPECT_LT(form.height(), look.size.height()) << "no room for a title bar";
                    });
                  }),
            0);
}

INSTANTIATE_TEST_SUITE_P(
    Displays, Looks,
    testing::Values(Look{.name = "Light"}, Look{.name = "Dark", .isDark = true},
                    Look{.name = "LargeFontOnASmallScreen", .fontSize = 14, .size = {640, 480}},
                    Look{.name = "Dpi120", .dpi = 120, .fontSize = 14},
                    Look{.name = "Dpi144", .zoom = 2, .dpi = 144, .fontSize = 14},
                    Look{.name = "Factor125", .variable = "QT_SCALE_FACTOR", .value = "1.25"},
                    Look{.name = "Factor50", .variable = "QT_SCALE_FACTOR", .value = "0.5"},
                    Look{.name = "ScreenFactor150",
                         .zoom = 2,
                         .variable = "QT_SCREEN_SCALE_FACTORS",
                         .value = "wide=1.5;"},
                    Look{.name = "PassThrough",
                         .zoom = 2,
                         .dpi = 144,
                         .variable = "QT_SCALE_FACTOR_ROUNDING_POLICY",
                         .value = "PassThrough"},
                    Look{.name = "Dpi192Factor150",
                         .zoom = 4,
                         .dpi = 192,
                         .variable = "QT_SCALE_FACTOR",
                         .value = "1.5"}),
    [](const auto& look) { return look.param.name; });

}  // namespace
}  // namespace morvane
