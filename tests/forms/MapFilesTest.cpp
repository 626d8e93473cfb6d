#include "document/MapFiles.h"

#include "palette/CustomTiles.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

using MapFiles = FormFixture;

TEST_F(MapFiles, ADamagedFileIsUsedWithAWarning) {
  WriteFile("bad.bmp", BmpMaker{.bits = 8, .data = {0, 0, 0, 0}}.Make());  // without a palette
  OpenMap(document, folder.File("bad.bmp"));
  EXPECT_EQ(document.StatusText, "bad.bmp is damaged. Parts of the map may be wrong.");
  EXPECT_EQ(document.Caption, "Morvane - bad.bmp");
  File1_Drop(palette, folder.File("bad.bmp"));
  EXPECT_EQ(document.StatusText,
            "Custom tile selected: bad.bmp. The file is damaged, and parts of the picture may be "
            "wrong.");
  EXPECT_EQ(palette.Label2, "bad.bmp");
}

TEST_F(MapFiles, ExitWithoutASaveLeavesARescueCopy) {
  const auto exit = [&](const std::string& reason) {
    platform.answers = {Answer::Yes};
    platform.boxes.clear();
    EXPECT_FALSE(form.Form_Unload());
    const std::string& text = platform.boxes.back().text;
    const std::string copy = text.substr(text.rfind('\n') + 1);
    EXPECT_EQ(text, reason + "\n\nA rescue copy was saved as\n\n" + copy);
    EXPECT_TRUE(copy.starts_with(folder.File("Morvane rescue 20"))) << copy;
    EXPECT_EQ(MapIn(copy), Map());
  };
  Press(5, 5);
  platform.rescueFolders = {"/gone", folder.File("")};
  exit("The map was not saved.");  // no file was chosen
  document.CurrentFile = "/gone/a.bmp";
  document.HasCurrentFile = true;
  exit("The map could not be saved.\n\n/gone/a.bmp\n\nThe folder doesn't exist.");
  const std::string names = NamesIn(".");
  EXPECT_FALSE(form.SessionEnds(false));
  EXPECT_EQ(NamesIn("."), names) << "one copy is enough";

  platform.rescueFolders = {"/gone"};
  platform.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  platform.chosenFiles = {"/gone/again.bmp", folder.File("chosen.bmp")};
  platform.boxes.clear();
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(MapIn("chosen.bmp"), Map());
  form.RescueAtTermination();
  EXPECT_TRUE(platform.RescueNotes().empty()) << "the copies have been reported already";
}

}  // namespace
}  // namespace morvane
