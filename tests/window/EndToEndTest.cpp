// The installed program on a virtual display, with real events of mouse and keyboard.

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <deque>

#include "palette/FlipAndRotate.h"
#include "palette/TileSelection.h"
#include "shell/ArtSheets.h"
#include "tests/support/Child.h"
#include "tests/support/ReferenceModel.h"

namespace morvane {
namespace {

bool Await(const std::function<bool()>& condition) {
  constexpr qint64 kTimeout = 20'000;  // ms
  QElapsedTimer waited;
  waited.start();
  while (!condition()) {
    if (waited.elapsed() > kTimeout) return false;
    QThread::msleep(10);
  }
  return true;
}

/// Runs the tool that sends events of mouse and keyboard, and returns what it prints.
QString Xdotool(const QStringList& arguments) {
  QProcess tool;
  tool.start("xdotool", arguments);
  tool.waitForFinished();
  return tool.readAllStandardOutput();
}

/// The number of visible windows and message boxes of the program.
long WindowCount() {
  return Xdotool({"search", "--onlyvisible", "--name", "^Morvane$"}).count('\n');
}

/// A way to end the program; without a signal the display server is terminated.
struct End {
  const char* name;
  int signal;
};

void PrintTo(const End& end, std::ostream* stream) {
  *stream << end.name;
}

struct EndToEnd : testing::TestWithParam<End> {
  EndToEnd() {
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR"})
      qputenv(variable, folder.path().toUtf8());
    for (const char* variable : {"WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_STATE_HOME"}) {
      qunsetenv(variable);
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
  }
  ~EndToEnd() override { StopAll(); }

  void StopAll() {
    for (QProcess& process : processes) {
      process.terminate();
      process.waitForFinished();
    }
    processes.clear();
  }
  QProcess& Start(const QString& program, const QStringList& arguments) {
    QProcess& process = processes.emplace_front();
    process.setWorkingDirectory(folder.path());
    process.setChildProcessModifier([] {
      ::prctl(PR_SET_PDEATHSIG, SIGTERM);  // no process outlives a canceled test
      ::signal(SIGINT, SIG_DFL);           // shells ignore it for background commands
    });
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForStarted()) << program.toStdString();
    return process;
  }
  /// Starts a display with a window manager, and the program on it.
  void Open() {
    StopAll();
    display = &Start(
        "Xvfb", {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"});
    EXPECT_TRUE(display->waitForReadyRead());
    qputenv("DISPLAY", ":" + display->readLine().trimmed());
    Start("openbox", {});
    program = &Start(MORVANE_PROGRAM, {});
  }
  Picture Read(const QString& name) const {
    QtPlatform platform;
    auto map = LoadPicture(platform, folder.filePath(name).toStdString());
    return map.Ok() ? std::move(map.Value().picture) : Picture();
  }
  QStringList RescueCopies() const {
    return QDir(folder.path()).entryList({"Morvane rescue 20*.bmp"});
  }
  /// Drags the floor tile over the map until the program has painted it.
  void Paint(ReferenceModel& model) const {
    ASSERT_TRUE(Await([] { return WindowCount() == 1; }));
    const QString window = Xdotool({"search", "--onlyvisible", "--name", "^Morvane$"}).trimmed();
    const QString geometry = Xdotool({"getwindowgeometry", "--shell", window});
    const int height = geometry.section("HEIGHT=", 1).section('\n', 0, 0).toInt();
    const QPoint map(168 + 2, 32 + 2 + height - 537);  // below the menu bar
    const auto at = [&](int X, int Y) {
      return QStringList{"mousemove", "--window", window, QString::number(map.x() + X),
                         QString::number(map.y() + Y)};
    };
    // The snapshot holds the map before the second press, so it shows that all was painted.
    for (int row = 0; row < 2; ++row) {
      Xdotool(at(48, 48 + row * 100) + QStringList{"mousedown", "1"});
      model.Paint(true, 1, 48, 48 + row * 100);
      for (int X = 50; X < 500; X += 7) {
        Xdotool(at(X, 50 + row * 100));
        model.Paint(false, 1, X, 50 + row * 100);
        if (X % 49 != 1) X += 14;
      }
      Xdotool({"mouseup", "1"});
    }
    ASSERT_TRUE(Await([&] { return Read("mvtmp.~mp") == model.undo; }))
        << Difference(Read("mvtmp.~mp"), model.undo);
  }

  QTemporaryDir folder;
  std::deque<QProcess> processes;
  QProcess* display = nullptr;
  QProcess* program = nullptr;
};

TEST_P(EndToEnd, NoWayToEndTheProgramLosesTheMap) {
  const TilePictures art(&LoadArtSheet);
  ReferenceModel model(art);
  Open();
  ASSERT_NO_FATAL_FAILURE(Paint(model));
  const int signal = GetParam().signal;
  if (signal == 0) {
    display->terminate();
  } else {
    ::kill(static_cast<pid_t>(program->processId()), signal);
  }
  ASSERT_TRUE(program->waitForFinished());
  if (signal == SIGKILL) {
    EXPECT_TRUE(RescueCopies().isEmpty());
    EXPECT_EQ(Difference(Read("mvtmp.~mp"), model.undo), "");
  } else {
    ASSERT_EQ(RescueCopies().size(), 1);
    EXPECT_EQ(Difference(Read(RescueCopies()[0]), model.map), "");
    EXPECT_FALSE(QFile::exists(folder.filePath("mvtmp.~mp")));
  }
  Open();
  ASSERT_TRUE(Await([] { return WindowCount() == 2; })) << "no message about the copy";
  ASSERT_EQ(RescueCopies().size(), 1);
  EXPECT_EQ(Difference(Read(RescueCopies()[0]), signal == SIGKILL ? model.undo : model.map), "");
  Xdotool({"key", "Return"});
  EXPECT_TRUE(Await([] { return WindowCount() == 1; }));
  program->kill();
  program->waitForFinished();
  Open();
  ASSERT_TRUE(Await([] { return WindowCount() == 1; }));
  EXPECT_EQ(RescueCopies().size(), 1) << "reported a second time";
}

INSTANTIATE_TEST_SUITE_P(Ends, EndToEnd,
                         testing::Values(End{"Killed", SIGKILL}, End{"Terminated", SIGTERM},
                                         End{"HungUp", SIGHUP}, End{"Interrupted", SIGINT},
                                         End{"DisplayLost", 0}),
                         [](const auto& end) { return end.param.name; });

/// Paints the map of scripts/tour with the reference model.
Picture TourMap(const TilePictures& art) {
  ReferenceModel model(art);
  model.NewMap(kWhite, true, 0xC0C0C0);
  const auto cell = [&model](int x, int y) { model.Paint(true, 1, x * 20 + 8, y * 20 + 8); };
  const auto line = [&model](int x1, int y1, int x2, int y2) {
    for (int x = x1; x <= x2; x += 20) {
      for (int y = y1; y <= y2; y += 20) model.Paint(true, 1, x, y);
    }
  };
  model.Pick(*FindItem("pb4040"));
  for (const int y : {2, 4, 6}) {
    for (int x = 5; x <= 17; x += 2) cell(x, y);
  }
  model.Pick(*FindItem("pbfloor"));
  line(168, 168, 228, 228);
  model.NextMode();
  for (const int y : {40, 160}) line(110, y, 370, y);
  for (const int x : {100, 380}) line(x, 50, x, 150);
  for (const int x : {160, 240}) line(x, 170, x, 230);
  line(170, 240, 230, 240);
  model.NextMode();
  model.Paint(true, 1, 100, 90);
  model.Paint(true, 1, 190, 160);
  model.Paint(true, 2, 350, 160);
  model.Pick(*FindItem("pbwoodenbench"));
  for (const int x : {6, 9, 12}) {
    cell(x, 3);
    cell(x, 6);
  }
  const std::vector<std::tuple<const char*, int, int>> furniture = {
      {"pbroundtable", 9, 9}, {"pbaltar", 16, 4}, {"pbpentagramglow", 14, 4}, {"pbrug", 11, 4}};
  for (const auto& [control, x, y] : furniture) {
    model.Pick(*FindItem(control));
    cell(x, y);
  }
  model.Pick(*FindItem("pbbed"));
  model.Turn(Transform::RotateRight);
  cell(8, 9);
  return model.map;
}

TEST(Tour, PaintsItsMapThroughTheRealProgram) {
  const QTemporaryDir folder;
  QProcess tour;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("MORVANE_PROGRAM", MORVANE_PROGRAM);
  environment.remove("XDG_RUNTIME_DIR");
  environment.remove("DBUS_SESSION_BUS_ADDRESS");
  tour.setProcessEnvironment(environment);
  tour.setProcessChannelMode(QProcess::ForwardedOutputChannel);
  tour.start(MORVANE_TOUR, {folder.filePath("out")});
  ASSERT_TRUE(tour.waitForFinished(280'000));
  EXPECT_EQ(tour.readAllStandardError().toStdString(), "") << "no messages on the terminal";
  ASSERT_EQ(tour.exitCode(), 0);
  Picture map = MapIn(folder.filePath("out/map.bmp").toStdString());
  for (const char* name : {"out/again.bmp", "out/outside.bmp"}) {
    EXPECT_EQ(Difference(MapIn(folder.filePath(name).toStdString()), map), "") << name;
  }
  const TilePictures art(&LoadArtSheet);
  Picture expected = TourMap(art);
  // The text is black on the map, and the custom tile replaces the map.
  const Rect tile = {100, 80, 140, 120};
  const Rect text = {108, 262, 420, 290};
  int black = 0;
  for (int y = text.top; y < text.bottom; ++y) {
    for (int x = text.left; x < text.right; ++x) {
      if (map.Row(y)[x] != PixelOf(0)) continue;
      map.Row(y)[x] = expected.Row(y)[x];
      ++black;
    }
  }
  EXPECT_GT(black, 300);
  EXPECT_FALSE(Cut(map.View(), tile) == Cut(expected.View(), tile));
  FillBox(map.Draw(), tile, 0);
  FillBox(expected.Draw(), tile, 0);
  EXPECT_EQ(Difference(map, expected), "");
  EXPECT_GE(QDir(folder.filePath("out")).entryList({"*.png"}).size(), 16);
}

}  // namespace
}  // namespace morvane
