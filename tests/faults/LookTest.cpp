// How every form looks on each kind of display, with large fonts and with dark colours.

#include <cmath>
#include <map>

#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "shell/widgets/WholeScale.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

/// A virtual display and the settings of its desktop.
struct Look {
  const char* name;
  int zoom = 1;      ///< the expected number of physical pixels per pixel of a form
  int dpi = 96;      ///< of the desktop
  int fontSize = 9;  ///< points
  const char* variable = "QT_SCALE_FACTOR";  ///< of the environment
  const char* value = "1";
  bool isDark = false;
  QSize size = {1200, 900};  ///< in pixels of forms
};

double Luminance(const QColor& color) {
  return 0.2126 * std::pow(color.redF(), 2.2) + 0.7152 * std::pow(color.greenF(), 2.2) +
         0.0722 * std::pow(color.blueF(), 2.2);
}

/// Whether something legible is drawn in a part of a picture.
bool HasContrast(const QImage& picture, const QRect& part, double required) {
  const double background = Luminance(picture.pixelColor(part.bottomLeft()));
  int count = 0;
  for (int i = 0; i < part.width() * part.height(); ++i) {
    const QPoint place = part.topLeft() + QPoint(i % part.width(), i / part.width());
    const auto [dark, light] = std::minmax({Luminance(picture.pixelColor(place)), background});
    count += (light + 0.05) / (dark + 0.05) >= required ? 1 : 0;
  }
  return count > 2;
}

/// Expects that a label, button or tab bar isn't cut off, and that all texts and icons stand out.
void ExpectLegible(const QImage& picture, const QWidget& form, const QWidget& control) {
  const bool isIcon = control.inherits("QToolButton");
  const bool isTabs = control.inherits("QTabBar");
  const bool isGroup = control.inherits("QGroupBox");
  const bool isLabel = control.inherits("QLabel");
  const bool isButton = control.inherits("QAbstractButton") && !isIcon;
  const QString text = isLabel || isButton ? control.property("text").toString().trimmed() : "";
  EXPECT_TRUE(!isTabs || control.sizeHint().width() <= control.width());
  QRect seen = control.geometry().adjusted(2, 2, -2, -2);
  if (isGroup) seen.setHeight(control.fontMetrics().height() - 2);
  if (!text.isEmpty() && !control.property("wordWrap").toBool()) {
    const QSize needed = control.fontMetrics().size(Qt::TextShowMnemonic, text);
    const Qt::Alignment alignment(control.property("alignment").toInt());
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, alignment, needed, control.geometry());
    const QPoint end(std::min(place.right() + 1, control.geometry().right()), place.center().y());
    EXPECT_TRUE(control.geometry().contains(place));
    EXPECT_EQ(control.parentWidget()->childAt(end), &control) << "covered";
    if (isLabel) seen = place;
  }
  const bool isBox = isGroup || control.inherits("QTextEdit");
  if (text.isEmpty() && !isTabs && !isBox && !(isIcon && control.isEnabled())) return;
  seen = seen.translated(control.parentWidget()->mapTo(&form, QPoint())) & form.rect();
  const double required = !control.isEnabled() ? 1.5 : isIcon ? 3 : 4.5;
  EXPECT_TRUE(picture.devicePixelRatio() > 1 || seen.isEmpty() ||
              HasContrast(picture, seen, required));
}

/// Expects that a form is legible and complete and fits on the screen.
void Check(QWidget& form, const QSize& screen) {
  SCOPED_TRACE(form.windowTitle().toStdString());
  for (auto* box : form.findChildren<QTextEdit*>()) box->setCursorWidth(0);
  QCoreApplication::processEvents();
  EXPECT_LE(form.width(), screen.width());
  EXPECT_LT(form.height(), screen.height()) << "no room for a title bar";
  const QImage picture = form.grab().toImage();
  for (const QWidget* control : form.findChildren<QWidget*>()) {
    SCOPED_TRACE(QDebug::toString(control).toStdString());
    if (!control->isVisible()) continue;
    ExpectLegible(picture, form, *control);
  }
}

