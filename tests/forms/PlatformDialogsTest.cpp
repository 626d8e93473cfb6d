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
      QTimer::singleShot(0, [&, icon = icon, count = std::ssize(keys)] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->icon(), icon);
        EXPECT_EQ(box->buttons().size(), count);
        EXPECT_NE(box->defaultButton(), nullptr);
        EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "status");
        QTest::keyClick(box, key);
      });
      const char expected = key == '\r' ? keys[0] : key;
      EXPECT_EQ(platform.QtPlatform::MsgBox("", style, ""), answers.at(expected));
    }
  }
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
  QtPlatform real;
  for (const auto& [dialog, saves, typed, chosen] : rows) {
    SCOPED_TRACE(chosen);
    QTimer::singleShot(0, [&, dialog = dialog, typed = typed] {
      auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      auto* name = box->findChild<QLineEdit*>("fileNameEdit");
      EXPECT_EQ(box->windowTitle(), TextOf(dialog.DialogTitle));
      EXPECT_EQ(box->nameFilters(), QStringList(TextOf(dialog.Filter).section('|', 0, 0)));
      EXPECT_EQ(box->directory(), QDir(TextOf(maps)));
      EXPECT_EQ(name->text(), dialog.FileName.empty() ? "" : "old.bmp");
      QTest::sendKeyEvent(QTest::Click, name, Qt::Key_unknown, typed, {});
      QTest::keyClick(name, Qt::Key_Return);
      QCoreApplication::processEvents();
      if (box->isVisible()) box->reject();
    });
    EXPECT_EQ(saves ? real.ShowSave(dialog) : real.ShowOpen(dialog), chosen);
  }
}

TEST_F(PlatformDialogs, AColourIsPickedFromThePresentOne) {
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    EXPECT_EQ(dialog->currentColor(), QColor(255, 128, 0));
    dialog->setCurrentColor(QColor(1, 2, 3));
    dialog->accept();
  });
  std::uint32_t color = 0x0080FF;
  QtPlatform().ShowColor(color);
  EXPECT_EQ(color, 0x030201U);
}

}  // namespace
}  // namespace morvane
