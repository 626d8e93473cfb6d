// Whether all that the forms show stands out on light and dark desktops.

#include <QAbstractButton>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <functional>

#include "tests/support/EveryForm.h"

namespace morvane {
namespace {

double Light(QRgb pixel) {
  const auto share = [](int part) { return std::pow(part / 255.0, 2.2); };
  return 0.2126 * share(qRed(pixel)) + 0.7152 * share(qGreen(pixel)) + 0.0722 * share(qBlue(pixel));
}

double Contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({Light(one), Light(other)});
  return (light + 0.05) / (dark + 0.05);
}

/// How far what is drawn in a part of a picture stands out from its ground. A few pixels are none.
double Contrast(const QImage& picture, const QRegion& part) {
  constexpr qsizetype kFew = 2;
  const QRgb ground = picture.pixel((part.end() - 1)->bottomLeft());
  std::vector<double> contrasts;
  for (const QRect& rect : part) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) {
        contrasts.push_back(Contrast(picture.pixel(x, y), ground));
      }
    }
  }
  if (std::ssize(contrasts) <= kFew) return 1;
  std::nth_element(contrasts.begin(), contrasts.begin() + kFew, contrasts.end(), std::greater<>());
  return contrasts[kFew];
}

/// What has to stand out how far: texts more than icons; 0 where nothing is to be read.
double LeastContrast(const QWidget& control) {
  const auto* label = qobject_cast<const QLabel*>(&control);
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  const bool isText = (label != nullptr && !label->text().trimmed().isEmpty()) ||
                      (button != nullptr && !button->text().isEmpty()) ||
                      control.inherits("QTextEdit") || control.inherits("QTabBar");
  if (!control.isVisible()) return 0;
  if (!control.isEnabled()) return isText ? 1.5 : 0;
  if (control.inherits("QToolButton")) return 3;
  return isText ? 4.5 : 0;
}

/// The inside of a control, as far as no later one lies above it.
QRegion Seen(const QWidget& control, const QWidget& form) {
  QRegion seen = control.geometry().adjusted(2, 2, -2, -2);
  const QObjectList& siblings = control.parentWidget()->children();
  for (qsizetype i = siblings.indexOf(&control) + 1; i < siblings.size(); ++i) {
    const auto* above = qobject_cast<QWidget*>(siblings[i]);
    if (above != nullptr && above->isVisible() && !above->isWindow()) seen -= above->geometry();
  }
  return seen.translated(control.parentWidget()->mapTo(&form, QPoint())) & form.rect();
}

void ExpectLegible(QWidget& form) {
  const QImage picture = form.grab().toImage();
  for (QWidget* control : form.findChildren<QWidget*>()) {
    const double least = LeastContrast(*control);
    const QRegion seen = Seen(*control, form);
    if (least == 0 || seen.isEmpty()) continue;
    EXPECT_GE(Contrast(picture, seen), least)
        << control->metaObject()->className() << " " << control->objectName().toStdString() << " "
        << control->toolTip().toStdString();
  }
}

/// Fields and lists of our own forms have edges that can be seen.
void ExpectEdges(QWidget& form) {
  const QImage picture = form.grab().toImage();
  for (const QWidget* control : form.findChildren<QWidget*>()) {
    const bool hasEdge = control->inherits("QLineEdit") || control->inherits("QCheckBox") ||
                         control->inherits("QListWidget");
    if (!hasEdge || !control->isVisible() || !form.objectName().startsWith("frm")) continue;
    const QPoint edge = control->mapTo(&form, QPoint(0, control->height() / 2));
    EXPECT_GE(Contrast(picture.pixel(edge), picture.pixel(edge - QPoint(2, 0))), 1.5)
        << control->objectName().toStdString();
  }
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

TEST(Legible, EverythingOnLightAndDark) {
  On({}, [](Session::Window& editor) {
    const QPalette light = QApplication::palette();
    for (const QPalette& palette : {light, DarkPalette()}) {
      QApplication::setPalette(palette);
      SCOPED_TRACE(palette == light ? "light" : "dark");
      editor.form.document.UndoButtonEnabled = false;
      ForEachForm(editor, &ExpectLegible);
      ForEachForm(editor, &ExpectEdges);
      const QImage client = Shown(*editor.Client());
      for (const QPoint& onLine : {QPoint(20, 32), {20, 80}, {20, 155}, {80, 50}, {120, 90}}) {
        EXPECT_GE(Contrast(client.pixel(onLine), client.pixel(2, 100)), 1.5);
      }
    }
  });
}

TEST(Legible, PointersSuitTheControls) {
  On({}, [](Session::Window& editor) {
    ForEachForm(editor, [](QWidget& form) {
      for (QWidget* control : form.findChildren<QWidget*>()) {
        const auto* text = qobject_cast<QTextEdit*>(control->parentWidget());
        const bool writes = text != nullptr && text->viewport() == control;
        if (!form.objectName().startsWith("frm") || control->objectName() == "Canvas") continue;
        EXPECT_EQ(control->cursor().shape(), writes ? Qt::IBeamCursor : Qt::ArrowCursor)
            << control->metaObject()->className() << " " << control->objectName().toStdString();
      }
    });
    EXPECT_EQ(editor.Find("Canvas")->cursor().shape(), Qt::CrossCursor);
    editor.Choose("mnuToolsInsertText");
    EXPECT_EQ(editor.Find("Canvas")->cursor().shape(), Qt::IBeamCursor);
  });
}

}  // namespace
}  // namespace morvane
