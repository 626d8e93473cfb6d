#include <csignal>

#include "document/Snapshot.h"
#include "document/Undo.h"
#include "tests/support/Child.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

constexpr const char* kSnapshot = "mvtmp.~mp";

/// The editor without its window, started where the process stands.
struct Painter {
  ScriptedPlatform platform;
  MainForm form{platform, &LoadArtSheet};

  Painter() {
    form.Form_Initialize();
    form.Form_Resize(787, 537);
  }
  void Press(int x, int y) {
    Canvas_MouseDown(form.palette, kLeftButton, static_cast<float>(x), static_cast<float>(y));
  }
  Picture Map() const { return Picture(form.document.Canvas.Image()); }

  /// Paints and undoes, and paints for good, along the rows from one on.
  void PaintAndUndo(int row, int rounds) {
    for (int i = 0; i < rounds; ++i) {
      const int x = i % 30 * 20 + 8;
      const Picture before = Map();
      Press(x, row * 20 + 8);
      ASSERT_NE(Map(), before);
      mnuEditUndo_Click(form.document);
      ASSERT_EQ(Map(), before) << "round " << i;
      Press(x, (row + 1) * 20 + 8);
    }
    EXPECT_EQ(platform.boxes.size(), 0U);
  }
};

struct Runs : testing::Test {
  StartFolder folder;
};

TEST_F(Runs, TwoInOneDirectoryKeepTheirOwnMaps) {
  constexpr int kRounds = 30;
  int gate[2];
  ASSERT_EQ(pipe(gate), 0);
  const auto run = [&gate](int row, int runs) {
    return StartChild([=] {
      close(gate[1]);
      char none = 0;
      EXPECT_EQ(read(gate[0], &none, 1), 0);  // until the gate is opened
      // Each end of a run gives the name of the snapshot free, for either.
      for (int i = 0; i < runs; ++i) {
        Painter painter;
        painter.PaintAndUndo(row, kRounds);
        painter.form.EndRun();
      }
    });
  };
  const pid_t one = run(0, 6);
  const pid_t other = run(10, 5);
  close(gate[0]);
  close(gate[1]);
  EXPECT_EQ(WaitFor(one), 0);
  EXPECT_EQ(WaitFor(other), 0);
  EXPECT_EQ(NamesIn("."), "");
}

TEST_F(Runs, OneThatWasKilledIsNoHindrance) {
  const auto outcome = RunInChild([] {
    Painter painter;
    painter.PaintAndUndo(0, 3);
    raise(SIGKILL);
  });
  ASSERT_EQ(outcome, 128 + SIGKILL);
  EXPECT_EQ(NamesIn("."), kSnapshot);
  const Picture left = MapIn(folder.File(kSnapshot));
  // A save was cut off too; the rest only looks like it.
  for (const char* name : {".morvane-save-1", ".morvane-save-x", "map.bmp.AbCdEf", "other.~mp"}) {
    std::ofstream(name) << "half";
  }
  std::filesystem::create_symlink("other.~mp", ".morvane-save-2");
  std::filesystem::create_hard_link("other.~mp", ".morvane-save-3");
  std::filesystem::create_directory(".morvane-save-4");
  const auto next = RunInChild([&] {
    Painter painter;
    const std::vector<std::string>& copies = painter.form.document.RescueCopies;
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_TRUE(copies[0].starts_with(folder.File("Morvane rescue 20"))) << copies[0];
    EXPECT_EQ(MapIn(copies[0]), left);
    std::filesystem::remove(copies[0]);
    painter.PaintAndUndo(0, 3);
    EXPECT_EQ(SavePicture(painter.platform, painter.Map().View(), folder.File("map.bmp")), "");
    EXPECT_EQ(MapIn(folder.File("map.bmp")), painter.Map());
    painter.form.EndRun();
  });
  EXPECT_EQ(next, 0);
  EXPECT_EQ(NamesIn("."),
            ".morvane-save-2 .morvane-save-3 .morvane-save-4 .morvane-save-x map.bmp "
            "map.bmp.AbCdEf other.~mp");
  EXPECT_EQ(std::filesystem::file_size("other.~mp"), 4U);
}

}  // namespace
}  // namespace morvane
