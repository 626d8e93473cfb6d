#include <QPrintDialog>
#include <QPrinter>

#include "platform/Images.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

using PlatformDialogs = FormFixture;

TEST_F(PlatformDialogs, MessagesHaveTheirButtonsAndAnswerToTheirLetters) {
  const std::map<char, Answer> answers = {
      {'y', Answer::Yes}, {'n', Answer::No}, {'c', Answer::Cancel}, {'o', Answer::Ok}};
  const std::vector<std::tuple<BoxStyle, QMessageBox::Icon, std::string>> rows = {
      {BoxStyle::OkOnly, QMessageBox::NoIcon, "o"},
      {BoxStyle::YesNoCancelQuestion, QMessageBox::Question, "ync"},
      {BoxStyle::YesNoQuestion, QMessageBox::Question, "yn"},
      {BoxStyle::OkExclamation, QMessageBox::Warning, "o"},
      {BoxStyle::YesNoExclamation, QMessageBox::Warning, "yn"}};
  document.StatusText = "status";
  for (const auto& [style, icon, keys] : rows) {
    for (const char key : keys + '\r') {
      WhenOpen<QMessageBox>([&, icon = icon, count = std::ssize(keys)](QMessageBox& box) {
        EXPECT_EQ(box.icon(), icon);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.buttons().size(), count);
        EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "status");
        QTest::keyClick(&box, key);
      });
      const char expected = key == '\r' ? keys[0] : key;
      EXPECT_EQ(platform.QtPlatform::MsgBox("", style, ""), answers.at(expected));
    }
  }
}

/// Types a name over the one that a file dialog shows.
void ChooseFile(QFileDialog& box, const QString& shown, const QString& typed) {
  auto* name = box.findChild<QLineEdit*>("fileNameEdit");
  EXPECT_EQ(name->text(), shown);
  QTest::sendKeyEvent(QTest::Click, name, Qt::Key_unknown, typed, {});
  QTest::keyClick(name, Qt::Key_Return);
  QCoreApplication::processEvents();
  if (box.isVisible()) box.reject();
}

TEST_F(PlatformDialogs, FilesAreChosenByNameInTheRightFolder) {
  std::filesystem::create_directory("maps");
  const std::string maps = folder.File("maps/");
  const std::string odd = maps + "\xe4.bmp";  // not UTF-8
  WriteFile(odd, {});
  const QString oddName = QString(QChar::ReplacementCharacter) + ".bmp";
  const std::vector<std::tuple<FileDialog, bool, QString, std::string>> rows = {
      {{"Open", "Map files (*.bmp)|*.bmp", "", maps}, false, oddName, odd},
      {{"Open", "Map files (*.bmp)|*.bmp", "", "/gone"}, false, TextOf(maps) + oddName, odd},
      {{"Save As", "Map files (*.bmp)|*.bmp", "", ""}, true, "new", maps + "new"},
      {{"Save As", "All (*.*)|*.*", maps + "old.bmp", maps}, true, "", maps + "old.bmp"},
      {{"Save As", "All (*.*)|*.*", "", maps}, true, "", ""}};  // not closed by Return
  for (const auto& [dialog, saves, typed, chosen] : rows) {
    WhenOpen<QFileDialog>([&, dialog = dialog, typed = typed, chosen = chosen](QFileDialog& box) {
      EXPECT_EQ(box.windowTitle(), TextOf(dialog.DialogTitle));
      EXPECT_EQ(box.nameFilters(), QStringList(TextOf(dialog.Filter).section('|', 0, 0)));
      EXPECT_EQ(box.directory(), QDir(TextOf(maps)));
      EXPECT_TRUE(box.testOption(QFileDialog::DontConfirmOverwrite)) << "the core asks";
      EXPECT_EQ(Find<QLabel>("SimpleText")->text(), TextOf(chosen));
      ChooseFile(box, dialog.FileName.empty() ? "" : "old.bmp", typed);
    });
    document.StatusText = chosen;
    EXPECT_EQ(saves ? platform.QtPlatform::ShowSave(dialog) : platform.QtPlatform::ShowOpen(dialog),
              chosen);
  }
  WhenOpen<QFileDialog>(
      [this](QFileDialog& box) { ChooseFile(box, "", TextOf(folder.File("maps"))); });
  EXPECT_EQ(platform.QtPlatform::BrowseForFolder("Select it") + '/', maps);
}

TEST_F(PlatformDialogs, AColourIsPickedFromThePresentOne) {
  WhenOpen<QColorDialog>([](QColorDialog& dialog) {
    EXPECT_EQ(dialog.currentColor(), QColor(255, 128, 0));
    dialog.setCurrentColor(QColor(1, 2, 3));
    dialog.accept();
  });
  std::uint32_t color = 0x0080FF;
  QtPlatform().ShowColor(color);
  EXPECT_EQ(color, 0x030201U);
}

/// The picture that a program makes of a file.
QImage Converted(const char* program, const QStringList& arguments, const char* picture) {
  EXPECT_EQ(QProcess::execute(program, arguments), 0);
  return QImage(picture).convertToFormat(QImage::Format_RGB32);
}

/// Chooses a PDF file in the setup dialog, and prints.
Failure PrintInto(QtPlatform& platform, const std::string& path, const Picture& map) {
  WhenOpen<QPrintDialog>([&path](QPrintDialog& dialog) {
    EXPECT_EQ(dialog.printer()->docName(), kProgramName);
    dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog.printer()->setOutputFileName(QString::fromStdString(path));
    dialog.reject();
  });
  platform.ShowPrinterSetup("Print Setup");
  return platform.Print(map.View());
}

TEST(Print, PutsTheMapAtTheTopLeftInItsNaturalSize) {
  const StartFolder folder;
  QtPlatform platform;
  const Picture map = Speckled(192, 96);  // two inches by one
  ASSERT_EQ(PrintInto(platform, folder.File("map.pdf"), map), "");
  EXPECT_EQ(Converted("pdfimages", {"-png", "map.pdf", "in"}, "in-000.png"), ImageOver(map.View()));
  // At 254 dots to the inch, which are ten to the millimetre.
  const QImage paper =
      Converted("pdftoppm", {"-r", "254", "-png", "-singlefile", "map.pdf", "page"}, "page.png");
  const QRect place =
      QRegion(QPixmap::fromImage(paper).createMaskFromColor(Qt::white)).boundingRect();
  EXPECT_NEAR(place.width(), 508, 3);
  EXPECT_NEAR(place.height(), 254, 3);
  EXPECT_LT(std::max(place.left(), place.top()), 100) << "within a centimetre of the paper's edge";
}

TEST(Print, ReportsAMissingPrinterAndAnUnwritableFile) {
  QtPlatform platform;
  const Picture map(10, 10);
  EXPECT_EQ(platform.Print(map.View()),
            "There is no printer. Choose one, or a PDF file, with File > Print Setup.");
  for (const char* path : {"/proc/no/map.pdf", "/dev/full"}) {
    EXPECT_NE(PrintInto(platform, path, map).find(path), std::string::npos);
  }
}

}  // namespace
}  // namespace morvane
