#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "document/Undo.h"
#include "tests/support/Child.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

constexpr const char* kSnapshot = "mvtmp.~mp";

struct Processes : testing::Test {
  StartFolder folder;
};

TEST_F(Processes, AKillDuringASaveLeavesTheOldMapOrTheNewOne) {
  constexpr int kKills = 150;
  const std::string path = folder.File("map.bmp");
  const std::array<Picture, 2> maps = {Speckled(617, 484, 1), Speckled(617, 484, 2)};
  QtPlatform platform;
  ASSERT_EQ(SavePicture(platform, maps[0].View(), path), "");
  std::mt19937 random(4711);
  int interrupted = 0;
  for (int i = 0; i < kKills; ++i) {
    const pid_t saver = StartChild([&] {
      for (int save = i;; ++save) SavePicture(platform, maps[save % 2].View(), path);
    });
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20'000));
    kill(saver, SIGKILL);
    ASSERT_EQ(WaitFor(saver), 128 + SIGKILL);
    const Picture found = MapIn(path);
    ASSERT_TRUE(found == maps[0] || found == maps[1]) << "kill " << i;
    const std::string names = NamesIn(".");
    ASSERT_TRUE(names == "map.bmp" || names == ".morvane-save-1 map.bmp") << names;
    interrupted += names == "map.bmp" ? 0 : 1;
  }
  EXPECT_GT(interrupted, kKills / 10);
  ASSERT_EQ(SavePicture(platform, maps[0].View(), path), "");  // deletes the temporary file
  EXPECT_EQ(NamesIn("."), "map.bmp");
}

/// The editor without its window, started in the current directory.
struct Painter {
  ScriptedPlatform platform;
  MainForm form{platform, &LoadArtSheet};

  Painter() {
    form.Form_Initialize();
    form.Form_Resize(787, 537);
  }
  Picture Map() const { return Picture(form.document.Canvas.Image()); }
  void Press(int x, int y) {
    Canvas_MouseDown(form.palette, kLeftButton, static_cast<float>(x), static_cast<float>(y));
  }
  void PaintAndUndo(int row, int rounds) {
    for (int i = 0; i < rounds; ++i) {
      const int x = i % 30 * 20 + 8;
      const Picture before = Map();
      Press(x, row * 20 + 8);
      ASSERT_NE(Map(), before);
      mnuEditUndo_Click(form.document);
      ASSERT_EQ(Map(), before) << "round " << i;
      Press(x, row * 20 + 28);
    }
    EXPECT_EQ(platform.boxes.size(), 0U);
  }
};

TEST_F(Processes, TwoInOneFolderKeepTheirOwnMaps) {
  const auto start = [](int row, int runs) {
    return StartChild([=] {
      for (int i = 0; i < runs; ++i) {
        Painter painter;
        painter.PaintAndUndo(row, 30);
        painter.form.EndRun();
      }
    });
  };
  const pid_t one = start(0, 6);
  const pid_t other = start(10, 5);
  EXPECT_EQ(WaitFor(one), 0);
  EXPECT_EQ(WaitFor(other), 0);
  EXPECT_EQ(NamesIn("."), "");
}

TEST_F(Processes, AKilledRunIsRescuedByTheNext) {
  ASSERT_EQ(RunInChild([] {
              Painter().PaintAndUndo(0, 3);
              raise(SIGKILL);
            }),
            128 + SIGKILL);
  EXPECT_EQ(NamesIn("."), kSnapshot);
  const Picture left = MapIn(folder.File(kSnapshot));
  for (const char* name : {".morvane-save-1", ".morvane-save-x", "other.~mp"}) {
    std::ofstream(name) << "half";
  }
  std::filesystem::create_symlink("other.~mp", ".morvane-save-2");
  std::filesystem::create_hard_link("other.~mp", ".morvane-save-3");
  EXPECT_EQ(RunInChild([&] {
              Painter painter;
              const std::vector<std::string>& copies = painter.form.document.RescueCopies;
              ASSERT_EQ(copies.size(), 1U);
              EXPECT_TRUE(copies[0].starts_with(folder.File("Morvane rescue 20"))) << copies[0];
              EXPECT_EQ(MapIn(copies[0]), left);
              std::filesystem::remove(copies[0]);
              painter.PaintAndUndo(0, 3);
              const std::string path = folder.File("map.bmp");
              EXPECT_EQ(SavePicture(painter.platform, painter.Map().View(), path), "");
              painter.form.EndRun();
            }),
            0);
  // Only the temporary file of an interrupted save was deleted.
  EXPECT_EQ(NamesIn("."), ".morvane-save-2 .morvane-save-3 .morvane-save-x map.bmp other.~mp");
  EXPECT_EQ(std::filesystem::file_size("other.~mp"), 4U);
}

}  // namespace
}  // namespace morvane
