// The real program on a virtual display, with real events of mouse and keyboard.

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <QProcess>
#include <csignal>

#include "palette/FlipAndRotate.h"
#include "palette/TileSelection.h"
#include "shell/ArtSheets.h"
#include "tests/support/Child.h"
#include "tests/support/ReferenceModel.h"

namespace morvane {
namespace {

struct EndToEnd : testing::Test {
  EndToEnd() {
    for (const char* name : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "XDG_STATE_HOME"}) {
      qunsetenv(name);
    }
    qputenv("MORVANE_PROGRAM", MORVANE_PROGRAM);
    qputenv("SCRIPTS", MORVANE_SCRIPTS);
  }
  /// Runs a script with the program on a display of its own. It must print no errors.
  void RunScript(const QStringList& arguments) const {
    QProcess bash;
    bash.setWorkingDirectory(folder.path());
    bash.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    // The script, and with it the display, doesn't outlive a canceled test.
    bash.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    bash.start("bash", arguments);
    ASSERT_TRUE(bash.waitForFinished(280'000));
    EXPECT_EQ(bash.readAllStandardError().toStdString(), "");
    ASSERT_EQ(bash.exitCode(), 0);
  }
  std::string File(const char* name) const { return folder.filePath(name).toStdString(); }

  const QTemporaryDir folder;
  const TilePictures art{&LoadArtSheet};
  ReferenceModel model{art};
};

/// The parameter is the signal that ends the program, or DISPLAY.
struct Ends : EndToEnd, testing::WithParamInterface<std::string> {
  void Start(const std::string& commands) const {
    // Shells ignore SIGINT for background commands.
    const std::string script = R"SH(
      set -euo pipefail; out=$PWD
      program=start; start() { exec env --default-signal=INT "$MORVANE_PROGRAM"; }
      source "$SCRIPTS"/lib/desktop
      end() { { "$@"; wait "$editor" || status=$?; } 2>/dev/null; }
      await() { until [ "$(windows_of Morvane | wc -l)" = "$1" ]; do sleep 0.02; done; settle; }
    )SH" + commands;
    RunScript({"-c", QString::fromStdString(script), "test", GetParam().c_str()});
  }
  std::string RescueCopy() const {
    const QStringList copies = QDir(folder.path()).entryList({"Morvane rescue 20*.bmp"});
    EXPECT_EQ(copies.size(), 1);
    return File(qPrintable(copies.value(0)));
  }
};

TEST_P(Ends, NoneLosesTheMap) {
  const bool isKill = GetParam() == "KILL";
  const char* end = GetParam() == "DISPLAY" ? "end kill $server; [ $status = 1 ]"
                                            : "end kill -$1 $editor; [ $(kill -l $status) = $1 ]";
  for (const int row : {2, 7}) {
    for (int x = 2; x <= 9; ++x) model.Paint(x == 2, 1, x * 20 + 8, row * 20 + 8);
  }
  Start(std::string("row 2 2 9; row 2 7 9; ") + end);
  const Picture& kept = isKill ? model.undo : model.map;
  EXPECT_EQ(std::filesystem::exists(File("mvtmp.~mp")), isKill);
  EXPECT_EQ(Difference(MapIn(isKill ? File("mvtmp.~mp") : RescueCopy()), kept), "");
  EXPECT_EQ(NamesIn(File(".local/state")), isKill ? "" : "morvane");
  Start("await 2; key Return; await 1; end kill -KILL $editor");
  EXPECT_EQ(Difference(MapIn(RescueCopy()), kept), "");
  EXPECT_EQ(NamesIn(File(".local/state")), "") << "it would be reported a second time";
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, Ends, testing::Values("KILL", "TERM", "HUP", "INT", "DISPLAY"),
                         [](const auto& end) { return end.param; });

struct Tour : EndToEnd {
  void Stamp(const char* control, const std::vector<QPoint>& cells) {
    model.Pick(*FindItem(control));
    for (const QPoint& at : cells) model.Paint(true, 1, at.x() * 20 + 8, at.y() * 20 + 8);
  }
  void Line(int x1, int y1, int x2, int y2) {
    for (int x = x1; x <= x2; x += 20) {
      for (int y = y1; y <= y2; y += 20) model.Paint(true, 1, x, y);
    }
  }
  /// Paints the map of scripts/tour, except the text and the custom tile.
  void PaintModel() {
    model.NewMap(Answer::Yes, kWhite, true, 0xC0C0C0);
    for (int x = 5; x <= 17; x += 2) Stamp("pb4040", {{x, 2}, {x, 4}, {x, 6}});
    model.Pick(*FindItem("pbfloor"));
    Line(168, 168, 228, 228);
    model.NextMode();
    for (const int y : {40, 160}) Line(110, y, 370, y);
    for (const int x : {100, 380}) Line(x, 50, x, 150);
    for (const int x : {160, 240}) Line(x, 170, x, 230);
    Line(170, 240, 230, 240);
    model.NextMode();
    Line(100, 90, 100, 90);
    Line(190, 160, 190, 160);
    model.Paint(true, 2, 350, 160);
    Stamp("pbwoodenbench", {{6, 3}, {6, 6}, {9, 3}, {9, 6}, {12, 3}, {12, 6}});
    Stamp("pbroundtable", {{9, 9}});
    Stamp("pbaltar", {{16, 4}});
    Stamp("pbpentagramglow", {{14, 4}});
    Stamp("pbrug", {{11, 4}});
    model.Pick(*FindItem("pbbed"));
    model.Turn(Transform::RotateRight);
    model.Paint(true, 1, 168, 188);
  }
};

TEST_F(Tour, PaintsItsMapThroughTheRealProgram) {
  ASSERT_NO_FATAL_FAILURE(RunScript({MORVANE_SCRIPTS "/tour", folder.filePath("out")}));
  Picture map = MapIn(File("out/map.bmp"));
  for (const char* name : {"out/again.bmp", "out/outside.bmp"}) {
    EXPECT_EQ(Difference(MapIn(File(name)), map), "") << name;
  }
  EXPECT_GE(QDir(folder.filePath("out")).entryList({"*.png"}).size(), 16);
  PaintModel();
  const Rect tile = {100, 80, 140, 120};
  EXPECT_NE(Cut(map.View(), tile), Cut(model.map.View(), tile));
  BitBlt(map.Draw(), 100, 80, 40, 40, model.map.View(), 100, 80);
  int black = 0;
  for (int y = 262; y < 290; ++y) {
    for (int x = 108; x < 420; ++x) {
      if (map.Row(y)[x] != PixelOf(0)) continue;
      map.Row(y)[x] = model.map.Row(y)[x];
      ++black;
    }
  }
  EXPECT_GT(black, 300) << "pixels of the text";
  EXPECT_EQ(Difference(map, model.map), "");
}

}  // namespace
}  // namespace morvane
