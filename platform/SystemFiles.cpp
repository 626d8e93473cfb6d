#include "platform/SystemFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace morvane {

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

bool IsOurs(const struct stat& file) {
  return S_ISREG(file.st_mode) && file.st_uid == geteuid() && file.st_nlink == 1;
}

bool IsNameOf(int folder, const std::string& name, int file) {
  struct stat held {};
  struct stat named {};
  return fstat(file, &held) == 0 &&
         fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

bool TryLock(int file) {
  return flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

Descriptor OpenAndLockOurs(int folder, const std::string& name) {
  constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  struct stat status {};
  // Opening a device could have an effect, so the type is checked first.
  if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || !IsOurs(status)) {
    return {};
  }
  Descriptor file(openat(folder, name.c_str(), kFlags));
  const bool isLocked = file.IsOpen() && flock(file.Number(), LOCK_EX | LOCK_NB) == 0 &&
                        fstat(file.Number(), &status) == 0 && IsOurs(status) &&
                        IsNameOf(folder, name, file.Number());
  return isLocked ? std::move(file) : Descriptor();
}

NewFileOutcome RenameToNew(int folder, const std::string& name, int newFolder,
                           const std::string& newName) {
  if (renameat2(folder, name.c_str(), newFolder, newName.c_str(), RENAME_NOREPLACE) == 0) {
    return NewFileOutcome::Done;
  }
  // Some file systems lack RENAME_NOREPLACE but have hard links.
  if ((errno == EINVAL || errno == ENOSYS) &&
      linkat(folder, name.c_str(), newFolder, newName.c_str(), 0) == 0) {
    unlinkat(folder, name.c_str(), 0);
    return NewFileOutcome::Done;
  }
  return errno == EEXIST ? NewFileOutcome::NameTaken : NewFileOutcome::Failed;
}

Failure ErrnoMessage() {
  return std::strerror(errno);
}

Failure ReadAt(int file, std::size_t place, std::span<std::uint8_t> buffer) {
  while (!buffer.empty()) {
    const ssize_t read = pread(file, buffer.data(), buffer.size(), static_cast<off_t>(place));
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return ErrnoMessage();
    if (read == 0) return "The file ends too early.";
    place += static_cast<std::size_t>(read);
    buffer = buffer.subspan(static_cast<std::size_t>(read));
  }
  return {};
}

Failure FileSource::ReadAt(std::size_t place, std::span<std::uint8_t> buffer) {
  Failure failure = morvane::ReadAt(file_.Number(), place, buffer);
  return failure.empty() ? failure : prefix_ + failure;
}

bool WriteAt(int file, std::size_t place, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(place));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    place += static_cast<std::size_t>(written);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace morvane