void CheckEachForm(FormFixture& editor, const QSize& screen) {
  auto* sets = editor.Find<QComboBox>("TileSetSelector");
  for (int set = 0; set < sets->count(); ++set) {
    emit sets->activated(set);
    Check(editor.window, screen);
  }
  QtPlatform platform;
  const FileDialog maps{"Open", "Map files (*.bmp)|*.bmp", "", "/"};
  std::uint32_t color = 5;
  const std::vector<std::pair<QString, std::function<void()>>> dialogs = {
      {"Options", [&] { editor.Choose("mnuToolsOptions"); }},
      {"About Morvane", [&] { editor.Choose("mnuHelpAbout"); }},
      {"Print Setup", [&] { editor.Choose("mnuFilePageSetup"); }},
      {"Insert Text", [&] { frmText("Text", &editor.window).exec(); }},
      {"Font", [&] { FontDialog(&editor.window).exec(); }},
      {"Select Color", [&] { platform.ShowColor(color); }},
      {"Open", [&] { platform.ShowOpen(maps); }},
      {"Select it", [&] { platform.BrowseForFolder("Select it"); }},
      {"Save?", [&] { platform.MsgBox("Sure?", BoxStyle::YesNoCancelQuestion, "Save?"); }}};
  for (const auto& [title, open] : dialogs) {
    QString shown;
    WhenOpen([&](QDialog& dialog) {
      Check(dialog, screen);
      shown = dialog.windowTitle();
      dialog.reject();
    });
    open();
    EXPECT_EQ(shown, title);
  }
  EXPECT_EQ(color, 5U) << "canceled";
}

/// In a child: starts the editor on the display. Each pixel of the map with the outline of the
/// stamp, and of a tile with its focus mark, must be a block of physical pixels.
void CheckOn(const Look& look) {
  const StartFolder folder;
  std::ofstream("display.json") << R"({"screens":[{"name":"wide","logicalDpi":)" << look.dpi
                                << R"(,"width":)" << look.size.width() * look.zoom
                                << R"(,"height":)" << look.size.height() * look.zoom << "}]}";
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=display.json");
  qputenv(look.variable, look.value);
  UseWholeScaleFactors();
  EditorInChild editor;
  if (look.isDark) QApplication::setPalette(DarkPalette());
  QApplication::setFont(QFont("Liberation Sans", look.fontSize));
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  ASSERT_EQ(editor.window.devicePixelRatioF(), look.zoom);
  editor.Press(70, 70);
  QWidget* canvas = editor.Find("Canvas");
  QTest::mouseMove(canvas, {407, 67});
  EXPECT_EQ(Shown(*canvas).pixelColor(402, 62), QColor(0, 106, 236));
  QWidget* tile = editor.Find("pbmarking");
  tile->setFocus(Qt::TabFocusReason);
  for (QWidget* control : {canvas, tile}) {
    const QImage screen = control->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(screen, Shown(*control).scaled(screen.size()));
  }
  editor.document.UndoButtonEnabled = false;
  CheckEachForm(editor, look.size);
}

TEST(Looks, EveryFormIsLegibleAndCompleteAndFitsOnTheScreen) {
  std::map<std::string, pid_t> children;
  for (const Look& look :
       {Look{"Light"},
        {"Dark", 1, 96, 9, "QT_SCALE_FACTOR", "1.25", true},
        {"Small screen", 1, 96, 14, "QT_SCALE_FACTOR", "0.5", false, {640, 480}},
        {"120 dpi", 1, 120, 14},
        {"144 dpi", 2, 144, 14, "QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough"},
        {"Screen factor 1.5", 2, 96, 9, "QT_SCREEN_SCALE_FACTORS", "wide=1.5;"},
        {"192 dpi, factor 1.5", 4, 192, 9, "QT_SCALE_FACTOR", "1.5"}}) {
    SCOPED_TRACE(look.name);
    children[look.name] = StartChild([&] { CheckOn(look); });
  }
  for (const auto& [name, child] : children) EXPECT_EQ(WaitFor(child), 0) << name;
}

}  // namespace
}  // namespace morvane
