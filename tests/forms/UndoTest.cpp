#include "document/Undo.h"

#include "tests/support/BmpMaker.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// A map with two tiles, the second in its lowest rows, which are the first in the snapshot.
struct Undo : FormFixture {
  Picture one, both;

  Undo() {
    Press(5, 5);
    one = Map();
    Press(45, 465);
    both = Map();
  }
};

TEST_F(Undo, ShowsTheHourglassWhileItReads) {
  Choose("mnuToolsInsertText");
  const auto shapes = [this] {
    return std::pair(window.cursor().shape(), Find("Canvas")->cursor().shape());
  };
  int shown = 0;
  platform.SetWindow(&window, [&] {
    ++shown;
    window.ShowState();
    EXPECT_EQ(shapes(), std::pair(Qt::WaitCursor, Qt::WaitCursor));
  });
  Choose("mnuEditUndo");
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(shapes(), std::pair(Qt::ArrowCursor, Qt::IBeamCursor));
}

TEST_F(Undo, AFailureIsReportedAndLeavesTheMap) {
  const Bytes whole = ReadFile("mvtmp.~mp");
  const auto expectFailure = [this](const std::string& reason) {
    mnuEditUndo_Click(document);
    EXPECT_EQ(OneBox(), "The last change can't be taken back.\n\n" + reason);
    EXPECT_EQ(Difference(Map(), both), "");
    EXPECT_FALSE(document.mnuEditUndoEnabled || document.UndoButtonEnabled);
    EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  };
  platform.readableSnapshot = whole.size() / 2;
  expectFailure("Input/output error");
  platform.readableSnapshot.reset();
  platform.memoryRunsOut = true;
  expectFailure("There is not enough memory for this picture.");
  platform.memoryRunsOut = false;
  // Another program replaced the snapshot with run lengths that end in the first row.
  BmpMaker maker{.width = both.Width(), .height = both.Height(), .bits = 8, .compression = 1};
  maker.data = Bytes(whole.size() - 54, 1);
  WriteFile("mvtmp.~mp", maker.Make());
  expectFailure("The file ends too early.");
  WriteFile("mvtmp.~mp", whole);
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), one), "");
  platform.DeleteSnapshot();
  both = one;
  expectFailure("No earlier state of the map was kept.");
}

}  // namespace
}  // namespace morvane
