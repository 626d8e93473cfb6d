#include <set>

#include "platform/Images.h"
#include "platform/TextDrawing.h"
#include "shell/RichTextBox.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct Dialogs : FormFixture {
  static void Click(const QWidget& in, std::initializer_list<const char*> names) {
    for (const auto* name : names) QTest::mouseClick(in.findChild<QWidget*>(name), Qt::LeftButton);
  }
};

struct TextBox : RichTextBox {
  TextBox() : RichTextBox(nullptr) {}
  QString Paste(const QString& html, const QString& plain = "plain") {
    QMimeData pasted;
    pasted.setHtml(html);
    pasted.setText(plain);
    insertFromMimeData(&pasted);
    return toPlainText();
  }
};

QString Sized(const QString& size, const QString& text) {
  return QString("<span style='font-size:%1'>%2</span>").arg(size, text);
}

TEST_F(Dialogs, OptionsReadAndWriteFiveKeys) {
  std::ofstream("Morvane.ini") << "; mine\n\n[color]\n grid = 255 ; old\n\n[Map]\nGrid=2";
  frmOptions dialog(document, &window);
  dialog.show();
  const auto shownColor = [&](const char* box) {
    return Shown(dialog).pixelColor(dialog.findChild<QWidget*>(box)->mapTo(&dialog, QPoint(9, 9)));
  };
  EXPECT_EQ(shownColor("ColorBox"), Qt::black) << "the defaults replace only two blacks";
  Click(dialog, {"GridPaletteButton"});  // canceled: the dialog's colour is black at first
  EXPECT_EQ(shownColor("GridColorBox"), Qt::black);
  platform.colors = {0x00FF00};
  platform.chosenFiles = {"/maps", "", "/tiles"};
  Click(dialog, {"PaletteButton", "GridPaletteButton", "ButtonMapDir", "ButtonMapDir",
                 "ButtonCustomDir", "Label5", "Label2"});
  EXPECT_EQ(shownColor("ColorBox"), Qt::green);
  const auto* field = dialog.findChild<QLineEdit*>("TextCustomDir");
  EXPECT_EQ(dialog.focusWidget(), field);
  EXPECT_TRUE(field->text() == "/tiles" && field->toolTip() == "/tiles");
  EXPECT_EQ(platform.dialogs[1][0], "Select the directory where Morvane maps will be saved.");
  EXPECT_EQ(platform.dialogs[2][0],
            "Select the directory with your collection of Morvane custom tiles.");
  Click(dialog, {"cmdCancel"});
  EXPECT_EQ(document.settings.GetINIFileString("Map", "Dir", "none"), "none");
  dialog.show();
  Click(dialog, {"cmdOK"});
  EXPECT_FALSE(dialog.isVisible());
  const std::string written =
      "; mine\n\n[color]\n grid =65280\nCanvas=65280\n\n"
      "[Map]\nGrid=1\nDir=/maps\n\n[Custom]\nDir=/tiles\n";
  EXPECT_EQ(ReadFile("Morvane.ini"), Bytes(written.begin(), written.end()));
  EXPECT_EQ(document.settings.Write("Map", "Dir", std::string(2047, 'x')), "");
  platform.chosenFiles = {std::string(2048, 'x'), "/"};
  dialog.show();
  Click(dialog, {"ButtonMapDir", "cmdOK"});
  EXPECT_TRUE(dialog.isVisible() && OneBox().ends_with("it could not be read back."));
  Click(dialog, {"GridCheck", "ButtonMapDir", "cmdOK"});
  EXPECT_EQ(document.settings.GetINIFileString("Map", "Grid", ""), "0");
}

TEST_F(Dialogs, AboutAndSplash) {
  frmSplash splash;
  splash.ShowAtOnce();
  EXPECT_EQ(splash.geometry().center(), splash.screen()->geometry().center());
  frmAbout dialog(platform, &window);
  dialog.show();
  Click(dialog, {"Picture1"});
  EXPECT_EQ(platform.boxes.back(),
            (SeenBox{"You found the secret tile!!", BoxStyle::OkOnly, "Morvane"}));
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, TextKeepsItsFormatBetweenDialogs) {
  QFont font("Liberation Sans", 20, QFont::Bold, true);
  font.setUnderline(true);
  font.setStrikeOut(true);
  frmText dialog("", &window);
  dialog.show();
  auto* box = dialog.findChild<QTextEdit*>();
  QTest::keyClicks(box, "plain ");
  EXPECT_EQ(box->currentFont().pointSizeF(), 9.75);
  WhenOpen<FontDialog>([&font](FontDialog& fonts) {
    fonts.setCurrentFont(font);
    fonts.findChild<QComboBox*>("Color")->setCurrentText("Red");
    fonts.accept();
  });
  Click(dialog, {"cmdFont"});
  QTest::keyClicks(box, "loud");
  Click(dialog, {"cmdOK"});
  frmText again(dialog.TextRTF(), &window);
  again.show();
  box = again.findChild<QTextEdit*>();
  QTest::keyClick(box, Qt::Key_Escape);  // must not discard the text
  EXPECT_TRUE(again.isVisible());
  EXPECT_EQ(box->toPlainText(), "plain loud");
  box->moveCursor(QTextCursor::End);
  EXPECT_EQ(box->currentFont(), font);
  EXPECT_EQ(box->textColor(), Qt::red);
}

