#include "platform/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <mntent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

#include "document/Picture.h"
#include "platform/NaturalOrder.h"
#include "platform/PassingFile.h"

namespace morvane {
namespace {

Failure WhyNotNormal(const QFileInfo& info) {
  if (info.isDir()) return "This is a folder, not a file.";
  if (info.isFile()) return info.size() > kMostFileBytes ? kTooLargeFile : Failure();
  return info.exists() ? "This is not a normal file." : "There is no such file.";
}

Failure ReasonOf(const QFileDevice& file) {
  return file.errorString().toStdString();
}

class NormalFile : public ByteSource {
 public:
  explicit NormalFile(const std::string& path) : file_(QString::fromStdString(path)) {}

  Failure Open() {
    Failure failure = WhyNotNormal(QFileInfo(file_));
    if (!failure.empty()) return failure;
    if (!file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return ReasonOf(file_);
    size_ = static_cast<std::size_t>(file_.size());
    return {};
  }

  std::size_t Size() const override { return size_; }

  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    if (!file_.seek(static_cast<qint64>(place))) return ReasonOf(file_);
    while (!buffer.empty()) {
      const qint64 read =
          file_.read(reinterpret_cast<char*>(buffer.data()), static_cast<qint64>(buffer.size()));
      if (read < 0) return ReasonOf(file_);
      if (read == 0) return "The file ends too early.";
      buffer = buffer.subspan(static_cast<std::size_t>(read));
    }
    return {};
  }

 private:
  QFile file_;
  std::size_t size_ = 0;
};

/// The path behind symbolic links, whether anything is there or not.
std::filesystem::path WhereLinksLead(std::filesystem::path path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  return path;
}

Failure WhyNotReplaced(const std::filesystem::path& path, const struct stat& old) {
  if (S_ISDIR(old.st_mode)) return "This is a folder, not a file.";
  if (!S_ISREG(old.st_mode)) return "This is not a normal file.";
  // The system would replace it nevertheless, but then its mode was no protection.
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? Failure()
                                                                  : std::strerror(errno);
}

enum class Kind { File, Folder };

/// Whether an entry of a folder is of the kind; links count as what they lead to.
bool Is(Kind kind, int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) {
    return entry.d_type == (kind == Kind::File ? DT_REG : DT_DIR);
  }
  struct stat status {};
  if (fstatat(folder, entry.d_name, &status, 0) != 0) return false;
  return kind == Kind::File ? S_ISREG(status.st_mode) : S_ISDIR(status.st_mode);
}

/// The names of what a folder holds of a kind and shows, in natural order. The system is asked
/// directly: a folder may hold very many.
template <typename Wanted>
std::vector<std::string> NamesIn(const std::string& folder, Kind kind, Wanted wanted) {
  std::vector<std::string> names;
  DIR* open = opendir(folder.c_str());
  if (open == nullptr) return names;
  while (const dirent* entry = readdir(open)) {
    const std::string_view name = entry->d_name;
    if (name[0] != '.' && wanted(name) && Is(kind, dirfd(open), *entry)) names.emplace_back(name);
  }
  closedir(open);
  SortNaturally(names);
  return names;
}

/// Whether a name ends as one of the patterns "*.a;*.b" does, case ignored.
bool Matches(std::string_view name, std::string_view patterns) {
  const auto equal = [](char one, char other) {
    return std::tolower(static_cast<unsigned char>(one)) ==
           std::tolower(static_cast<unsigned char>(other));
  };
  while (!patterns.empty()) {
    const std::size_t end = std::min(patterns.find(';'), patterns.size());
    const std::string_view ending = patterns.substr(1, end - 1);
    if (name.size() >= ending.size() &&
        std::equal(ending.begin(), ending.end(), name.end() - std::ssize(ending), equal)) {
      return true;
    }
    patterns.remove_prefix(std::min(end + 1, patterns.size()));
  }
  return false;
}

}  // namespace

Result<std::unique_ptr<ByteSource>> OpenNormalFile(const std::string& path) {
  using Opened = Result<std::unique_ptr<ByteSource>>;
  auto file = std::make_unique<NormalFile>(path);
  Failure failure = file->Open();
  return failure.empty() ? Opened(std::move(file)) : Opened::Failed(std::move(failure));
}

Failure ReplaceFile(const std::string& path, ByteSource& content) {
  const std::filesystem::path target = WhereLinksLead(path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return std::strerror(errno);
  if (exists) {
    Failure failure = WhyNotReplaced(target, old);
    if (!failure.empty()) return failure;
  }
  const Descriptor folder(open(target.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) {
    return errno == ENOENT ? "The folder doesn't exist." : std::strerror(errno);
  }
  const std::string name = target.filename();
  PassingFile file(folder.Number());
  // Until it has the right mode, nobody else may look into it.
  Failure failure = file.Create(name, exists ? 0600 : 0666);
  if (failure.empty() && exists) file.TakeAfter(old);
  if (failure.empty()) failure = file.Fill(content);
  return failure.empty() ? file.RenameTo(name) : failure;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
  return NamesIn(folder, Kind::Folder, [](std::string_view /*name*/) { return true; });
}

std::vector<std::string> MountedVolumes() {
  std::vector<std::string> roots = {"/"};
  // The table of mounts answers at once, also where a volume behind it has gone.
  std::FILE* table = setmntent("/proc/self/mounts", "r");
  if (table == nullptr) return roots;
  while (const mntent* mount = getmntent(table)) {
    const std::string source = mount->mnt_fsname;
    const bool isVolume = source.starts_with("/dev/") || source.find(":/") != std::string::npos ||
                          source.starts_with("//");
    const bool isKnown = std::find(roots.begin(), roots.end(), mount->mnt_dir) != roots.end();
    if (isVolume && !isKnown) roots.emplace_back(mount->mnt_dir);
  }
  endmntent(table);
  return roots;
}

std::vector<std::string> MatchingFiles(const std::string& folder, const std::string& pattern) {
  return NamesIn(folder, Kind::File,
                 [&pattern](std::string_view name) { return Matches(name, pattern); });
}

}  // namespace morvane
