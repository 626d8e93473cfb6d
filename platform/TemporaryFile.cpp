#include "platform/TemporaryFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace morvane {
namespace {

constexpr int kMaxNames = 100;

/// On failure returns false and sets errno.
bool FlushToDisk(int file) {
  int outcome = fsync(file);
  while (outcome != 0 && errno == EINTR) outcome = fsync(file);
  // Some file systems don't support fsync.
  return outcome == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

TemporaryFile::~TemporaryFile() {
  if (!name_.empty()) unlinkat(folder_, name_.c_str(), 0);
}

Failure TemporaryFile::Create(const std::string& targetName, mode_t mode) {
  for (int i = 1; i <= kMaxNames; ++i) {
    const std::string name = ".morvane-save-" + std::to_string(i);
    if (name == targetName) continue;
    // Only the process that has locked the file of that name may rename or remove it.
    if (OpenAndLockOurs(folder_, name).IsOpen()) unlinkat(folder_, name.c_str(), 0);
    if (TryName(name, mode)) return {};
    if (errno != EEXIST) return ErrnoMessage();
  }
  return "Too many files in the folder are called \".morvane-save\" and a number.";
}

bool TemporaryFile::TryName(const std::string& name, mode_t mode) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  Descriptor file(openat(folder_, name.c_str(), kFlags, mode));
  if (!file.IsOpen()) return false;
  // Another save may have found the file before it was locked, and removed it.
  if (!TryLock(file.Number()) || !IsNameOf(folder_, name, file.Number())) {
    errno = EEXIST;
    return false;
  }
  file_ = std::move(file);
  name_ = name;
  return true;
}

void TemporaryFile::CopyAttributes(const struct stat& other) {
  const int file = file_.Number();
  const bool hasGroup =
      fchown(file, other.st_uid, other.st_gid) == 0 || fchown(file, -1, other.st_gid) == 0;
  // Permissions of a group must not be given to another group.
  fchmod(file, other.st_mode & (hasGroup ? 0777U : 0707U));
}

Failure TemporaryFile::Fill(ByteSource& content, const ChunkBuffer& buffer) {
  const int file = file_.Number();
  return ForEachChunk(content, buffer,
                      [file](std::size_t place, std::span<const std::uint8_t> bytes) {
                        return WriteAt(file, place, bytes) ? Failure() : ErrnoMessage();
                      });
}

Failure TemporaryFile::Flush() const {
  return FlushToDisk(file_.Number()) ? Failure() : ErrnoMessage();
}

Failure TemporaryFile::RenameTo(const std::string& name) {
  if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return ErrnoMessage();
  name_.clear();
  return {};
}

NewFileOutcome TemporaryFile::RenameToNew(const std::string& name) {
  const NewFileOutcome outcome = morvane::RenameToNew(folder_, name_, folder_, name);
  if (outcome == NewFileOutcome::Done) name_.clear();
  return outcome;
}

void TemporaryFile::FlushFolder() const {
  // The file has been renamed, and after a power cut the old file would be complete too, so a
  // folder that can't be flushed is not a failure.
  const Descriptor folder(openat(folder_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) FlushToDisk(folder.Number());
}

}  // namespace morvane
