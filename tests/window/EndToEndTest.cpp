// The real program on a virtual display, with real events of mouse and keyboard.

#include <sys/prctl.h>

#include <csignal>

#include "tests/support/ReferenceModel.h"

namespace morvane {
namespace {

struct EndToEnd : testing::Test {
  /// Runs a script with the program on a display of its own. It must print no errors.
  void RunScript(const QStringList& arguments) const {
    QProcess bash;
    bash.setWorkingDirectory(folder.path());
    bash.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    // The script, and with it the display, doesn't outlive a canceled test.
    bash.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    bash.start("env", QStringList{"-u", "DBUS_SESSION_BUS_ADDRESS", "-u", "XDG_RUNTIME_DIR", "-u",
                                  "XDG_STATE_HOME", "QT_SCALE_FACTOR=1.25",  // rounded to 1
                                  QString("MORVANE_PROGRAM=") + MORVANE_PROGRAM,
                                  QString("SCRIPTS=") + MORVANE_SCRIPTS, "bash"} +
                          arguments);
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
      await() {
        for _ in $(seq 3000); do
          if [ "$(windows_of Morvane | wc -l)" = "$1" ]; then settle; return; fi
          sleep 0.02
        done
        fail "there are not $1 windows"
      }
    )SH" + commands;
    RunScript({"-c", QString::fromStdString(script), "test", GetParam().c_str()});
  }
  std::string RescueCopy() const {
    const QStringList copies = RescueCopiesIn(File(""));
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
  ASSERT_NO_FATAL_FAILURE(Start(std::string("row 2 2 9; row 2 7 9; ") + end));
  const PictureView kept = (isKill ? model.undo : model.map).View();
  EXPECT_EQ(Difference(MapIn(isKill ? File("mvtmp.~mp") : RescueCopy()).View(), kept), "");
  EXPECT_EQ(NamesIn(File(".local/state")), isKill ? "" : "morvane");
  ASSERT_NO_FATAL_FAILURE(Start("await 2; key Return; await 1; end kill -KILL $editor"));
  EXPECT_EQ(Difference(MapIn(RescueCopy()).View(), kept), "");
  EXPECT_EQ(NamesIn(File(".local/state")), "") << "it would be reported a second time";
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, Ends, testing::Values("KILL", "TERM", "HUP", "INT", "DISPLAY"),
                         [](const auto& end) { return end.param; });

TEST_F(EndToEnd, TheTourPaintsItsMapThroughTheRealProgram) {
  ASSERT_NO_FATAL_FAILURE(RunScript({MORVANE_SCRIPTS "/tour", folder.filePath("out")}));
  const Picture map = MapIn(File("out/map.bmp"));
  for (const char* name : {"out/again.bmp", "out/outside.bmp"}) {
    EXPECT_EQ(Difference(MapIn(File(name)).View(), map.View()), "") << name;
  }
  const auto expect = [&](const Picture& picture, int x, int y) {
    const Rect place = {x, y, x + picture.Width(), y + picture.Height()};
    EXPECT_EQ(Difference(Cut(map.View(), place).View(), picture.View()), "") << x << ',' << y;
  };
  expect(art.Of(*FindItem("pbaltar")), 320, 80);
  expect(*art.Of(0, Edge::Door, Direction::Horizontal), 182, 157);
  const Picture blank = Cut(map.View(), {540, 400, 580, 440});
  expect(blank, 440, 40);  // erased
  const Picture text = Cut(map.View(), {108, 262, 420, 290});
  EXPECT_GT(std::count(text.View().Row(0), text.View().Row(28), PixelOf(0)), 300);
}

}  // namespace
}  // namespace morvane
