#include "document/Rescue.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <functional>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

/// The next run of the same user.
struct NextRun {
  FakePlatform& platform;
  MainForm form{platform, &SpeckledSheet};
  Document& document = form.document;

  explicit NextRun(FakePlatform& thePlatform) : platform(thePlatform) { form.Form_Initialize(); }
};

struct Rescue : testing::Test, Editor {
  const Bytes painted = WriteBmp(Speckled(30, 20).View());
  const std::string leftoverCopy = "/home/Morvane rescue 2001-09-09 01.46.bmp";

  Rescue() {
    setenv("TZ", "UTC", 1);
    tzset();
  }
  void Paint(float X = 5) { Canvas_MouseDown(palette, kLeftButton, X, 5); }
  std::vector<std::string> Copies() const {
    std::vector<std::string> copies;
    for (const auto& [path, content] : platform.files) {
      if (path.find("/Morvane rescue ") != std::string::npos) copies.push_back(path);
    }
    return copies;
  }
  /// The message of the next run.
  std::string NextReport() {
    NextRun next(platform);
    platform.boxes.clear();
    ReportRescueCopies(next.document);
    std::string text = platform.boxes.empty() ? "" : platform.boxes[0].text;
    ReportRescueCopies(next.document);
    EXPECT_LE(platform.boxes.size(), 1U);
    return text;
  }
  static std::string ReportOf(const std::string& copy) {
    return "Morvane did not end properly last time. The map was saved as\n\n" + copy +
           "\n\nThe last stroke may be missing.";
  }
};

TEST_F(Rescue, ASnapshotOfAKilledRunIsMovedOrCopied) {
  for (const char* folder : {"/home", "/elsewhere"}) {
    platform.files.clear();
    platform.leftover = painted;
    platform.leftoverFolder = folder;
    EXPECT_EQ(NextReport(), ReportOf(leftoverCopy));
    EXPECT_EQ(NextReport(), "");
    EXPECT_EQ(platform.files[leftoverCopy], painted);
    EXPECT_TRUE(platform.leftover.empty());

    platform.files[leftoverCopy] = {1};
    platform.leftover = painted;
    const std::string second = "/home/Morvane rescue 2001-09-09 01.46 (2).bmp";
    EXPECT_EQ(NextReport(), ReportOf(second));
    EXPECT_EQ(platform.files[second], painted);
    EXPECT_EQ(platform.files[leftoverCopy], Bytes{1});
  }
  platform.leftover = painted;
  platform.unwritable = {"/"};
  const NextRun next(platform);
  EXPECT_EQ(platform.leftover, painted) << "no folder takes it";
  EXPECT_EQ(next.document.UnplacedLeftovers.size(), 1U);
}

TEST_F(Rescue, BrokenAndBlankSnapshotsAreNotKept) {
  Bytes cut = painted;
  cut.pop_back();
  Picture grid(2000, 1500, 0x808080);
  for (int i = 19; i < 1428; i += 20) FillBox(grid.Draw(), {i, 0, i + 1, 1164}, 0x123456);
  for (int i = 19; i < 1164; i += 20) FillBox(grid.Draw(), {0, i, 1428, i + 1}, 0x123456);
  EXPECT_TRUE(IsBlankMap(grid.View()));
  EXPECT_TRUE(IsBlankMap(Picture(1, 1, 0).View()));
  EXPECT_TRUE(IsBlankMap(Cut(grid.View(), {0, 0, 15, 100}).View()));
  for (const Bytes& worthless : {cut, Bytes{1, 2, 3}, WriteBmp(grid.View())}) {
    platform.leftover = worthless;
    const NextRun next(platform);
    EXPECT_TRUE(platform.files.empty());
    EXPECT_TRUE(next.document.RescueCopies.empty());
  }
  for (const auto& [x, y] : {std::pair(0, 0), {19, 0}, {700, 700}, {1999, 1499}, {1439, 5}}) {
    Picture touched = grid;
    SetPixelV(touched.Draw(), x, y, 0xABCDEF);
    EXPECT_FALSE(IsBlankMap(touched.View())) << x << ',' << y;
  }
}

TEST_F(Rescue, TerminationSavesACopyThatTheNextRunReports) {
  Paint();
  form.RescueAtTermination();
  form.RescueAtTermination();
  ASSERT_EQ(Copies().size(), 1U);
  EXPECT_EQ(platform.files[Copies()[0]], WriteBmp(document.Canvas.Image()));
  EXPECT_TRUE(platform.snapshot.empty());
  EXPECT_TRUE(platform.boxes.empty());
  EXPECT_EQ(NextReport(), ReportOf(Copies()[0]));
  EXPECT_EQ(NextReport(), "");
  // Without space for a copy the snapshot holds the map.
  Editor other;
  Canvas_MouseDown(other.palette, kLeftButton, 5, 5);
  other.platform.unwritable = {"/"};
  other.form.RescueAtTermination();
  EXPECT_EQ(other.platform.snapshot, WriteBmp(other.document.Canvas.Image()));
}

TEST_F(Rescue, TerminationCopiesNoBlankOrSavedMap) {
  const auto endAfter = [](const std::function<void(Editor&)>& act) {
    Editor editor;
    act(editor);
    editor.form.RescueAtTermination();
    EXPECT_TRUE(editor.platform.rescueNotes.empty());
    EXPECT_TRUE(editor.platform.snapshot.empty());
  };
  endAfter([](Editor&) {});
  endAfter([](Editor& editor) {
    Canvas_MouseDown(editor.palette, kLeftButton, 5, 5);
    editor.platform.chosenFiles = {"/maps/a.bmp"};
    mnuFileSaveAs_Click(editor.document);
  });
  endAfter([this](Editor& editor) {
    editor.platform.files["/maps/small.bmp"] = painted;
    OpenMap(editor.document, "/maps/small.bmp");
  });
  endAfter([](Editor& editor) {
    Canvas_MouseDown(editor.palette, kLeftButton, 5, 5);
    editor.form.EndRun();
  });
}

TEST_F(Rescue, TheEndOfADesktopSessionAsksAndCopiesOnce) {
  Paint();
  platform.answers = {Answer::Cancel, Answer::No};
  EXPECT_TRUE(form.SessionEnds(true));
  EXPECT_FALSE(form.SessionEnds(true));
  EXPECT_EQ(platform.boxes.size(), 2U);
  EXPECT_FALSE(form.SessionEnds(false));
  EXPECT_TRUE(Copies().empty());
  Paint(45);  // the session continued
  const Bytes undo = platform.snapshot;
  for (int i = 0; i < 2; ++i) EXPECT_FALSE(form.SessionEnds(false));
  EXPECT_EQ(platform.snapshot, undo);
  ASSERT_EQ(Copies().size(), 1U);
  EXPECT_EQ(platform.files[Copies()[0]], WriteBmp(document.Canvas.Image()));
  EXPECT_EQ(NextReport(), "");
  form.RescueAtTermination();
  EXPECT_EQ(Copies().size(), 1U);
  EXPECT_EQ(NextReport(), ReportOf(Copies()[0]));
}

TEST_F(Rescue, ADesktopSessionThatEndsDuringTheExitQuestionAsksOnlyOnce) {
  Paint();
  platform.onNextBox = [this] { EXPECT_FALSE(form.SessionEnds(true)); };
  platform.answers = {Answer::Cancel};
  EXPECT_TRUE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 1U);
  EXPECT_EQ(Copies().size(), 1U);
}

}  // namespace
}  // namespace morvane
