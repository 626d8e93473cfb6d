#include "platform/SnapshotFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <algorithm>
#include <utility>

#include "platform/PrivateFolders.h"
#include "platform/TemporaryFile.h"

namespace morvane {

Failure SnapshotFile::Write(ByteSource& content) {
  size_ = 0;
  Failure failure = file_.IsOpen() ? Failure() : file_.OpenInCurrentDirectory();
  if (failure.empty()) failure = file_.Write(content, chunk_);
  if (!failure.empty() && !WriteToPrivateFolder(content)) return failure;
  struct stat status {};
  fstat(file_.Number(), &status);
  changed_ = status.st_ctim;
  size_ = content.Size();
  return {};
}

bool SnapshotFile::WriteToPrivateFolder(ByteSource& content) {
  for (const std::string& folder : PrivateFolders()) {
    LockedFile file;
    if (!file.OpenInPrivateFolder(folder).empty()) continue;
    if (file.Write(content, chunk_).empty()) {
      file_.Delete();
      file_ = std::move(file);
      return true;
    }
    file.Delete();
  }
  return false;
}

OpenedFile SnapshotFile::Read() const {
  if (size_ == 0) return Failed{"No earlier state of the map was kept."};
  Descriptor file(fcntl(file_.Number(), F_DUPFD_CLOEXEC, 0));
  return OpenedFile(std::make_unique<FileSource>(std::move(file), size_, file_.Path() + ": "));
}

bool SnapshotFile::IsUntouched() const {
  struct stat status {};
  return size_ > 0 && fstat(file_.Number(), &status) == 0 &&
         status.st_size == static_cast<off_t>(size_) && status.st_ctim.tv_sec == changed_.tv_sec &&
         status.st_ctim.tv_nsec == changed_.tv_nsec;
}

void SnapshotFile::Delete() {
  size_ = 0;
  file_.Delete();
}

Failure SnapshotFile::LockedFile::OpenInCurrentDirectory() {
  folderPath_ = QDir::currentPath().toStdString();
  if (folderPath_.empty()) return "The start folder is gone.";
  folder_ = Descriptor(open(folderPath_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  return folder_.IsOpen() ? Open(O_CREAT) : Reason();
}

Failure SnapshotFile::LockedFile::OpenInPrivateFolder(const std::string& folder) {
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

Failure SnapshotFile::LockedFile::Open(int flags) {
  constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(openat(folder_.Number(), name_.c_str(), kFlags | flags, 0600));
  if (!file.IsOpen()) return Reason();
  struct stat status {};
  if (fstat(file.Number(), &status) != 0 || !IsOurs(status) || !TryLock(file.Number()) ||
      !IsNameOf(folder_.Number(), name_, file.Number())) {
    return Path() + " is in use.";
  }
  file_ = std::move(file);
  return {};
}

Failure SnapshotFile::LockedFile::Write(ByteSource& content, const ChunkBuffer& chunk) {
  Header header{};
  Failure failure =
      content.ReadAt(0, std::span(header).first(std::min(header.size(), content.Size())));
  if (!failure.empty()) return failure;
  // An interrupted write leaves rows of two maps, which is a valid file only if both have the same
  // header.
  failure = header == header_ ? Overwrite(content, chunk) : Replace(content, chunk);
  if (failure.empty()) header_ = header;
  return failure;
}

Failure SnapshotFile::LockedFile::Overwrite(ByteSource& content, const ChunkBuffer& chunk) {
  Failure failure =
      ForEachChunk(content, chunk, [this](std::size_t place, std::span<const std::uint8_t> bytes) {
        return WriteAt(Number(), place, bytes) ? Failure() : Reason();
      });
  if (!failure.empty()) return failure;
  const auto size = static_cast<off_t>(content.Size());
  struct stat status {};
  bool isDone = fstat(Number(), &status) == 0;
  if (isDone && status.st_size != size) isDone = ftruncate(Number(), size) == 0;
  return isDone ? Failure() : Reason();
}

Failure SnapshotFile::LockedFile::Replace(ByteSource& content, const ChunkBuffer& chunk) {
  // If another file has taken the name since, that one must not be replaced.
  if (!IsNameOf(folder_.Number(), name_, Number())) return Overwrite(content, chunk);
  TemporaryFile fresh(folder_.Number());
  Failure failure = fresh.Create(name_, 0600);
  if (failure.empty()) failure = fresh.Fill(content, chunk);
  if (failure.empty()) failure = fresh.RenameTo(name_);
  if (!failure.empty()) return Path() + ": " + failure;
  file_ = fresh.Release();
  return {};
}

void SnapshotFile::LockedFile::Delete() {
  if (!IsOpen()) return;
  if (IsNameOf(folder_.Number(), name_, Number())) unlinkat(folder_.Number(), name_.c_str(), 0);
  if (isPrivate_) rmdir(folderPath_.c_str());
  *this = LockedFile();
}

Failure SnapshotFile::LockedFile::Reason() const {
  return Path() + ": " + ErrnoMessage();
}

}  // namespace morvane
