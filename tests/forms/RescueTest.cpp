#include "document/Rescue.h"

#include <utime.h>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

constexpr const char* kSnapshot = "mvtmp.~mp";

struct Rescue : FormFixture {
  const Bytes painted = WriteBmp(Speckled(30, 20).View());

  Rescue() { platform.rescueFolders = {"/gone", folder.File("")}; }
  /// A killed run left a snapshot.
  void LeaveSnapshot(const Bytes& map) {
    platform.DeleteSnapshot();
    WriteFile(kSnapshot, map);
    const utimbuf time{1'000'000'000, 1'000'000'000};
    EXPECT_EQ(utime(kSnapshot, &time), 0);
  }
  /// The rescue copy that the next run reports.
  std::string NextReport() const {
    ScriptedPlatform nextPlatform;
    nextPlatform.rescueFolders = platform.rescueFolders;
    MainForm next(nextPlatform, &LoadArtSheet);
    next.Form_Initialize();
    for (int i = 0; i < 2; ++i) ReportRescueCopies(next.document);
    next.EndRun();
    if (nextPlatform.boxes.empty()) return "";
    EXPECT_EQ(nextPlatform.boxes.size(), 1U);
    const std::string& text = nextPlatform.boxes[0].text;
    std::string path = QString::fromStdString(text).section('\n', 2, 2).toStdString();
    EXPECT_EQ(text, "Morvane did not end properly last time. The map was saved as\n\n" + path +
                        "\n\nThe last stroke may be missing.");
    return path;
  }
};

TEST_F(Rescue, ASnapshotOfAKilledRunIsMovedOrCopied) {
  const QTemporaryDir elsewhere("/dev/shm/rescue-XXXXXX");  // usually another volume
  platform.NoteRescueCopy("/gone/deleted.bmp");
  for (const std::string& copies : {folder.File("copies"), elsewhere.path().toStdString()}) {
    std::filesystem::create_directory(copies);
    platform.rescueFolders = {"/gone", copies};
    for (const char* end : {".bmp", " (2).bmp"}) {
      LeaveSnapshot(painted);
      const std::string copy = copies + "/Morvane rescue 2001-09-09 01.46" + end;
      EXPECT_EQ(NextReport(), copy);
      EXPECT_EQ(NextReport(), "");
      EXPECT_EQ(ReadFile(copy), painted);
      EXPECT_FALSE(QFile::exists(kSnapshot));
    }
  }
  LeaveSnapshot(painted);
  platform.rescueFolders = {"/gone"};
  EXPECT_EQ(NextReport(), "");
  EXPECT_EQ(ReadFile(kSnapshot), painted) << "no folder takes it";
  Press(5, 5);
  for (int i = 0; i < 2; ++i) form.RescueAtTermination();
  EXPECT_EQ(MapIn(kSnapshot), Map()) << "the map at the end of this run replaces it";
}

TEST_F(Rescue, BrokenAndBlankSnapshotsAreNotKept) {
  Bytes cut = painted;
  cut.pop_back();
  Picture grid(2000, 1500, 0x808080);
  for (int i = 19; i < 1428; i += 20) FillBox(grid.Draw(), {i, 0, i + 1, 1164}, 0x123456);
  for (int i = 19; i < 1164; i += 20) FillBox(grid.Draw(), {0, i, 1428, i + 1}, 0x123456);
  for (const Bytes& worthless : {cut, WriteBmp(grid.View()), WriteBmp(Picture(1, 1, 0).View()),
                                 WriteBmp(Cut(grid.View(), {0, 0, 15, 100}).View())}) {
    LeaveSnapshot(worthless);
    EXPECT_EQ(NextReport(), "");
    EXPECT_EQ(NamesIn("."), "");
  }
  for (const auto& [x, y] : {std::pair(0, 0), {19, 0}, {700, 700}, {1999, 1499}, {1439, 5}}) {
    Picture touched = grid;
    SetPixelV(touched.Draw(), x, y, 0xABCDEF);
    EXPECT_FALSE(IsBlankMap(touched.View())) << x << ',' << y;
  }
}

TEST_F(Rescue, OnlyUnsavedMapsAreCopied) {
  WriteFile("small.bmp", painted);
  const auto copies = [this] {
    EXPECT_FALSE(form.SessionEnds(false));
    return RescueCopiesIn(".").size();
  };
  EXPECT_EQ(copies(), 0) << "the map is blank";
  OpenMap(document, folder.File("small.bmp"));
  EXPECT_EQ(copies(), 0) << "the map is as in its file";
  WriteFile("small.bmp", WriteBmp(Speckled(2000, 20).View()));
  EXPECT_EQ(copies(), 1) << "another program replaced the file";
  Press(5, 5);
  const Bytes undo = ReadFile(kSnapshot);
  EXPECT_EQ(copies(), 2);
  EXPECT_EQ(ReadFile(kSnapshot), undo);
  Press(45, 5);
  mnuFileSave_Click(document);
  EXPECT_EQ(copies(), 2) << "the map was saved";
  form.RescueAtTermination();
  EXPECT_TRUE(platform.RescueNotes().empty());
}

TEST_F(Rescue, TheEndOfADesktopSessionAsksAndCopiesOnce) {
  Press(5, 5);
  platform.answers = {Answer::Cancel, Answer::No};
  EXPECT_TRUE(form.SessionEnds(true));
  EXPECT_FALSE(form.SessionEnds(true));
  EXPECT_EQ(platform.boxes.size(), 2U);
  EXPECT_FALSE(form.SessionEnds(false));
  EXPECT_EQ(NamesIn("."), kSnapshot);
  Press(45, 5);  // the session continued
  // It ends again, during the exit question.
  platform.onNextBox = [this] { EXPECT_FALSE(form.SessionEnds(true)); };
  platform.answers = {Answer::Cancel};
  EXPECT_TRUE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(NextReport(), "");
  form.RescueAtTermination();
  platform.NoteRescueCopy(folder.File("other.bmp"));
  platform.DeleteRescueNotes({folder.File("other.bmp")});
  EXPECT_EQ(MapIn(NextReport()), Map());
  EXPECT_EQ(NextReport(), "");
}

}  // namespace
}  // namespace morvane
