#include "document/MapFiles.h"

#include <gtest/gtest.h>

#include "palette/CustomTiles.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

using Boxes = std::vector<SeenBox>;

struct MapFiles : testing::Test, Editor {
  Picture drawn = Speckled(60, 60);

  MapFiles() { BitBlt(document.Canvas.hDC(), 0, 0, 60, 60, drawn.View(), 0, 0); }

  void HaveFile(const std::string& path) {
    document.CurrentFile = path;
    document.HasCurrentFile = true;
    SetTitle(document);
  }
  void ExpectFile(const std::string& path) const {
    EXPECT_TRUE(document.HasCurrentFile);
    EXPECT_EQ(document.CurrentFile, path);
    EXPECT_EQ(document.Caption, "Morvane - " + path.substr(path.rfind('/') + 1));
  }
  void ExpectDialog(const std::vector<std::string>& expected) const {
    const auto& [title, filter, name, folder] = platform.dialogs.at(platform.dialogs.size() - 1);
    EXPECT_EQ((std::vector{title, filter, name, folder}), expected);
  }
};

TEST_F(MapFiles, ANameIsChosenOnce) {
  platform.settings["Map/Dir"] = "/maps";
  document.CurrentFile = "/maps/earlier.bmp";
  platform.chosenFiles = {"/maps/first"};
  mnuFileSave_Click(document);
  ExpectDialog({"Save As", "Map files (*.bmp)|*.bmp", "/maps/earlier.bmp", "/maps"});
  ExpectFile("/maps/first");
  EXPECT_EQ(platform.boxes, Boxes());
  FillBox(document.Canvas.hDC(), {0, 0, 9, 9}, 0);
  mnuFileSave_Click(document);
  EXPECT_EQ(platform.files["/maps/first"], WriteBmp(document.Canvas.Image()));
  EXPECT_EQ(platform.boxes, (Boxes{{"Map saved as /maps/first", BoxStyle::OkOnly, "Morvane"}}));

  platform.files["/maps/small.bmp"] = WriteBmp(drawn.View());
  platform.chosenFiles = {"/maps/small.bmp"};
  mnuFileOpen_Click(document);
  ExpectDialog({"Open", "Map files (*.bmp)|*.bmp", "", "/maps"});
  ExpectFile("/maps/small.bmp");
  mnuFileSave_Click(document);
  EXPECT_EQ(platform.files["/maps/small.bmp"], WriteBmp(document.Canvas.Image()));
  EXPECT_EQ(platform.dialogs.size(), 2U);
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
  mnuFileSaveAs_Click(document);  // canceled
  ExpectFile("/maps/b.bmp");
  EXPECT_EQ(platform.files["/maps/b.bmp"], WriteBmp(document.Canvas.Image()));
  const SeenBox question{"File already exists. Are you sure?", BoxStyle::YesNoExclamation,
                         "Warning"};
  EXPECT_EQ(platform.boxes, Boxes(2, question));
}

TEST_F(MapFiles, AFailureIsReportedAndChangesNothing) {
  Bytes cut = WriteBmp(drawn.View());
  cut.resize(cut.size() / 2);
  HaveFile("/maps/a.bmp");
  platform.files = {
      {"/cut.bmp", cut}, {"/text.bmp", {'h', 'i'}}, {"/empty.bmp", {}}, {"/maps/a.bmp", {1}}};
  platform.unwritable = {"/maps"};
  const std::map<std::string, Bytes> files = platform.files;
  const Picture map = Map();
  platform.chosenFiles = {"/maps/b.bmp", "/cut.bmp", "/text.bmp", "/empty.bmp", "/missing.bmp"};
  mnuFileSave_Click(document);
  mnuFileSaveAs_Click(document);
  for (int i = 0; i < 5; ++i) mnuFileOpen_Click(document);  // the last one is canceled
  Boxes expected;
  for (const char* text : {"saved.\n\n/maps/a.bmp\n\nNo space left on device",
                           "saved.\n\n/maps/b.bmp\n\nNo space left on device",
                           "opened.\n\n/cut.bmp\n\nThe file ends too early.",
                           "opened.\n\n/text.bmp\n\nThis is not a picture that can be read.",
                           "opened.\n\n/empty.bmp\n\nThe file is empty.",
                           "opened.\n\n/missing.bmp\n\nThere is no such file."}) {
    expected.push_back(
        {std::string("The map could not be ") + text, BoxStyle::OkExclamation, "Morvane"});
  }
  EXPECT_EQ(platform.boxes, expected);
  EXPECT_EQ(platform.files, files);
  EXPECT_EQ(Difference(Map(), map), "");
  ExpectFile("/maps/a.bmp");
}

TEST_F(MapFiles, ADamagedFileIsUsedWithAWarning) {
  platform.files["/custom/bad.bmp"] =
      BmpMaker{.bits = 8, .data = {0, 0, 0, 0}}.Make();  // without a palette
  OpenMap(document, "/custom/bad.bmp");
  EXPECT_EQ(document.StatusText, "bad.bmp is damaged. Parts of the map may be wrong.");
  ExpectFile("/custom/bad.bmp");
  Dir1_Change(palette, "/custom");
  File1_Click(palette, "bad.bmp");
  EXPECT_EQ(document.StatusText,
            "Custom tile selected: bad.bmp. The file is damaged, and parts of the picture may be "
            "wrong.");
  EXPECT_EQ(palette.Label2, "bad.bmp");
}

TEST_F(MapFiles, ExitAlwaysAsks) {
  platform.answers = {Answer::Cancel, Answer::No};
  EXPECT_TRUE(form.Form_Unload());
  EXPECT_FALSE(form.Form_Unload());
  const SeenBox question{"Do you want to save your map?", BoxStyle::YesNoCancelQuestion, "Save?"};
  EXPECT_EQ(platform.boxes, Boxes(2, question));
  EXPECT_TRUE(platform.files.empty());
  form.EndRun();
  EXPECT_TRUE(platform.snapshot.empty());
}

TEST_F(MapFiles, ExitWithoutASaveLeavesARescueCopy) {
  const Bytes map = WriteBmp(document.Canvas.Image());
  const auto exit = [&](const std::string& reason, const std::string& folder) {
    platform.answers = {Answer::Yes};
    EXPECT_FALSE(form.Form_Unload());
    const std::string& text = platform.boxes.back().text;
    const std::string copy = text.substr(text.rfind('\n') + 1);
    EXPECT_EQ(text, reason + "\n\nA rescue copy was saved as\n\n" + copy);
    EXPECT_TRUE(copy.starts_with(folder + "/Morvane rescue 20")) << copy;
    EXPECT_EQ(platform.files[copy], map);
  };
  exit("The map was not saved.", "/home");  // no file was chosen
  HaveFile("/maps/a.bmp");
  platform.unwritable = {"/maps", "/home"};
  exit("The map could not be saved.\n\n/maps/a.bmp\n\nNo space left on device", "/tmp");
  form.SessionEnds(false);
  EXPECT_EQ(platform.files.size(), 2U) << "one copy is enough";
  EXPECT_TRUE(platform.rescueNotes.empty()) << "it has been reported already";

  platform.unwritable.insert("/tmp");
  platform.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  platform.chosenFiles = {"/maps/again.bmp", "/usb/a.bmp"};
  platform.boxes.clear();
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(platform.files["/usb/a.bmp"], map);
}

}  // namespace
}  // namespace morvane
