#include <dlfcn.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "platform/Leftovers.h"
#include "platform/SnapshotFile.h"
#include "shell/Termination.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

TEST(Processes, AKillDuringASaveLeavesTheOldMapOrTheNewOne) {
  constexpr int kKills = 150;
  const StartFolder folder;
  const std::string path = folder.File("map.bmp");
  const std::array<Picture, 2> maps = {Speckled(617, 484, 1), Speckled(617, 484, 2)};
  // Only the name is that of a temporary file: no save may delete these.
  for (const char* name : {".morvane-save-x", "other"}) std::ofstream(name) << "mine";
  std::filesystem::create_symlink("other", ".morvane-save-2");
  std::filesystem::create_hard_link("other", ".morvane-save-3");
  QtPlatform platform;
  ASSERT_EQ(SavePicture(platform, maps[0].View(), path), "");
  const std::string names = NamesIn(".");
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
    const std::string left = NamesIn(".");
    ASSERT_TRUE(left == names || left == ".morvane-save-1 " + names) << left;
    interrupted += left == names ? 0 : 1;
  }
  EXPECT_GT(interrupted, kKills / 10);
  ASSERT_EQ(SavePicture(platform, maps[0].View(), path), "");  // deletes the temporary file
  EXPECT_EQ(NamesIn("."), names);
}

TEST(Processes, TwoInOneFolderKeepTheirOwnSnapshots) {
  const StartFolder folder;
  const auto useSnapshots = [](unsigned seed) {
    SnapshotFile file;
    for (unsigned round = 1; round <= 180; ++round) {  // every fifth map has another size
      EXPECT_TRUE(LeftoverSnapshots().empty());
      const Bytes map = WriteBmp(Speckled(200, round % 5 == 0 ? 101 : 100, seed + round).View());
      MemorySource source(map);
      ASSERT_EQ(file.Write(source), "");
      EXPECT_EQ(ReadAll(*file.Read().Value()).Value(), map) << "round " << round;
      if (round % 30 == 0) file.Delete();
    }
  };
  const pid_t other = StartChild([&] { useSnapshots(100); });
  useSnapshots(200);
  EXPECT_EQ(WaitFor(other), 0);
  EXPECT_EQ(NamesIn("."), "");
}

TEST(Processes, EveryEndOfTheDesktopRescuesTheMap) {
  const auto logOut = [] { emit qApp->commitDataRequest(*qApp->findChild<QSessionManager*>()); };
  const auto quit = [] {
    QEvent event(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &event);
  };
  const auto lose = [] { TakeMessage(QtWarningMsg, {}, "The Wayland connection broke."); };
  const auto loseInThread = [&] {
    std::thread([&] { lose(), _exit(0); }).detach();
    QTest::qWait(60'000);
  };
  const auto loseInGtk = [] {
    auto* log = reinterpret_cast<void (*)(const char*, int, const char*)>(dlsym(nullptr, "g_log"));
    // G_LOG_LEVEL_MESSAGE is 32.
    log("Gdk", 32, "Error flushing display: Broken pipe");
  };
  const std::map<std::string, std::pair<std::function<void()>, int>> ends = {
      {"log out", {logOut, 0}},
      {"quit", {quit, 0}},
      {"lose the display", {lose, 1}},
      {"lose it in a thread", {loseInThread, 1}},
      {"GTK loses it", {loseInGtk, 0}}};
  for (const auto& [name, end] : ends) {
    const StartFolder folder;
    const pid_t child = StartChild([&, act = end.first] {
      EditorInChild editor;
      editor.platform.rescueFolders = {folder.File("")};
      const Termination termination(editor.form);
      editor.Press(5, 5);
      act();
    });
    EXPECT_EQ(WaitFor(child), end.second) << name;
    EXPECT_EQ(RescueCopiesIn(".").size(), 1);
  }
}

}  // namespace
}  // namespace morvane
