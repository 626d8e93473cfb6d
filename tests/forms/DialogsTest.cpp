#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <QUrl>
#include <set>

#include "document/picture/Blit.h"
#include "platform/TextDrawing.h"
#include "shell/RichTextBox.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "tests/support/FormFixture.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

struct Dialogs : FormFixture {
  using Places = std::map<const char*, QRect>;

  static void ExpectPlaces(const QWidget& form, const QSize& size, const Places& places) {
    EXPECT_EQ(form.size(), size);
    for (const auto& [name, place] : places) {
      const auto* control = form.findChild<QWidget*>(name);
      ASSERT_NE(control, nullptr) << name;
      EXPECT_EQ(control->geometry(), place) << name;
    }
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton);
  }
  static void Paste(RichTextBox& box, const QString& html, const QString& plain = {}) {
    struct Open : RichTextBox {
      using RichTextBox::insertFromMimeData;
    };
    QMimeData pasted;
    pasted.setHtml(html);
    if (!plain.isEmpty()) pasted.setText(plain);
    (box.*&Open::insertFromMimeData)(&pasted);
  }
  static QString Sized(const char* size, const QString& text) {
    return QString("<span style='font-size:%1'>%2</span>").arg(size, text);
  }
};

TEST_F(Dialogs, OptionsWriteTheSettingsFile) {
  frmOptions dialog(form.document, &window);
  EXPECT_EQ(dialog.windowTitle(), "Options");
  ExpectPlaces(dialog, {409, 230},
               {{"Frame1", {8, 8, 393, 81}},
                {"TextMapDir", {96, 24, 265, 19}},
                {"ButtonCustomDir", {368, 48, 17, 17}},
                {"Frame2", {8, 96, 393, 97}},
                {"ColorBox", {104, 24, 25, 25}},
                {"GridPaletteButton", {136, 56, 73, 25}},
                {"GridCheck", {272, 64, 17, 17}},
                {"cmdOK", {246, 201, 73, 25}},
                {"cmdCancel", {328, 201, 73, 25}}});
  dialog.show();
  platform.chosenFiles = {folder.File("maps")};
  platform.colors = {0x0000FF};
  Click(dialog, "ButtonMapDir");
  Click(dialog, "PaletteButton");
  Click(dialog, "Label5");
  const auto* mapDir = dialog.findChild<QLineEdit*>("TextMapDir");
  EXPECT_TRUE(mapDir->isReadOnly());
  EXPECT_TRUE(mapDir->toolTip().contains(mapDir->text())) << "the field may be too short";
  EXPECT_EQ(dialog.findChild<QWidget*>("ColorBox")->palette().color(QPalette::Window), Qt::red);
  dialog.findChild<QLineEdit*>("TextMapDir")->setFocus();
  QTest::keyClick(&dialog, Qt::Key_Return);  // no default button
  EXPECT_TRUE(dialog.isVisible());
  Click(dialog, "cmdOK");
  EXPECT_FALSE(dialog.isVisible());
  QFile file("Morvane.ini");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QString("[Map]\r\nDir=%1\r\nGrid=1\r\n\r\n[Custom]\r\nDir=\r\n\r\n"
                                    "[Color]\r\nCanvas=255\r\nGrid=12632256\r\n")
                                .arg(QString::fromStdString(folder.File("maps")))
                                .toUtf8());
}

TEST_F(Dialogs, AboutShowsItsPictureAndHidesATile) {
  frmAbout dialog(platform, &window);
  EXPECT_EQ(dialog.windowTitle(), "About Morvane");
  ExpectPlaces(dialog, {391, 230},
               {{"picIcon", {2, 1, 383, 154}},
                {"Picture1", {343, 114, 20, 20}},
                {"lblDisclaimer", {12, 168, 279, 55}},
                {"cmdOK", {299, 200, 82, 23}}});
  dialog.show();
  const QImage picture = Shown(*dialog.findChild<QWidget*>("picIcon"));
  EXPECT_NE(picture.pixel(10, 75), picture.pixel(190, 75));
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
  std::string kept;
  {
    frmText dialog("", &window);
    EXPECT_EQ(dialog.windowTitle(), "Insert Text");
    ExpectPlaces(dialog, {312, 110},
                 {{"RichTextBox1", {0, 0, 313, 73}},
                  {"cmdOK", {240, 80, 65, 25}},
                  {"cmdFont", {168, 80, 65, 25}}});
    dialog.show();
    auto* box = dialog.findChild<RichTextBox*>();
    QTest::keyClicks(box, "plain ");
    QTimer::singleShot(0, [] {
      auto* fonts = qobject_cast<FontDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(fonts, nullptr);
      QFont font("Liberation Sans", 20, QFont::Bold);
      font.setUnderline(true);
      fonts->setCurrentFont(font);
      fonts->findChild<QComboBox*>("Color")->setCurrentText("Red");
      fonts->accept();
    });
    Click(dialog, "cmdFont");
    QTest::keyClicks(box, "loud");
    Click(dialog, "cmdOK");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    kept = dialog.TextRTF();
  }
  frmText again(kept, &window);
  auto* box = again.findChild<RichTextBox*>();
  EXPECT_EQ(box->toPlainText(), "plain loud");
  again.show();
  QTest::keyClick(box, Qt::Key_Escape);  // must not discard the text
  EXPECT_TRUE(again.isVisible());
  box->moveCursor(QTextCursor::End);
  const QTextCharFormat format = box->currentCharFormat();
  EXPECT_EQ(format.fontPointSize(), 20);
  EXPECT_EQ(format.fontWeight(), QFont::Bold);
  EXPECT_TRUE(format.fontUnderline());
  EXPECT_EQ(format.foreground().color(), Qt::red);
}

