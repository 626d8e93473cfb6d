#include <set>

#include "document/Options.h"
#include "platform/Images.h"
#include "platform/QtDialogs.h"
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
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton);
  }
  static void ExpectShows(QWidget& control, const QPixmap& picture, const QRect& part) {
    ASSERT_FALSE(picture.isNull());
    QLabel expected;
    expected.setPixmap(picture);
    expected.adjustSize();
    EXPECT_EQ(Shown(control).copy(part), Shown(expected).copy(part));
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

/// The size, whether it is bold, italic, underlined and struck out, and the colour.
QString FontAt(const QTextEdit& box) {
  const QFont font = box.currentFont();
  const QString format("%1 %2%3%4%5 %6");
  return format.arg(font.pointSizeF())
      .arg(font.bold())
      .arg(font.italic())
      .arg(font.underline())
      .arg(font.strikeOut())
      .arg(box.textColor().name());
}

QString Sized(const QString& size, const QString& text) {
  return QString("<span style='font-size:%1'>%2</span>").arg(size, text);
}

TEST_F(Dialogs, OptionsReadAndWriteFiveKeys) {
  const auto written = [] {
    const Bytes bytes = ReadFile("Morvane.ini");
    return std::string(bytes.begin(), bytes.end());
  };
  frmOptions dialog(document, &window);
  dialog.show();
  const auto shownColor = [&](const char* box) {
    return Shown(*dialog.findChild<QWidget*>(box)).pixelColor(9, 9);
  };
  Click(dialog, "PaletteButton");  // canceled: the dialog's colour is black at first
  EXPECT_EQ(shownColor("ColorBox"), Qt::black);
  platform.colors = {0x0000FF};
  platform.chosenFiles = {"/maps", "", "/tiles"};
  for (const char* name : {"PaletteButton", "GridPaletteButton", "ButtonMapDir", "ButtonMapDir",
                           "ButtonCustomDir", "Label5", "Label2"}) {
    Click(dialog, name);
  }
  EXPECT_EQ(shownColor("ColorBox"), Qt::red);
  EXPECT_EQ(shownColor("GridColorBox"), Qt::red) << "canceled: the colour that was picked before";
  const auto* field = dialog.findChild<QLineEdit*>("TextCustomDir");
  EXPECT_EQ(dialog.focusWidget(), field);
  EXPECT_EQ(field->toolTip(), "/tiles") << "the field may be too short";
  EXPECT_EQ(platform.dialogs[1][0], "Select the directory where Morvane maps will be saved.");
  EXPECT_EQ(platform.dialogs[2][0],
            "Select the directory with your collection of Morvane custom tiles.");
  QTest::keyClick(&dialog, Qt::Key_Return);  // no default button
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(QFile::exists("Morvane.ini"));
  Click(dialog, "cmdOK");
  EXPECT_FALSE(dialog.isVisible());
  const std::string settings =
      "[Map]\r\nDir=/maps\r\nGrid=1\r\n\r\n[Custom]\r\nDir=/tiles\r\n\r\n"
      "[Color]\r\nCanvas=255\r\nGrid=255\r\n";
  EXPECT_EQ(written(), settings);
  dialog.show();
  Click(dialog, "GridCheck");
  Click(dialog, "cmdCancel");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(written(), settings);

  Options options{document};
  std::ofstream("Morvane.ini") << "[Color]\nGrid=255\n[Map]\nGrid=2\n";
  options.Form_Load();
  EXPECT_EQ(std::pair(options.ColorBox, options.GridColorBox), std::pair(0U, 255U))
      << "the defaults replace only two blacks";
  EXPECT_TRUE(options.cmdOK_Click());
  EXPECT_EQ(document.settings.GetINIFileString("Map", "Grid", ""), "0");
  EXPECT_EQ(document.settings.Write("Map", "Dir", std::string(2047, 'x')), "");
  EXPECT_NE(document.settings.Write("Map", "Dir", std::string(2048, 'x')), "") << "it is cut";
}

TEST_F(Dialogs, AboutAndSplashShowTheirPictures) {
  frmSplash splash;
  splash.ShowAtOnce();
  const double zoom = splash.devicePixelRatioF();
  ExpectShows(splash, LoadPhoto("splash", zoom), {1, 1, 453, 193});
  frmAbout dialog(platform, &window);
  dialog.show();
  ExpectShows(*dialog.findChild<QWidget*>("picIcon"), LoadPhoto("about", zoom), {0, 0, 340, 154});
  ExpectShows(*dialog.findChild<QWidget*>("Picture1"), LoadIcon("secret").pixmap(20, 20),
              {0, 0, 20, 20});
  Click(dialog, "picIcon");
  EXPECT_TRUE(platform.boxes.empty());
  Click(dialog, "Picture1");
  EXPECT_EQ(platform.boxes.back(),
            (SeenBox{"You found the secret tile!!", BoxStyle::OkOnly, "Morvane"}));
  EXPECT_TRUE(dialog.isVisible());
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, TextKeepsItsFormatBetweenDialogs) {
  frmText dialog("", &window);
  dialog.show();
  auto* box = dialog.findChild<QTextEdit*>();
  QTest::keyClicks(box, "plain ");
  EXPECT_EQ(FontAt(*box), "9.75 0000 #000000");
  QTimer::singleShot(0, [] {
    auto* fonts = qobject_cast<FontDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(fonts, nullptr);
    QFont font("Liberation Sans", 20, QFont::Bold, true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    fonts->setCurrentFont(font);
    fonts->findChild<QComboBox*>("Color")->setCurrentText("Red");
    fonts->accept();
  });
  Click(dialog, "cmdFont");
  QTest::keyClicks(box, "loud");
  Click(dialog, "cmdOK");
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  frmText again(dialog.TextRTF(), &window);
  again.show();
  box = again.findChild<QTextEdit*>();
  QTest::keyClick(box, Qt::Key_Escape);  // must not discard the text
  EXPECT_TRUE(again.isVisible());
  EXPECT_EQ(box->toPlainText(), "plain loud");
  box->moveCursor(QTextCursor::End);
  EXPECT_EQ(FontAt(*box), "20 1111 #ff0000");
}

TEST_F(Dialogs, TextIsDrawnFromTheTopLeftWrappedAndWithoutAntialiasing) {
  Picture picture(509, 349);
  DrawRichText(
      "<p style='margin:0'><span style='font-size:20pt;color:#ff0000'><u>Red</u> </span>"
      "<span style='font-size:60pt;color:#000000'>Black Black</span></p>",
      picture);
  std::set<Pixel> colors;
  for (int y = 0; y < 349; ++y) colors.insert(picture.Row(y), picture.Row(y) + 509);
  EXPECT_EQ(colors, (std::set<Pixel>{0xFFFFFFFF, 0xFFFF0000, 0xFF000000}));
  const QPixmap drawn = QPixmap::fromImage(ImageOver(picture.View()));
  const QRect place = QRegion(drawn.createMaskFromColor(Qt::white)).boundingRect();
  EXPECT_EQ(place.left(), 0);
  EXPECT_GT(place.height(), 140) << "two lines";
}

TEST_F(Dialogs, PastedTextKeepsOnlyItsFormatWithinLimits) {
  const QString image = "<p>words<img src='a.png' width=8><link rel=stylesheet href='a.css'>";
  EXPECT_EQ(TextBox().Paste(image), "words");
  const QString cell = "<TABLE><tr><td colspan=60000 rowspan=9999>";
  EXPECT_EQ(TextBox().Paste(cell + "w<b>id</b>e" + QString("<tr><td>y").repeated(500)),
            "wide" + QString("\ny").repeated(500));
  EXPECT_EQ(TextBox().Paste(cell.repeated(200) + "deep"), "plain");
  TextBox list;
  list.Paste("<ul><li><b style='font-size:20pt;color:rgba(255,0,0,0.5)'>bold</b></li></ul>");
  EXPECT_EQ(FontAt(list), "20 1000 #ff0000");
  EXPECT_EQ(list.textCursor().currentList(), nullptr);
  const QString mixed = Sized("72pt", "Heading") + Sized("9.75pt", QString("word ").repeated(400));
  EXPECT_EQ(TextBox().Paste(mixed).size(), 2007);
  TextBox large;
  EXPECT_LT(large.Paste(Sized("30000px", QString("AM ").repeated(2000))).size(), 500);
  EXPECT_EQ(large.currentCharFormat().intProperty(QTextFormat::FontPixelSize), kMaxFontSize);

  TextBox full;
  QString sizes;
  for (int i = 0; i < 500; ++i) sizes += Sized(QString("%1pt").arg(8 + i * 0.1), "a");
  for (int i = 0; i < 3; ++i) full.Paste(sizes);
  const QList<QTextFormat> formats = full.document()->allFormats();
  std::set<double> seen;
  for (const QTextFormat& kept : formats) seen.insert(kept.toCharFormat().fontPointSize());
  EXPECT_TRUE(seen.size() < 70 && formats.size() < 600);
  const QString huge(10'000'000, 'x');
  for (int i = 0; i < 2; ++i) full.Paste(huge, huge);
  EXPECT_LE(full.toPlainText().size(), 10'000);
  full.selectAll();
  QTextCharFormat format;
  format.setFontPointSize(512);
  full.Format(format);
  EXPECT_LE(full.fontPointSize(), 13);
}

TEST_F(Dialogs, MessagesAnswerToTheLettersOfTheirButtons) {
  const std::vector<std::tuple<BoxStyle, Qt::Key, Answer>> rows = {
      {BoxStyle::YesNoCancelQuestion, Qt::Key_Y, Answer::Yes},
      {BoxStyle::YesNoCancelQuestion, Qt::Key_N, Answer::No},
      {BoxStyle::YesNoCancelQuestion, Qt::Key_C, Answer::Cancel},
      {BoxStyle::OkExclamation, Qt::Key_O, Answer::Ok}};
  for (const auto& [style, key, answer] : rows) {
    QTimer::singleShot(0, [key = key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    EXPECT_EQ(ShowMessage(&window, "Save the map?", style, "Morvane"), answer);
  }
}

TEST_F(Dialogs, OneFileCanBeDropped) {
  ASSERT_TRUE(QDir().mkdir("a\xc3\xa4"));
  const std::string path = folder.File("a\xc3\xa4/tile.bmp");
  ASSERT_TRUE(QImage(30, 20, QImage::Format_RGB32).save(QString::fromStdString(path)));
  const auto drop = [](QWidget* target, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    const auto both = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter({5, 5}, both, &dragged, Qt::LeftButton, {});
    QDropEvent event({5, 5}, both, &dragged, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &enter);
    QCoreApplication::sendEvent(target, &event);
    QCoreApplication::processEvents();
    return enter.isAccepted() && event.dropAction() == Qt::CopyAction;
  };
  const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
  const QUrl place = QUrl::fromLocalFile(QDir::currentPath());
  const std::vector<QList<QUrl>> refused = {{}, {place}, {file, file}, {QUrl("http://a/tile.bmp")}};
  for (const QList<QUrl>& urls : refused) EXPECT_FALSE(drop(Find("Canvas"), urls));
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_TRUE(drop(Find("Canvas"), {file}));
  EXPECT_EQ(document.CurrentFile, path);
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  auto* files = Find<QListWidget>("File1");
  EXPECT_TRUE(drop(files->viewport(), {file}));
  EXPECT_EQ(files->currentRow(), 0);
  EXPECT_EQ(document.StatusText, "Custom tile selected: tile.bmp");
}

}  // namespace
}  // namespace morvane
