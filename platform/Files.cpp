#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/TemporaryFile.h"

namespace morvane {
namespace {

Failure CheckType(const struct stat& file) {
  if (S_ISDIR(file.st_mode)) return "This is a folder, not a file.";
  return S_ISREG(file.st_mode) ? Failure() : "This is not a normal file.";
}

Failure CheckReadable(const struct stat& file) {
  Failure failure = CheckType(file);
  if (failure.empty() && file.st_size > kMaxFileBytes) failure = kTooLargeFile;
  return failure;
}

/// The path with symbolic links resolved, whether the target exists or not.
std::filesystem::path ResolveLinks(std::filesystem::path path) {
  constexpr int kMaxLinks = 40;
  std::error_code error;
  for (int i = 0; i < kMaxLinks && std::filesystem::is_symlink(path, error); ++i) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  return path;
}

Failure CheckReplaceable(const std::filesystem::path& path, const struct stat& old) {
  Failure failure = CheckType(old);
  if (!failure.empty()) return failure;
  // The system would allow replacing it, but then its mode would not protect it.
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? Failure() : ErrnoMessage();
}

Descriptor OpenFolder(const std::filesystem::path& path) {
  return Descriptor(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

OpenedFile OpenRegularFile(const std::string& path) {
  constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return Failed{errno == ENOENT ? "There is no such file." : ErrnoMessage()};
  }
  Failure failure = CheckReadable(status);
  if (!failure.empty()) return Failed{std::move(failure)};
  Descriptor file(open(path.c_str(), kFlags));
  if (!file.IsOpen() || fstat(file.Number(), &status) != 0) return Failed{ErrnoMessage()};
  // Another file may have taken the name before the opening, so it is checked again.
  failure = CheckReadable(status);
  if (!failure.empty()) return Failed{std::move(failure)};
  const auto size = static_cast<std::size_t>(status.st_size);
  return OpenedFile(std::make_unique<FileSource>(std::move(file), size));
}

Failure ReplaceFile(const std::string& path, ByteSource& content) {
  const std::filesystem::path target = ResolveLinks(path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return ErrnoMessage();
  if (exists) {
    Failure failure = CheckReplaceable(target, old);
    if (!failure.empty()) return failure;
  }
  const Descriptor folder = OpenFolder(target.parent_path());
  if (!folder.IsOpen()) {
    return errno == ENOENT ? "The folder doesn't exist." : ErrnoMessage();
  }
  const std::string name = target.filename();
  TemporaryFile file(folder.Number());
  // Nobody else may read it until it has its final mode.
  Failure failure = file.Create(name, exists ? 0600 : 0666);
  if (failure.empty() && exists) file.CopyAttributes(old);
  if (failure.empty()) failure = file.Fill(content, {});
  if (failure.empty()) failure = file.Flush();
  if (failure.empty()) failure = file.RenameTo(name);
  if (failure.empty()) file.FlushFolder();
  return failure;
}

NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content) {
  const std::filesystem::path target = path;
  const Descriptor folder = OpenFolder(target.parent_path());
  if (!folder.IsOpen()) return NewFileOutcome::Failed;
  const std::string name = target.filename();
  TemporaryFile file(folder.Number());
  if (!file.Create(name, 0666).empty() || !file.Fill(content, {}).empty() ||
      !file.Flush().empty()) {
    return NewFileOutcome::Failed;
  }
  const NewFileOutcome outcome = file.RenameToNew(name);
  if (outcome == NewFileOutcome::Done) file.FlushFolder();
  return outcome;
}

}  // namespace morvane
