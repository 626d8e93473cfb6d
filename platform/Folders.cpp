#include "platform/Folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <mntent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/NaturalOrder.h"

namespace morvane {
namespace {

struct Close {
  void operator()(DIR* folder) const { closedir(folder); }
  void operator()(std::FILE* table) const { endmntent(table); }
};

enum class Kind { File, Folder };

/// Whether an entry of a folder is of this type. Links are followed.
bool Is(Kind kind, int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) {
    return entry.d_type == (kind == Kind::File ? DT_REG : DT_DIR);
  }
  struct stat status {};
  if (fstatat(folder, entry.d_name, &status, 0) != 0) return false;
  return kind == Kind::File ? S_ISREG(status.st_mode) : S_ISDIR(status.st_mode);
}

/// The names of the visible entries of one type, in natural order. Uses readdir, since a folder may
/// have very many entries.
template <typename Wanted>
std::vector<std::string> NamesIn(const std::string& folder, Kind kind, Wanted wanted) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, Close> open(opendir(folder.c_str()));
  if (open == nullptr) return names;
  const int number = dirfd(open.get());
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name[0] != '.' && wanted(name) && Is(kind, number, *entry)) names.emplace_back(name);
  }
  SortNaturally(names);
  return names;
}

/// Whether a name matches one of the patterns "*.a;*.b", case ignored.
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

bool IsReadableFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         faccessat(AT_FDCWD, path.c_str(), R_OK | X_OK, AT_EACCESS) == 0;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
  return NamesIn(folder, Kind::Folder, [](std::string_view /*name*/) { return true; });
}

std::vector<std::string> MountedVolumes() {
  std::vector<std::string> roots = {"/"};
  // Reading the table of mounts never blocks, even if a network volume is gone.
  const std::unique_ptr<std::FILE, Close> table(setmntent("/proc/self/mounts", "r"));
  if (table == nullptr) return roots;
  while (const mntent* mount = getmntent(table.get())) {
    const std::string source = mount->mnt_fsname;
    const bool isVolume = source.starts_with("/dev/") || source.find(":/") != std::string::npos ||
                          source.starts_with("//");
    const bool isKnown = std::find(roots.begin(), roots.end(), mount->mnt_dir) != roots.end();
    if (isVolume && !isKnown) roots.emplace_back(mount->mnt_dir);
  }
  return roots;
}

std::vector<std::string> MatchingFiles(const std::string& folder, const std::string& pattern) {
  return NamesIn(folder, Kind::File,
                 [&pattern](std::string_view name) { return Matches(name, pattern); });
}

}  // namespace morvane
