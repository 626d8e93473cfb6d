#include "platform/Leftovers.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <utility>

#include "platform/PrivateFolders.h"
#include "platform/SnapshotFile.h"
#include "platform/SystemFiles.h"

namespace morvane {
namespace {

class LeftoverFile : public Leftover {
 public:
  LeftoverFile(int folder, std::string name)
      : folder_(fcntl(folder, F_DUPFD_CLOEXEC, 0)),
        name_(std::move(name)),
        file_(OpenAndLockOurs(folder, name_)) {
    if (file_.IsOpen()) fstat(file_.Number(), &status_);
  }

  bool IsOpen() const { return file_.IsOpen(); }
  bool IsPlausible() const { return status_.st_size > 0 && status_.st_size <= kMaxFileBytes; }

  std::size_t Size() const override { return static_cast<std::size_t>(status_.st_size); }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    return morvane::ReadAt(file_.Number(), place, buffer);
  }
  std::time_t WrittenAt() const override { return status_.st_mtim.tv_sec; }
  NewFileOutcome MoveTo(const std::string& path) override {
    return RenameToNew(folder_.Number(), name_, AT_FDCWD, path);
  }
  void Delete() override {
    if (!IsNameOf(folder_.Number(), name_, file_.Number())) return;
    if (unlinkat(folder_.Number(), name_.c_str(), 0) == 0) return;
    // In a read-only folder the next start would otherwise find the map again.
    [[maybe_unused]] const int emptied = ftruncate(file_.Number(), 0);
  }

 private:
  Descriptor folder_;
  std::string name_;
  Descriptor file_;
  struct stat status_ {};
};

/// Opens a file that may be a leftover; null if it can't be one.
std::unique_ptr<LeftoverFile> Open(const Descriptor& folder, const std::string& name) {
  auto file = std::make_unique<LeftoverFile>(folder.Number(), name);
  return file->IsOpen() ? std::move(file) : nullptr;
}

}  // namespace

std::vector<std::unique_ptr<Leftover>> LeftoverSnapshots() {
  std::vector<std::unique_ptr<Leftover>> found;
  const Descriptor current(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC));
  auto here = current.IsOpen() ? Open(current, kSnapshotName) : nullptr;
  if (here != nullptr && here->IsPlausible()) found.push_back(std::move(here));
  for (const std::string& path : PrivateFolders()) {
    const Descriptor folder = OpenPrivateFolder(path);
    if (!folder.IsOpen()) continue;
    for (const std::string& name : NamesIn(folder, kSnapshotName)) {
      auto file = Open(folder, name);
      if (file == nullptr) continue;
      if (file->IsPlausible()) {
        found.push_back(std::move(file));
      } else {
        file->Delete();
      }
    }
  }
  return found;
}

}  // namespace morvane
