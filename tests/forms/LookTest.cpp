// How the forms look on each display and with each font of the desktop.

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTabBar>
#include <QTextEdit>

#include "platform/Images.h"
#include "shell/frmText.h"
#include "tests/support/EveryForm.h"

namespace morvane {
namespace {

const std::vector<Display> kDisplays = {
    {.zoom = 1},
    {.environment = {{"QT_SCALE_FACTOR", "1.25"}}, .zoom = 1},
    {.environment = {{"QT_SCALE_FACTOR", "1.5"}}, .zoom = 2},
    {.environment = {{"QT_SCREEN_SCALE_FACTORS", "wide=1.5;"}}, .zoom = 2},
    {.dpi = 144, .environment = {{"QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough"}}, .zoom = 2},
    {.dpi = 192, .zoom = 2},
    {.dpi = 192, .environment = {{"QT_SCALE_FACTOR", "1.5"}}, .zoom = 4},
    {.environment = {{"QT_SCALE_FACTOR", "0.5"}}, .zoom = 1},
};

void PaintMap(Session::Window& editor) {
  editor.platform.WritePrivateProfileString("Map", "Grid", "1", editor.folder.File("Morvane.ini"));
  editor.platform.WritePrivateProfileString("Color", "Grid", "12632256",
                                            editor.folder.File("Morvane.ini"));
  editor.NewMap();
  for (const char* tile : {"pbfloor", "pbpentagramglow", "pbaltar"}) {
    QTest::mouseClick(editor.Find(tile), Qt::LeftButton);
    editor.Press(tile[2] * 2, tile[3] * 2);
  }
  QTest::mouseClick(editor.Find("WallButton"), Qt::LeftButton);
  editor.Press(180, 190);
  QTest::mouseClick(editor.Find("pb4040"), Qt::LeftButton);
  editor.platform.SetTextForm([&editor](std::string& text) {
    frmText dialog(text, &editor.window);
    auto* field = dialog.findChild<QTextEdit*>();
    field->setTextColor(Qt::yellow);
    field->insertPlainText("Here be dragons, and a long way to go until the treasure is found");
    text = dialog.TextRTF();
    return true;
  });
  editor.Choose("mnuToolsInsertText");
  editor.Press(60, 300);
}

TEST(Look, EveryDisplayShowsMapPixelsAsBlocksAndSavesTheSameBytes) {
  const QTemporaryDir folder;
  const std::string saved = folder.filePath("map.bmp").toStdString();
  QByteArray first;
  for (const Display& display : kDisplays) {
    SCOPED_TRACE(&display - kDisplays.data());
    On(display, [&](Session::Window& editor) {
      ASSERT_EQ(editor.window.devicePixelRatioF(), display.zoom);
      PaintMap(editor);
      editor.SaveAs(saved);
      QWidget* canvas = editor.Find("Canvas");
      QMouseEvent move(QEvent::MouseMove, QPointF(2 + 405.5, 2 + 65.5), QPointF(), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(canvas, &move);
      QImage screen(canvas->size() * display.zoom, QImage::Format_RGB32);
      screen.setDevicePixelRatio(display.zoom);
      screen.fill(Qt::magenta);  // what is left of it was never painted
      canvas->render(&screen);
      screen.setDevicePixelRatio(1);
      const QImage shown = Shown(*canvas);
      EXPECT_EQ(screen, shown.scaled(screen.size()));
      EXPECT_EQ(shown.pixelColor(402, 62), QColor(0, 106, 236));
      QImage map = shown.copy(2, 2, 100, 100);
      EXPECT_EQ(map, ImageOver(editor.form.document.Canvas.Image()).copy(0, 0, 100, 100));
      if (display.zoom > 2) return;
      for (const QAction* action : editor.Find("tbToolBar")->actions()) {
        if (action->isSeparator()) continue;
        const QString fine = display.zoom == 2 ? "@2x" : "";
        EXPECT_EQ(action->icon().pixmap(QSize(16, 16), display.zoom).toImage(),
                  QImage(":/ui/" + action->objectName().toLower() + fine + ".png")
                      .convertToFormat(QImage::Format_ARGB32_Premultiplied));
      }
    });
    QFile map(QString::fromStdString(saved));
    ASSERT_TRUE(map.open(QIODevice::ReadOnly));
    const QByteArray bytes = map.readAll();
    if (first.isEmpty()) first = bytes;
    EXPECT_TRUE(bytes == first) << "the saved map is another one";
    ASSERT_TRUE(map.remove());
  }
}

void UseFont(int points) {
  QFont font("Liberation Sans");
  font.setPointSize(points);
  QApplication::setFont(font);
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

/// The part of a label that its letters take, in its parent.
QRect TextRectOf(const QLabel& label) {
  QRect letters({}, label.fontMetrics().size(Qt::TextShowMnemonic, label.text()));
  letters.moveTopLeft(label.contentsRect().topLeft());
  if (label.alignment().testFlag(Qt::AlignVCenter)) {
    letters.moveTop((label.height() - letters.height()) / 2);
  }
  return letters.translated(label.pos());
}

void ExpectRoomForLetters(const QLabel& label) {
  if (label.text().isEmpty() || label.wordWrap()) return;
  const QRect letters = TextRectOf(label);
  EXPECT_LE(letters.height(), label.height());
  EXPECT_LE(letters.right(), label.geometry().right());
  const QObjectList& siblings = label.parentWidget()->children();
  for (qsizetype i = siblings.indexOf(&label) + 1; i < siblings.size(); ++i) {
    const auto* above = qobject_cast<QWidget*>(siblings[i]);
    if (above == nullptr || above->isHidden() || above->isWindow()) continue;
    EXPECT_FALSE(above->geometry().intersects(letters.adjusted(0, 0, 1, 0)))
        << above->objectName().toStdString();
  }
}

void ExpectWholeTexts(QWidget& form) {
  for (QWidget* control : form.findChildren<QWidget*>()) {
    if (!control->isVisible()) continue;
    SCOPED_TRACE(control->metaObject()->className() + (" " + control->objectName()).toStdString());
    const QFontMetrics metrics = control->fontMetrics();
    if (const auto* label = qobject_cast<QLabel*>(control)) {
      ExpectRoomForLetters(*label);
    } else if (const auto* button = qobject_cast<QAbstractButton*>(control)) {
      const QSize text = metrics.size(Qt::TextShowMnemonic, button->text());
      const bool shows = !button->text().isEmpty() && !button->inherits("QToolButton");
      EXPECT_TRUE(!shows || (text.width() <= button->width() && text.height() <= button->height()))
          << button->text().toStdString();
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

TEST(Look, NoTextIsCutOffWhateverTheFontsOfTheDesktop) {
  for (const Display& display : {Display{}, Display{.dpi = 120}, Display{.dpi = 144, .zoom = 2}}) {
    On(display, [](Session::Window& editor) {
      for (const int points : {9, 14}) {
        UseFont(points);
        SCOPED_TRACE(points);
        ForEachForm(editor, &ExpectWholeTexts);
      }
    });
  }
}

TEST(Look, EveryFormFitsOnSmallScreens) {
  for (const QSize& size : {QSize(640, 480), QSize(800, 600)}) {
    On({.size = size}, [&](Session::Window& editor) {
      for (const int points : {9, 14}) {
        UseFont(points);
        ForEachForm(editor, [&](QWidget& form) {
          EXPECT_LE(form.width(), size.width());
          EXPECT_LT(form.height(), size.height()) << "no room for a title bar";
        });
      }
    });
  }
}

}  // namespace
}  // namespace morvane
