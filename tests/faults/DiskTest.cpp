#include <sys/resource.h>

#include <csignal>

#include "document/Options.h"
#include "tests/faults/Child.h"

namespace morvane {
namespace {

/// What becomes of the disk or the folder under a running editor.
struct Fault {
  const char* name;
  const char* reason;          ///< of a save that fails
  const char* newFileReason;   ///< of one under a new name
  bool undoes;                 ///< the snapshot isn't hit
  bool rescues;                ///< another folder takes the rescue copy
  void (*prepare)(const std::string& folder);
  void (*happen)(const std::string& folder);
};

void Nothing(const std::string& /*folder*/) {}

void PrepareSmallDisk(const std::string& folder) {
  constexpr std::size_t kBytes = 6'000'000;
  MountSmallDisk(folder, kBytes);
}

void FillDisk(const std::string& folder) {
  std::ofstream filler(folder + "/filler");
  while (filler << std::string(4096, 'x') << std::flush) {
  }
}

void LimitFiles(const std::string& /*folder*/) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = 2000;
  setrlimit(RLIMIT_FSIZE, &limit);
}

void LockFolder(const std::string& /*folder*/) {
  std::filesystem::permissions(std::filesystem::current_path(), std::filesystem::perms(0500));
}

void RemoveFolder(const std::string& /*folder*/) {
  std::filesystem::remove_all(std::filesystem::current_path());
}
