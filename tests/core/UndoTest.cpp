#include "document/Undo.h"

#include <gtest/gtest.h>

#include "document/NewMap.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

struct Undo : testing::Test, Editor {
  void Press(float X, float Y) { Canvas_MouseDown(palette, kLeftButton, X, Y); }
  bool Offered() const {
    EXPECT_EQ(document.mnuEditUndoEnabled, document.UndoButtonEnabled);
    return document.mnuEditUndoEnabled;
  }
};

TEST_F(Undo, AfterANewMapItRestoresTheOldMapWithoutItsFile) {
  document.CurrentFile = "/maps/a.bmp";
  document.HasCurrentFile = true;
  Press(5, 5);
  const Picture stamped = Map();
  Press(45, 45);
  platform.answers = {Answer::Yes};
  mnuFileNew_Click(document);
  EXPECT_TRUE(Offered());
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), stamped), "");
  EXPECT_EQ(document.Caption, "Morvane");
  EXPECT_FALSE(document.HasCurrentFile);
}

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

TEST_F(Undo, AMissingSnapshotIsReported) {
  platform.snapshotFails = true;
  Press(5, 5);
  Press(45, 45);
  ASSERT_EQ(platform.boxes.size(), 1U);  // reported once
  const Picture before = Map();
  EXPECT_TRUE(Holds(document.Canvas.Image(), 40, 40, {20, 20}, palette.Picture1.Image()));
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), before), "");
  EXPECT_EQ(platform.boxes.size(), 2U);
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  EXPECT_FALSE(Offered());
  platform.memoryIsFull = true;
  mnuEditUndo_Click(document);
  EXPECT_NE(platform.boxes.back().text.find("not enough memory"), std::string::npos);
  EXPECT_EQ(Difference(Map(), before), "");
}

TEST_F(Undo, AnUnreadableSnapshotLeavesTheMap) {
  Press(5, 5);
  Press(45, 45);
  const Picture both = Map();
  platform.readableSnapshot = platform.snapshot.size() / 2;
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), both), "");
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_NE(platform.boxes[0].text.find("Input/output error"), std::string::npos);
}

TEST_F(Undo, AModifiedSnapshotIsCheckedBeforeItReplacesTheMap) {
  Press(5, 5);
  const Picture stamped = Map();
  Press(45, 45);
  const Picture both = Map();
  platform.snapshotTouched = true;
  const Bytes whole = platform.snapshot;
  // Run lengths that end after the first row.
  BmpMaker maker{.width = both.Width(), .height = both.Height(), .bits = 8, .compression = 1};
  maker.palette = {0x123456};
  maker.data = {200, 0, 0, 0};
  platform.snapshot = maker.Make();
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), both), "");
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_NE(platform.boxes[0].text.find("ends too early"), std::string::npos);
  platform.snapshot = whole;
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), stamped), "");
}

}  // namespace
}  // namespace morvane
