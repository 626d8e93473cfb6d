#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include "document/MapFiles.h"
#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "platform/QtDialogs.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

const std::string kLongest = std::string(251, 'n') + ".bmp";  // 255 bytes

/// Saves, names and opens a map, and takes it as a custom tile.
void Use(Session::Window& editor, const std::string& folder, const std::string& name) {
  const std::string path = folder + '/' + name;
  editor.Press(30, 30);
  const Picture map = editor.Map();
  editor.SaveAs(path);
  EXPECT_EQ(editor.platform.boxes.size(), 0U) << editor.platform.boxes.back().text;
  EXPECT_EQ(editor.window.windowHandle()->title(), QString::fromStdString("Morvane - " + name));
  editor.Choose("mnuFileSave");
  EXPECT_EQ(editor.OneBox(), "Map saved as " + path);
  editor.Press(90, 30);
  editor.platform.chosenFiles.push_back(path);
  editor.Choose("mnuFileOpen");
  EXPECT_EQ(editor.Map(), map);

  Dir1_Change(editor.form.palette, folder);
  editor.window.ShowState();
  auto* files = editor.Find<QListWidget>("File1");
  ASSERT_EQ(files->count(), 1) << folder;
  emit files->itemClicked(files->item(0));
  EXPECT_EQ(editor.form.document.StatusText, "Custom tile selected: " + name);
  EXPECT_EQ(Picture(editor.form.palette.Custom.Image()), map);
}

/// The dialog offers the current file; the user agrees.
std::string AgreeToCurrentFile(const std::string& path) {
  QTimer::singleShot(0, [] {
    auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    QMetaObject::invokeMethod(box, "accept");
    if (box->isVisible()) box->reject();
  });
  return AskForFile(nullptr,
                    {.DialogTitle = "Save As",
                     .Filter = "Map files (*.bmp)|*.bmp",
                     .FileName = path,
                     .InitDir = {}},
                    FileDialogMode::Save, QDir::currentPath().toStdString());
}

TEST(Names, OfEveryKindWorkEverywhere) {
  EXPECT_EQ(RunInChild([] {
              Session session;
              TileSetSelector_Click(session.editor.form.palette, kCustomSet);
              const std::string longFolder = std::string(253, 'o') + "é";
              const std::pair<std::string, std::string> rows[] = {
                  {"with space", "a map.bmp"},          {"é漢", "é漢.bmp"},
                  {"line\nbreak", "two\nlines.bmp"},    {longFolder, kLongest},
                  {"marks <b>[*]%1&", "<i>[*]%1&.bmp"},
              };
              for (const auto& [folder, name] : rows) {
                SCOPED_TRACE(name);
                std::filesystem::create_directory(folder);
                const std::string path = session.editor.folder.File(folder.c_str());
                Use(session.editor, path, name);
                EXPECT_EQ(NamesIn(path), name);
                const std::string file = std::filesystem::path(path) / name;
                EXPECT_EQ(AgreeToCurrentFile(file), file);
              }
            }),
            0);
}

TEST(Names, OfOldSystemsWorkAsCustomTilesAndInDialogs) {
  EXPECT_EQ(RunInChild([] {
              Session session;
              Palette& palette = session.editor.form.palette;
              TileSetSelector_Click(palette, kCustomSet);
              const std::filesystem::path folder = std::filesystem::current_path() / "caf\xe9";
              std::filesystem::create_directory(folder);
              session.editor.SaveAs(session.editor.folder.File("map.bmp"));
              std::filesystem::rename("map.bmp", folder / "\xfc.bmp");
              Dir1_Change(palette, std::filesystem::current_path());
              session.editor.window.ShowState();
              auto* folders = session.editor.Find<QListWidget>("Dir1");
              emit folders->itemDoubleClicked(folders->item(folders->count() - 1));
              EXPECT_EQ(palette.File1.Path(), folder);
              auto* files = session.editor.Find<QListWidget>("File1");
              ASSERT_EQ(files->count(), 1);
              emit files->itemClicked(files->item(0));
              EXPECT_EQ(Picture(palette.Custom.Image()), session.editor.Map());
              const std::string file = folder / "\xfc.bmp";
              EXPECT_EQ(AgreeToCurrentFile(file), file);
              EXPECT_TRUE(session.editor.platform.FileExists(file));
            }),
            0);
}

TEST(Names, ThatAreTooLongAreReported) {
  EXPECT_EQ(RunInChild([] {
              Session session;
              QString report;
              QTimer::singleShot(0, [&report] {
                auto* box = QApplication::activeModalWidget();
                box->findChild<QLineEdit*>("fileNameEdit")->setText(QString(300, 'n'));
                QTimer::singleShot(0, [&report] {
                  auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                  if (message == nullptr) return;
                  report = message->text();
                  message->accept();
                });
                auto* row = box->findChild<QDialogButtonBox*>("buttonBox");
                row->button(QDialogButtonBox::Save)->click();
                static_cast<QDialog*>(box)->reject();
              });
              EXPECT_EQ(AskForFile(nullptr,
                                   {.DialogTitle = "", .Filter = "", .FileName = "", .InitDir = ""},
                                   FileDialogMode::Save, "/"),
                        "");
              EXPECT_EQ(report, "The file name is too long.");
            }),
            0);
}

}  // namespace
}  // namespace morvane