TEST_F(Dialogs, TextIsDrawnFromTheTopLeftWrappedAndWithoutAntialiasing) {
  Picture picture(509, 349);
  QApplication::setPalette(QPalette(Qt::black));
  DrawRichText(
      "<p style='margin:0'><span style='font-size:20pt;color:#ff0000'><u>Red</u> </span>"
      "<span style='font-size:60pt'>Black Black</span></p>",
      picture);
  QApplication::setPalette(QPalette());
  const std::set<Pixel> colors(picture.Row(0), picture.Row(349));
  EXPECT_EQ(colors, (std::set<Pixel>{0xFFFFFFFF, 0xFFFF0000, 0xFF000000}));
  const QPixmap drawn = QPixmap::fromImage(ImageOver(picture.View()));
  const QRect place = QRegion(drawn.createMaskFromColor(Qt::white)).boundingRect();
  EXPECT_EQ(place.left(), 0);
  QFont font;
  font.setPixelSize(80);  // 60 points on each display
  const QFontMetrics metrics(font);
  EXPECT_NEAR(place.height(), metrics.lineSpacing() + metrics.tightBoundingRect("Bl").height(), 3)
      << "two lines";
}

TEST_F(Dialogs, PastedTextKeepsOnlyItsFormatWithinLimits) {
  const QString image = "<p>words<img src='a.png' width=8><link rel=stylesheet href='a.css'>";
  EXPECT_EQ(TextBox().Paste(image), "words");
  const QString cell = "<TABLE><tr><td colspan=60000 rowspan=9999>";
  EXPECT_EQ(TextBox().Paste(cell + "w<b>id</b>e" + QString("<tr><td>y").repeated(500)),
            "wide" + QString("\ny").repeated(500));
  for (const QString& slow : {cell.repeated(200) + "deep", QString(50'001, 'x')}) {
    EXPECT_EQ(TextBox().Paste(slow), "plain");
  }
  TextBox list;
  const QImage empty = Shown(list);
  list.Paste("<ul><li>a<li><b style='font-size:20pt;color:rgba(255,0,0,0.5)'>bold");
  EXPECT_NE(Shown(list), empty);
  EXPECT_EQ(list.textCursor().blockFormat(), QTextBlockFormat());
  EXPECT_TRUE(list.toHtml().contains("font-size:20pt; font-weight:700; color:#ff0000;"));
  const QString two =
      Sized("40px", QString("a").repeated(3000)) + Sized("37.5pt", QString("b").repeated(3000));
  EXPECT_EQ(TextBox().Paste(two).size(), 3000 + (160'000 - 16 - 3000 * 40) / 50);
  TextBox large;
  const QString points = Sized("30000pt", QString("AM ").repeated(2000));
  EXPECT_NEAR(large.Paste(Sized("30000px", "A") + points).size(), 458, 9);
  EXPECT_EQ(large.currentCharFormat().fontPointSize(), kMaxFontSize * 0.75);

  TextBox full;
  QString sizes;
  for (int i = 0; i < 500; ++i) sizes += Sized(QString("%1pt").arg(8 + i * 0.1), "a");
  for (int i = 0; i < 3; ++i) full.Paste(sizes);
  EXPECT_LT(full.toHtml().count("font-size"), 200);
  const QString huge(10'000'000, 'x');
  for (int i = 0; i < 2; ++i) full.Paste(huge, huge);
  EXPECT_NEAR(full.toPlainText().size(), 9'990, 10);
  full.selectAll();
  QTextCharFormat format;
  format.setFontPointSize(512);
  full.Format(format);
  EXPECT_NEAR(full.fontPointSize(), 12, 1);
}

TEST_F(Dialogs, OneFileCanBeDropped) {
  const std::string path = folder.File("\xc3\xa4.bmp");
  WriteFile(path, WriteBmp(Map().View()));
  const auto drop = [](QWidget* target, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::MoveAction | Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QDropEvent event({5, 5}, Qt::MoveAction | Qt::CopyAction, &dragged, Qt::LeftButton, {});
    event.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(target, &enter);
    QCoreApplication::sendEvent(target, &event);
    QCoreApplication::processEvents();
    return enter.isAccepted() && event.dropAction() == Qt::CopyAction;
  };
  const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
  for (const auto& urls :
       {QList{QUrl("file:///")}, {}, {file, file}, {QUrl("http://a" + file.path())}}) {
    EXPECT_FALSE(drop(Find("Canvas"), urls));
  }
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_TRUE(drop(Find("Canvas"), {file}));
  EXPECT_EQ(document.CurrentFile, path);
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  auto* files = Find<QListWidget>("File1");
  EXPECT_TRUE(drop(files->viewport(), {file}));
  EXPECT_EQ(files->currentRow(), 0);
}

}  // namespace
}  // namespace morvane