TEST_F(Dialogs, TextIsDrawnWithoutAntialiasingFromTheTopLeft) {
  Picture picture(509, 349);
  DrawRichText(
      "<p style='margin:0'><span style='font-size:20pt;color:#ff0000'>Red </span>"
      "<u><span style='font-size:60pt;color:#000000'>Black</span></u></p>",
      picture);
  std::set<Pixel> colors;
  for (int y = 0; y < 349; ++y) colors.insert(picture.Row(y), picture.Row(y) + 509);
  EXPECT_EQ(colors, (std::set<Pixel>{0xFFFFFFFF, 0xFFFF0000, 0xFF000000}));
  EXPECT_NE(Cut(picture.View(), {0, 0, 8, 70}), Picture(8, 70, kWhite)) << "at the top left";
}

TEST_F(Dialogs, PastedTextLoadsNothingAndKeepsItsFormat) {
  QImage(8, 8, QImage::Format_RGB32).save("picture.png");
  const QString url = "file://" + QDir::current().filePath("picture.png");
  RichTextBox box(nullptr);
  Paste(box, "<p>words<img src='" + url + "' width=8><link rel=stylesheet href='" + url + "'>");
  EXPECT_EQ(box.toPlainText(), "words");
  EXPECT_FALSE(box.toHtml().contains("picture.png"));
  box.clear();
  Paste(box, QString("<table><tr><td>").repeated(200) + "core", "core");
  Paste(box, "<ul><li><b style='color:rgba(255,0,0,0.5)'>bold</b></li></ul>");
  EXPECT_EQ(box.toPlainText(), "corebold");
  EXPECT_EQ(box.currentCharFormat().fontWeight(), QFont::Bold);
  EXPECT_EQ(box.currentCharFormat().foreground().color(), QColor(255, 0, 0));
  EXPECT_EQ(box.textCursor().currentList(), nullptr);
}

TEST_F(Dialogs, PastedTextIsLimitedToWhatFitsOnAMap) {
  RichTextBox box(nullptr);
  Paste(box, Sized("72pt", "Heading") + Sized("9.75pt", QString("word ").repeated(400)));
  EXPECT_EQ(box.toPlainText().size(), 2007);
  EXPECT_EQ(box.currentCharFormat().fontPointSize(), 9.75);
  box.clear();
  Paste(box, Sized("30000px", QString("AM ").repeated(2000)));
  EXPECT_EQ(box.currentCharFormat().intProperty(QTextFormat::FontPixelSize), kMaxFontSize);
  EXPECT_LT(box.toPlainText().size(), 500);
  box.clear();
  Paste(box, "<TABLE><tr><td colspan=60000 rowspan=9999>w<b>id</b>e</td></tr>" +
                 QString("<tr><td>y").repeated(500) + "</table>");
  EXPECT_EQ(box.toPlainText(), "wide" + QString("\ny").repeated(500));
  box.clear();
  QString sizes;
  for (int i = 0; i < 500; ++i) sizes += Sized(qPrintable(QString("%1pt").arg(8 + i * 0.1)), "a");
  for (int i = 0; i < 3; ++i) Paste(box, sizes);
  QSet<double> seen;
  for (const QTextFormat& kept : box.document()->allFormats()) {
    seen.insert(kept.toCharFormat().fontPointSize());
  }
  EXPECT_LT(seen.size(), 70);
  EXPECT_LT(box.document()->allFormats().size(), 600);
  const QString huge(10'000'000, 'x');
  for (int i = 0; i < 2; ++i) Paste(box, huge, huge);
  EXPECT_LE(box.toPlainText().size(), 10'000);
  box.selectAll();
  QTextCharFormat format;
  format.setFontPointSize(512);
  box.Format(format);
  EXPECT_LE(box.currentCharFormat().fontPointSize(), 13);
}

TEST_F(Dialogs, OneFileCanBeDropped) {
  ASSERT_TRUE(QDir().mkdir("a\xc3\xa4"));
  const std::string path = folder.File("a\xc3\xa4/tile.bmp");
  QImage tile(30, 20, QImage::Format_RGB32);
  tile.fill(Qt::blue);
  ASSERT_TRUE(tile.save(QString::fromStdString(path)));
  const auto drop = [](QWidget* target, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::MoveAction | Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent event({5, 5}, Qt::MoveAction | Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &event);
    QCoreApplication::processEvents();
    EXPECT_EQ(event.dropAction(), Qt::CopyAction);
    return enter.isAccepted();
  };
  const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
  const QUrl place = QUrl::fromLocalFile(QString::fromStdString(folder.File("")));
  const std::vector<QList<QUrl>> refused = {{}, {place}, {file, file}, {QUrl("http://a/tile.bmp")}};
  for (const QList<QUrl>& urls : refused) EXPECT_FALSE(drop(Find("Canvas"), urls));
  EXPECT_FALSE(form.document.HasCurrentFile);
  EXPECT_TRUE(drop(Find("Canvas"), {file}));
  EXPECT_EQ(form.document.CurrentFile, path);
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  auto* files = Find<QListWidget>("File1");
  EXPECT_TRUE(drop(files->viewport(), {file}));
  ASSERT_NE(files->currentItem(), nullptr);
  EXPECT_EQ(files->currentItem()->text(), "tile.bmp");
  EXPECT_EQ(form.document.StatusText, "Custom tile selected: tile.bmp");
  EXPECT_TRUE(platform.boxes.empty());
}

}  // namespace
}  // namespace morvane
