#include "document/Undo.h"

#include <gtest/gtest.h>

#include "tests/support/BmpMaker.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

/// A map with two tiles, the second in its lowest rows, which are the first in the snapshot.
struct Undo : testing::Test, Editor {
  Picture one, both;

  Undo() {
    Canvas_MouseDown(palette, kLeftButton, 5, 5);
    one = Map();
    Canvas_MouseDown(palette, kLeftButton, 45, 465);
    both = Map();
  }
};

TEST_F(Undo, ShowsTheHourglassWhileItReads) {
  document.Canvas.MousePointer = Pointer::IBeam;
  int shown = 0;
  platform.onShowState = [&] {
    ++shown;
    EXPECT_EQ(document.MousePointer, Pointer::Hourglass);
    EXPECT_EQ(document.Canvas.MousePointer, Pointer::Hourglass);
  };
  mnuEditUndo_Click(document);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(document.MousePointer, Pointer::Standard);
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::IBeam);
}

TEST_F(Undo, AFailureIsReportedAndLeavesTheMap) {
  const Bytes whole = platform.snapshot;
  const auto expectFailure = [this](const std::string& reason) {
    platform.boxes.clear();
    mnuEditUndo_Click(document);
    ASSERT_EQ(platform.boxes.size(), 1U);
    EXPECT_EQ(platform.boxes[0].text, "The last change can't be taken back.\n\n" + reason);
    EXPECT_EQ(Difference(Map(), both), "");
    EXPECT_FALSE(document.mnuEditUndoEnabled || document.UndoButtonEnabled);
    EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  };
  platform.readableSnapshot = whole.size() / 2;
  expectFailure("Input/output error");
  platform.readableSnapshot = whole.size();
  platform.memoryIsFull = true;
  expectFailure("There is not enough memory for this picture.");
  platform.memoryIsFull = false;
  // Another program replaced the snapshot with run lengths that end after the first row.
  BmpMaker maker{.width = both.Width(), .height = both.Height(), .bits = 8, .compression = 1};
  maker.palette = {0x123456};
  maker.data = {200, 0, 0, 0};
  platform.snapshotTouched = true;
  platform.snapshot = maker.Make();
  expectFailure("The file ends too early.");
  platform.snapshot = whole;
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), one), "");

  platform.snapshotFails = true;
  for (int i = 0; i < 2; ++i) Canvas_MouseDown(palette, kLeftButton, 45, 465);
  EXPECT_EQ(platform.boxes.size(), 2U) << "a failed snapshot is reported once";
  expectFailure("No earlier state of the map was kept.");
}

}  // namespace
}  // namespace morvane
