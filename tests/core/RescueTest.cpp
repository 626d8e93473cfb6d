#include "document/Rescue.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

struct Rescue : testing::Test, Editor {
  const Bytes painted = WriteBmp(Speckled(30, 20).View());
  std::unique_ptr<MainForm> next;  ///< the next run of the same user

  void Paint(float X = 5) { Canvas_MouseDown(palette, kLeftButton, X, 5); }
  /// The rescue copy that the next run reports.
  std::string NextReport() {
    next = std::make_unique<MainForm>(platform, &SpeckledSheet);
    next->Form_Initialize();
    platform.boxes.clear();
    for (int i = 0; i < 2; ++i) ReportRescueCopies(next->document);
    if (platform.boxes.empty()) return "";
    EXPECT_EQ(platform.boxes.size(), 1U);
    const std::string& text = platform.boxes[0].text;
    const std::size_t begin = text.find('/');
    std::string path = text.substr(begin, text.find('\n', begin) - begin);
    EXPECT_EQ(text, "Morvane did not end properly last time. The map was saved as\n\n" + path +
                        "\n\nThe last stroke may be missing.");
    return path;
  }
  /// Expects one copy of the map, which the next run reports once.
  void ExpectReportedCopy() {
    EXPECT_EQ(platform.files.size(), 1U);
    EXPECT_EQ(platform.files[NextReport()], WriteBmp(document.Canvas.Image()));
    EXPECT_EQ(NextReport(), "");
  }
};

TEST_F(Rescue, ASnapshotOfAKilledRunIsMovedOrCopied) {
  setenv("TZ", "UTC", 1);
  tzset();
  for (const char* folder : {"/home", "/elsewhere"}) {
    platform.leftoverFolder = folder;
    platform.files.clear();
    platform.rescueNotes = {"/home/deleted.bmp"};
    std::map<std::string, Bytes> copies;
    for (const char* end : {".bmp", " (2).bmp"}) {
      const std::string copy = std::string("/home/Morvane rescue 2001-09-09 01.46") + end;
      copies[copy] = platform.leftover = WriteBmp(Speckled(9, 9, copies.size()).View());
      EXPECT_EQ(NextReport(), copy);
      EXPECT_EQ(NextReport(), "");
      EXPECT_EQ(platform.files, copies);
      EXPECT_TRUE(platform.leftover.empty());
    }
  }
  platform.leftover = painted;
  platform.unwritable = {"/"};
  EXPECT_EQ(NextReport(), "");
  EXPECT_EQ(platform.leftover, painted) << "no folder takes it";
  EXPECT_EQ(next->document.UnplacedLeftovers.size(), 1U);
}

TEST_F(Rescue, BrokenAndBlankSnapshotsAreNotKept) {
  Bytes cut = painted;
  cut.pop_back();
  Picture grid(2000, 1500, 0x808080);
  for (int i = 19; i < 1428; i += 20) FillBox(grid.Draw(), {i, 0, i + 1, 1164}, 0x123456);
  for (int i = 19; i < 1164; i += 20) FillBox(grid.Draw(), {0, i, 1428, i + 1}, 0x123456);
  for (const Bytes& worthless :
       {cut, Bytes{1, 2, 3}, WriteBmp(grid.View()), WriteBmp(Picture(1, 1, 0).View()),
        WriteBmp(Cut(grid.View(), {0, 0, 15, 100}).View())}) {
    platform.leftover = worthless;
    EXPECT_EQ(NextReport(), "");
    EXPECT_TRUE(platform.files.empty());
    EXPECT_TRUE(platform.leftover.empty());
  }
  for (const auto& [x, y] : {std::pair(0, 0), {19, 0}, {700, 700}, {1999, 1499}, {1439, 5}}) {
    Picture touched = grid;
    SetPixelV(touched.Draw(), x, y, 0xABCDEF);
    EXPECT_FALSE(IsBlankMap(touched.View())) << x << ',' << y;
  }
}

TEST_F(Rescue, TerminationSavesACopyThatTheNextRunReports) {
  Paint();
  for (int i = 0; i < 2; ++i) form.RescueAtTermination();
  EXPECT_TRUE(platform.snapshot.empty());
  EXPECT_TRUE(platform.boxes.empty());
  ExpectReportedCopy();

  Editor full;  // without space for a copy, the snapshot holds the map
  Canvas_MouseDown(full.palette, kLeftButton, 5, 5);
  full.platform.unwritable = {"/"};
  full.form.RescueAtTermination();
  EXPECT_EQ(full.platform.snapshot, WriteBmp(full.document.Canvas.Image()));

  Editor ended;
  Canvas_MouseDown(ended.palette, kLeftButton, 5, 5);
  ended.form.EndRun();
  ended.form.RescueAtTermination();
  EXPECT_TRUE(ended.platform.files.empty());
}

TEST_F(Rescue, OnlyUnsavedMapsAreCopied) {
  platform.files["/maps/small.bmp"] = painted;
  const auto copies = [this] {
    EXPECT_FALSE(form.SessionEnds(false));
    return platform.files.size() - 1;
  };
  EXPECT_EQ(copies(), 0U) << "the map is blank";
  OpenMap(document, "/maps/small.bmp");
  EXPECT_EQ(copies(), 0U) << "the map is as in its file";
  Paint();
  const Bytes undo = platform.snapshot;
  for (int i = 0; i < 2; ++i) EXPECT_EQ(copies(), 1U);
  EXPECT_EQ(platform.snapshot, undo);
  Paint(45);
  mnuFileSave_Click(document);
  EXPECT_EQ(copies(), 1U) << "the map was saved";
  form.RescueAtTermination();
  EXPECT_TRUE(platform.rescueNotes.empty());
}

TEST_F(Rescue, TheEndOfADesktopSessionAsksAndCopiesOnce) {
  Paint();
  platform.answers = {Answer::Cancel, Answer::No};
  EXPECT_TRUE(form.SessionEnds(true));
  EXPECT_FALSE(form.SessionEnds(true));
  EXPECT_EQ(platform.boxes.size(), 2U);
  EXPECT_FALSE(form.SessionEnds(false));
  EXPECT_TRUE(platform.files.empty());
  Paint(45);  // the session continued
  // It ends again, during the exit question.
  platform.onNextBox = [this] { EXPECT_FALSE(form.SessionEnds(true)); };
  platform.answers = {Answer::Cancel};
  EXPECT_TRUE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(NextReport(), "");
  form.RescueAtTermination();
  ExpectReportedCopy();
}

}  // namespace
}  // namespace morvane
