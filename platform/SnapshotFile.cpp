#include "platform/SnapshotFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace morvane {
namespace {

constexpr const char* kName = "/mvtmp.~mp";

Failure SystemReason(const std::string& path) {
  return path + ": " + std::strerror(errno);
}

/// Whether the file is one that this user made for nothing else: a planted or linked one is not.
bool IsOurs(const struct stat& file) {
  return S_ISREG(file.st_mode) && file.st_uid == geteuid() && file.st_nlink == 1;
}

}  // namespace

SnapshotFile::~SnapshotFile() {
  Delete();
}

Failure SnapshotFile::Write(const Bytes& content) {
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
  if (failure.empty()) size_ = content.size();
  return failure;
}

Result<Bytes> SnapshotFile::Read() const {
  if (size_ == 0) return Result<Bytes>::Failed("No earlier state of the map was kept.");
  Bytes content(size_);
  std::size_t done = 0;
  while (done < size_) {
    const ssize_t read =
        pread(file_, content.data() + done, size_ - done, static_cast<off_t>(done));
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return Result<Bytes>::Failed(SystemReason(path_));
    if (read == 0) return Result<Bytes>::Failed("The snapshot file was cut short.");
    done += static_cast<std::size_t>(read);
  }
  return content;
}

void SnapshotFile::Delete() {
  size_ = 0;
  if (file_ < 0) return;
  struct stat held {};
  struct stat named {};
  const bool stillThere = fstat(file_, &held) == 0 && lstat(path_.c_str(), &named) == 0 &&
                          held.st_ino == named.st_ino && held.st_dev == named.st_dev;
  if (stillThere) unlink(path_.c_str());
  close(std::exchange(file_, -1));
  isPrivate_ = false;
}

Failure SnapshotFile::OpenInCurrentDirectory() {
  return Open(QDir::currentPath().toStdString() + kName);
}

Failure SnapshotFile::OpenInPrivateFolder() {
  std::string folder = QDir::tempPath().toStdString() + "/morvane-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) return SystemReason(folder);
  Failure failure = Open(folder + kName);
  // Nobody else needs the name, and so nothing is left behind however the process ends.
  if (failure.empty()) unlink(path_.c_str());
  rmdir(folder.c_str());
  isPrivate_ = failure.empty();
  return failure;
}

Failure SnapshotFile::Open(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600);
  if (file < 0) return SystemReason(path);
  struct stat status {};
  if (fstat(file, &status) != 0 || !IsOurs(status) || flock(file, LOCK_EX | LOCK_NB) != 0) {
    close(file);
    return path + " is in use.";
  }
  file_ = file;
  path_ = path;
  return {};
}

Failure SnapshotFile::Overwrite(const Bytes& content) const {
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t written =
        pwrite(file_, content.data() + done, content.size() - done, static_cast<off_t>(done));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return SystemReason(path_);
    done += static_cast<std::size_t>(written);
  }
  return ftruncate(file_, static_cast<off_t>(content.size())) == 0 ? Failure()
                                                                   : SystemReason(path_);
}

}  // namespace morvane
