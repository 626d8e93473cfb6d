#include "platform/SnapshotFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/PrivateFolders.h"
#include "platform/TemporaryFile.h"

namespace morvane {
namespace {

/// Locks the file for this process. On a volume without locks no file is locked.
bool IsHeldByOthers(int file) {
  return flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

Failure SnapshotFile::Write(ByteSource& content) {
  size_ = 0;
  Failure failure = place_.IsOpen() ? Failure() : place_.OpenInCurrentDirectory();
  if (failure.empty()) failure = place_.Write(content, chunk_);
  if (!failure.empty() && !WriteToPrivateFolder(content)) return failure;
  struct stat status {};
  fstat(place_.File(), &status);
  changed_ = status.st_ctim;
  size_ = content.Size();
  return {};
}

/// The disk of the other folder may have space.
bool SnapshotFile::WriteToPrivateFolder(ByteSource& content) {
  for (const std::string& folder : PrivateFolders()) {
    Place place;
    if (!place.OpenInPrivateFolder(folder).empty()) continue;
    if (place.Write(content, chunk_).empty()) {
      place_.Delete();
      place_ = std::move(place);
      return true;
    }
    place.Delete();
  }
  return false;
}

OpenedFile SnapshotFile::Read() const {
  if (size_ == 0) return Failed{"No earlier state of the map was kept."};
  Descriptor file(fcntl(place_.File(), F_DUPFD_CLOEXEC, 0));
  return OpenedFile(std::make_unique<FileSource>(std::move(file), size_, place_.Path() + ": "));
}

bool SnapshotFile::IsUntouched() const {
  struct stat status {};
  return size_ > 0 && fstat(place_.File(), &status) == 0 &&
         status.st_size == static_cast<off_t>(size_) && status.st_ctim.tv_sec == changed_.tv_sec &&
         status.st_ctim.tv_nsec == changed_.tv_nsec;
}

void SnapshotFile::Delete() {
  size_ = 0;
  place_.Delete();
}

Failure SnapshotFile::Place::OpenInCurrentDirectory() {
  folderPath_ = QDir::currentPath().toStdString();
  if (folderPath_.empty()) return "The start folder is gone.";
  folder_ = Descriptor(open(folderPath_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  return folder_.IsOpen() ? Open(O_CREAT) : Reason();
}

Failure SnapshotFile::Place::OpenInPrivateFolder(const std::string& folder) {
  constexpr int kMaxNames = 100;
  folderPath_ = folder;
  folder_ = MakePrivateFolder(folder);
  isPrivate_ = true;
  Failure failure = folder_.IsOpen() ? Failure() : Reason();
  for (int i = 1; folder_.IsOpen() && !IsOpen() && i <= kMaxNames; ++i) {
    name_ = kSnapshotName + ('.' + std::to_string(i));
    // An existing file belongs to another run.
    failure = Open(O_CREAT | O_EXCL);
  }
  return failure;
}

Failure SnapshotFile::Place::Open(int flags) {
  constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(openat(folder_.Number(), name_.c_str(), kFlags | flags, 0600));
  if (!file.IsOpen()) return Reason();
  struct stat status {};
  if (fstat(file.Number(), &status) != 0 || !IsOurs(status) || IsHeldByOthers(file.Number()) ||
      !IsNameOf(folder_.Number(), name_, file.Number())) {
    return Path() + " is in use.";
  }
  file_ = std::move(file);
  return {};
}

Failure SnapshotFile::Place::Write(ByteSource& content, const ChunkBuffer& chunk) {
  Head head{};
  Failure failure = content.ReadAt(0, std::span(head).first(std::min(head.size(), content.Size())));
  if (!failure.empty()) return failure;
  // An interrupted write leaves rows of two maps, which is a valid file only if both have the same
  // header.
  failure = head == head_ ? Overwrite(content, chunk) : Replace(content, chunk);
  if (failure.empty()) head_ = head;
  return failure;
}

Failure SnapshotFile::Place::Overwrite(ByteSource& content, const ChunkBuffer& chunk) {
  Failure failure =
      ForEachChunk(content, chunk, [this](std::size_t place, std::span<const std::uint8_t> bytes) {
        return WriteAt(File(), place, bytes) ? Failure() : Reason();
      });
  if (!failure.empty()) return failure;
  const auto size = static_cast<off_t>(content.Size());
  struct stat status {};
  bool isDone = fstat(File(), &status) == 0;
  if (isDone && status.st_size != size) isDone = ftruncate(File(), size) == 0;
  return isDone ? Failure() : Reason();
}

Failure SnapshotFile::Place::Replace(ByteSource& content, const ChunkBuffer& chunk) {
  // Another file may have taken the name since.
  if (!IsNameOf(folder_.Number(), name_, File())) return Overwrite(content, chunk);
  TemporaryFile fresh(folder_.Number());
  Failure failure = fresh.Create(name_, 0600);
  if (failure.empty()) failure = fresh.Fill(content, chunk);
  if (failure.empty()) failure = fresh.RenameTo(name_);
  if (!failure.empty()) return Path() + ": " + failure;
  file_ = fresh.Release();
  return {};
}

void SnapshotFile::Place::Delete() {
  if (!IsOpen()) return;
  if (IsNameOf(folder_.Number(), name_, File())) unlinkat(folder_.Number(), name_.c_str(), 0);
  if (isPrivate_) rmdir(folderPath_.c_str());
  *this = Place();
}

Failure SnapshotFile::Place::Reason() const {
  return Path() + ": " + ErrnoMessage();
}

}  // namespace morvane
