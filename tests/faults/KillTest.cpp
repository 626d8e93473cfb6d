#include <sys/mman.h>

#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <random>
#include <thread>

#include "tests/support/Child.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

constexpr const char* kPassing = ".morvane-save-1";

/// What the saver is at, seen by who kills it.
struct Progress {
  volatile int saves = 0;
  volatile bool isSaving = false;
  volatile int map = 0;  ///< which of the two is being saved
};

/// Saves two maps by turns, from one of them on, until it is killed.
[[noreturn]] void SaveForEver(const std::array<Picture, 2>& maps, const std::string& path,
                              int first, Progress& progress) {
  QtPlatform platform;
  for (int i = first;; ++i) {
    progress.map = i % 2;
    progress.isSaving = true;
    if (!SavePicture(platform, maps[i % 2].View(), path).empty()) _exit(1);
    progress.isSaving = false;
    progress.saves = progress.saves + 1;
  }
}

TEST(Kill, AtAnyMomentOfASaveLeavesTheOldMapOrTheNewOne) {
  using Clock = std::chrono::steady_clock;
  constexpr int kKills = 300;
  const QTemporaryDir folder;
  const std::string path = folder.filePath("map.bmp").toStdString();
  const std::string passing = folder.filePath(kPassing).toStdString();
  const std::array<Picture, 2> maps = {Speckled(617, 484, 1), Speckled(617, 484, 2)};
  const std::size_t whole = WriteBmp(maps[0].View()).size();
  QtPlatform platform;
  const Clock::time_point begin = Clock::now();
  constexpr int kTried = 10;
  for (int i = 0; i < kTried; ++i) ASSERT_EQ(SavePicture(platform, maps[1].View(), path), "");
  const std::chrono::duration<double> oneSave = (Clock::now() - begin) / kTried;

  void* shared =
      mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(shared, MAP_FAILED);
  std::mt19937 random(4711);
  // A disk may flush far longer than it writes: all lengths of time get their share.
  std::uniform_real_distribution<double> halvings(0, 9);
  std::map<std::string, int> fell;
  int present = 1;
  for (int i = 0; i < kKills; ++i) {
    auto* progress = new (shared) Progress;
    const pid_t saver = StartChild([&] { SaveForEver(maps, path, 1 - present, *progress); });
    while (!progress->isSaving && progress->saves == 0) std::this_thread::yield();
    std::this_thread::sleep_for(2 * oneSave * std::exp2(-halvings(random)));
    kill(saver, SIGKILL);
    ASSERT_EQ(WaitFor(saver), 128 + SIGKILL);

    const Picture found = MapIn(path);
    present = found == maps[0] ? 0 : 1;
    ASSERT_EQ(found, maps[present]) << "kill " << i << " left neither map";
    std::error_code none;
    const std::uintmax_t left = std::filesystem::file_size(passing, none);
    ASSERT_EQ(NamesIn(folder.path().toStdString()),
              none ? "map.bmp" : std::string(kPassing) + " map.bmp");
    if (!none) {
      ++fell[left < whole ? "during the write" : "during the flush or the rename"];
    } else if (progress->isSaving) {
      ++fell[present == progress->map ? "after the rename, before the folder's flush was over"
                                      : "before the write"];
    } else {
      ++fell["between two saves"];
    }
  }
  munmap(shared, sizeof(Progress));
  for (const auto& [where, count] : fell) {
    std::printf("%d of %d kills fell %s\n", count, kKills, where.c_str());
  }
  EXPECT_GT(fell["during the write"] + fell["during the flush or the rename"], kKills / 10);
  // What was left last is taken away by the next save.
  ASSERT_EQ(SavePicture(platform, maps[0].View(), path), "");
  EXPECT_EQ(NamesIn(folder.path().toStdString()), "map.bmp");
}

}  // namespace
}  // namespace morvane
