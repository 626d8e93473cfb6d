#include "platform/SnapshotFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/SystemFiles.h"

namespace morvane {
namespace {

constexpr const char* kName = "/mvtmp.~mp";

Failure ReasonFor(const std::string& path) {
  return path + ": " + SystemReason();
}

/// Locks the file for this process. On a volume without locks nobody holds anything.
bool IsHeldByOthers(int file) {
  return flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

/// A file that somebody else holds open.
class HeldFile : public ByteSource {
 public:
  HeldFile(int file, std::size_t size, std::string path)
      : file_(file), size_(size), path_(std::move(path)) {}

  std::size_t Size() const override { return size_; }

  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    const Failure failure = morvane::ReadAt(file_, place, buffer);
    return failure.empty() ? failure : path_ + ": " + failure;
  }

 private:
  int file_;
  std::size_t size_;
  std::string path_;
};

}  // namespace

SnapshotFile::~SnapshotFile() {
  Delete();
}

Failure SnapshotFile::Write(ByteSource& content) {
  size_ = 0;
  if (file_ < 0 && !OpenInCurrentDirectory().empty()) {
    Failure failure = OpenInPrivateFolder();
    if (!failure.empty()) return failure;
  }
  Failure failure = Overwrite(content);
  if (!failure.empty() && !isPrivate_) {
    // A full disk here may not be full there.
    Delete();
    if (!OpenInPrivateFolder().empty()) return failure;
    failure = Overwrite(content);
  }
  if (failure.empty()) size_ = content.Size();
  return failure;
}

Result<std::unique_ptr<ByteSource>> SnapshotFile::Read() const {
  using Opened = Result<std::unique_ptr<ByteSource>>;
  if (size_ == 0) return Opened::Failed("No earlier state of the map was kept.");
  return Opened(std::make_unique<HeldFile>(file_, size_, path_));
}

bool SnapshotFile::IsUntouched() const {
  struct stat status {};
  return size_ > 0 && fstat(file_, &status) == 0 && status.st_size == static_cast<off_t>(size_) &&
         status.st_ctim.tv_sec == changed_.tv_sec && status.st_ctim.tv_nsec == changed_.tv_nsec;
}

void SnapshotFile::Delete() {
  size_ = 0;
  if (file_ < 0) return;
  if (IsNameOf(AT_FDCWD, path_, file_)) unlink(path_.c_str());
  close(std::exchange(file_, -1));
  isPrivate_ = false;
}

Failure SnapshotFile::OpenInCurrentDirectory() {
  const std::string folder = QDir::currentPath().toStdString();
  return folder.empty() ? "The start folder is gone." : Open(folder + kName);
}

Failure SnapshotFile::OpenInPrivateFolder() {
  std::string folder = QDir::tempPath().toStdString() + "/morvane-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) return ReasonFor(folder);
  Failure failure = Open(folder + kName);
  // Nobody else needs the name, and so nothing is left behind however the process ends.
  if (failure.empty()) unlink(path_.c_str());
  rmdir(folder.c_str());
  isPrivate_ = failure.empty();
  return failure;
}

Failure SnapshotFile::Open(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600);
  if (file < 0) return ReasonFor(path);
  struct stat status {};
  if (fstat(file, &status) != 0 || !IsOurs(status) || IsHeldByOthers(file)) {
    close(file);
    return path + " is in use.";
  }
  file_ = file;
  path_ = path;
  return {};
}

Failure SnapshotFile::Overwrite(ByteSource& content) {
  Failure failure =
      ForEachChunk(content, chunk_, [this](std::size_t place, std::span<const std::uint8_t> bytes) {
        return WriteAt(file_, place, bytes) ? Failure() : ReasonFor(path_);
      });
  if (!failure.empty()) return failure;
  const auto size = static_cast<off_t>(content.Size());
  struct stat status {};
  bool isDone = fstat(file_, &status) == 0;
  if (isDone && status.st_size != size) {
    isDone = ftruncate(file_, size) == 0 && fstat(file_, &status) == 0;
  }
  changed_ = status.st_ctim;
  return isDone ? Failure() : ReasonFor(path_);
}

}  // namespace morvane
