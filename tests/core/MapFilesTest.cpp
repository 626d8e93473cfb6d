#include "document/MapFiles.h"

#include <gtest/gtest.h>

#include "document/bmp/Bmp.h"
#include "palette/CustomTiles.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

struct MapFiles : testing::Test, Editor {
  const SeenBox overwriteQuestion{"File already exists. Are you sure?", BoxStyle::YesNoExclamation,
                                  "Warning"};
  const SeenBox exitQuestion{"Do you want to save your map?", BoxStyle::YesNoCancelQuestion,
                             "Save?"};
  Picture drawn = Speckled(60, 60);

  MapFiles() { BitBlt(document.Canvas.hDC(), 0, 0, 60, 60, drawn.View(), 0, 0); }

  void HaveFile(const std::string& path) {
    document.CurrentFile = path;
    document.HasCurrentFile = true;
    SetTitle(document);
  }
};

TEST_F(MapFiles, SaveWithoutAFileIsSaveAs) {
  platform.settings["Map/Dir"] = "/maps";
  document.CurrentFile = "/maps/earlier.bmp";
  platform.chosenFiles = {"/maps/first"};
  mnuFileSave_Click(document);
  ASSERT_EQ(platform.dialogs.size(), 1U);
  const FileDialog& dialog = platform.dialogs[0];
  EXPECT_EQ(dialog.DialogTitle, "Save As");
  EXPECT_EQ(dialog.Filter, "Map files (*.bmp)|*.bmp");
  EXPECT_EQ(dialog.FileName, "/maps/earlier.bmp");
  EXPECT_EQ(dialog.InitDir, "/maps");
  EXPECT_EQ(platform.files["/maps/first"], WriteBmp(document.Canvas.Image()));
  EXPECT_EQ(document.CurrentFile, "/maps/first");
  EXPECT_EQ(document.Caption, "Morvane - first");
  EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(MapFiles, SaveReplacesTheFileAndReportsIt) {
  HaveFile("/maps/a.bmp");
  platform.files["/maps/a.bmp"] = {1, 2, 3};
  mnuFileSave_Click(document);
  EXPECT_TRUE(platform.dialogs.empty());
  EXPECT_EQ(platform.files["/maps/a.bmp"], WriteBmp(document.Canvas.Image()));
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_EQ(platform.boxes[0], (SeenBox{"Map saved as /maps/a.bmp", BoxStyle::OkOnly, "Morvane"}));
}

TEST_F(MapFiles, SaveAsAsksBeforeItReplacesAFile) {
  platform.files["/maps/b.bmp"] = {9};
  platform.chosenFiles = {"/maps/b.bmp", "/maps/b.bmp"};
  platform.answers = {Answer::No, Answer::Yes};
  mnuFileSaveAs_Click(document);
  EXPECT_EQ(platform.files["/maps/b.bmp"], Bytes{9});
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_EQ(document.Caption, "Morvane");
  mnuFileSaveAs_Click(document);
  EXPECT_EQ(document.Caption, "Morvane - b.bmp");
  EXPECT_EQ(platform.boxes, (std::vector<SeenBox>{overwriteQuestion, overwriteQuestion}));
  mnuFileSaveAs_Click(document);  // cancelled
  EXPECT_EQ(document.CurrentFile, "/maps/b.bmp");
}

TEST_F(MapFiles, AFailedSaveIsReportedAndChangesNothing) {
  HaveFile("/maps/a.bmp");
  platform.files["/maps/a.bmp"] = {1};
  platform.unwritable = {"/maps"};
  mnuFileSave_Click(document);
  platform.chosenFiles = {"/maps/other.bmp"};
  mnuFileSaveAs_Click(document);
  ASSERT_EQ(platform.boxes.size(), 2U);
  EXPECT_EQ(platform.boxes[0].text,
            "The map could not be saved.\n\n/maps/a.bmp\n\nNo space left on device");
  EXPECT_EQ(platform.boxes[0].title, "Morvane");
  EXPECT_EQ(platform.files["/maps/a.bmp"], Bytes{1});
  EXPECT_EQ(document.CurrentFile, "/maps/a.bmp");
  EXPECT_EQ(document.Caption, "Morvane - a.bmp");
}

TEST_F(MapFiles, OpenPutsThePictureAtTheTopLeft) {
  platform.files["/maps/small.bmp"] = WriteBmp(drawn.View());
  platform.chosenFiles = {"/maps/small.bmp"};
  FillBox(document.Canvas.hDC(), {0, 0, 615, 483}, 0);
  const int snapshots = platform.snapshots;
  mnuFileOpen_Click(document);
  EXPECT_EQ(platform.dialogs[0].DialogTitle, "Open");
  EXPECT_EQ(platform.dialogs[0].FileName, "");
  EXPECT_TRUE(Holds(document.Canvas.Image(), 0, 0, {60, 60}, drawn.View()));
  EXPECT_EQ(GetPixel(document.Canvas.Image(), 60, 0), kWhite);
  EXPECT_EQ(document.Canvas.Width(), 619);
  EXPECT_EQ(document.Caption, "Morvane - small.bmp");
  EXPECT_TRUE(document.HasCurrentFile);
  EXPECT_EQ(platform.snapshots, snapshots);
  EXPECT_FALSE(document.mnuEditUndoEnabled);
  mnuFileSave_Click(document);
  EXPECT_EQ(platform.files["/maps/small.bmp"], WriteBmp(document.Canvas.Image()));
}

TEST_F(MapFiles, OtherFilesAreRefusedWithAReason) {
  HaveFile("/maps/a.bmp");
  const Picture before = Map();
  Bytes cut = WriteBmp(drawn.View());
  cut.resize(cut.size() / 2);
  platform.files = {
      {"/cut.bmp", cut}, {"/text.bmp", {'h', 'e', 'l', 'l', 'o'}}, {"/empty.bmp", {}}};
  const std::map<std::string, std::string> reasons = {
      {"/cut.bmp", "The file ends too early."},
      {"/text.bmp", "This is not a picture that can be read."},
      {"/empty.bmp", "The file is empty."},
      {"/missing.bmp", "There is no such file."}};
  for (const auto& [path, reason] : reasons) {
    platform.chosenFiles = {path};
    mnuFileOpen_Click(document);
    const std::string& text = platform.boxes.back().text;
    EXPECT_TRUE(text.starts_with("The map could not be opened.\n\n" + path)) << text;
    EXPECT_TRUE(text.ends_with(reason)) << text;
    EXPECT_EQ(Difference(Map(), before), "");
    EXPECT_EQ(document.CurrentFile, "/maps/a.bmp");
  }
  mnuFileOpen_Click(document);  // cancelled
  EXPECT_EQ(platform.boxes.size(), reasons.size());
}

TEST_F(MapFiles, ADamagedFileIsUsedWithAWarning) {
  const Bytes file = BmpMaker{.bits = 8, .data = {0, 0, 0, 0}}.Make();  // it has no palette
  platform.files = {{"/custom/bad.bmp", file}};
  OpenMap(document, "/custom/bad.bmp");
  EXPECT_EQ(document.StatusText, "bad.bmp is damaged. Parts of the map may be wrong.");
  EXPECT_EQ(document.Caption, "Morvane - bad.bmp");
  Dir1_Change(palette, "/custom");
  File1_Click(palette, "bad.bmp");
  EXPECT_EQ(document.StatusText,
            "Custom tile selected: bad.bmp. The file is damaged, and parts of the picture may be "
            "wrong.");
  EXPECT_EQ(palette.Label2, "bad.bmp");
}

TEST_F(MapFiles, ExitAlwaysAsks) {
  platform.answers = {Answer::Cancel};
  EXPECT_TRUE(form.Form_Unload());
  EXPECT_FALSE(platform.snapshot.empty());
  platform.answers = {Answer::No};
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_EQ(platform.boxes, (std::vector<SeenBox>{exitQuestion, exitQuestion}));
  EXPECT_TRUE(platform.files.empty());
  form.EndRun();
  EXPECT_TRUE(platform.snapshot.empty());
}

TEST_F(MapFiles, ExitWithoutASaveLeavesARescueCopy) {
  const Bytes map = WriteBmp(document.Canvas.Image());
  const auto exit = [this](const std::string& beginning) {
    platform.boxes.clear();
    EXPECT_FALSE(form.Form_Unload());
    const std::string& text = platform.boxes.back().text;
    std::string copy = text.substr(text.rfind('\n') + 1);
    EXPECT_EQ(text, beginning + "\n\nA rescue copy was saved as\n\n" + copy);
    return copy;
  };
  platform.answers = {Answer::Yes};  // and no file chosen
  const std::string first = exit("The map was not saved.");
  EXPECT_TRUE(first.starts_with("/home/Morvane rescue 20")) << first;
  EXPECT_EQ(platform.files[first], map);
  HaveFile("/maps/a.bmp");
  platform.unwritable = {"/maps", "/home"};
  platform.answers = {Answer::Yes};
  const std::string second =
      exit("The map could not be saved.\n\n/maps/a.bmp\n\nNo space left on device");
  EXPECT_TRUE(second.starts_with("/tmp/Morvane rescue 20")) << second;
  EXPECT_EQ(platform.files[second], map);
  EXPECT_TRUE(platform.rescueNotes.empty()) << "the user has been told";
  platform.unwritable = {"/maps", "/home", "/tmp"};
  platform.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  platform.chosenFiles = {"/maps/again.bmp", "/usb/a.bmp"};
  platform.boxes.clear();
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(platform.files["/usb/a.bmp"], map);
}

}  // namespace
}  // namespace morvane
