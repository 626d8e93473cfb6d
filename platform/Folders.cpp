#include "platform/Folders.h"

#include <fcntl.h>
#include <mntent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>
#include <system_error>

#include "platform/NaturalOrder.h"

namespace morvane {
namespace {

struct CloseTable {
  void operator()(std::FILE* table) const { endmntent(table); }
};

using Entry = std::filesystem::directory_entry;

/// The names of the entries that are wanted and not hidden, in natural order.
template <typename Wanted>
std::vector<std::string> NamesIn(const std::string& folder, Wanted wanted) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename();
    if (!name.starts_with('.') && wanted(*entry)) names.push_back(name);
  }
  SortNaturally(names);
  return names;
}

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// The endings in a list of patterns "*.a;*.b", in lower case.
std::vector<std::string> EndingsOf(const std::string& patterns) {
  std::vector<std::string> endings;
  std::istringstream list(LowerCase(patterns));
  for (std::string pattern; std::getline(list, pattern, ';');) endings.push_back(pattern.substr(1));
  return endings;
}

}  // namespace

bool IsReadableFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         faccessat(AT_FDCWD, path.c_str(), R_OK | X_OK, AT_EACCESS) == 0;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
  return NamesIn(folder, [](const Entry& entry) {
    std::error_code error;
    return entry.is_directory(error);
  });
}

std::vector<std::string> MountedVolumes() {
  std::vector<std::string> roots = {"/"};
  // Reading the table of mounts never blocks, even if a network volume is gone.
  const std::unique_ptr<std::FILE, CloseTable> table(setmntent("/proc/self/mounts", "r"));
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
  const std::vector<std::string> endings = EndingsOf(pattern);
  return NamesIn(folder, [&endings](const Entry& entry) {
    const std::string lower = LowerCase(entry.path().filename());
    std::error_code error;
    return entry.is_regular_file(error) &&
           std::any_of(endings.begin(), endings.end(),
                       [&lower](const std::string& ending) { return lower.ends_with(ending); });
  });
}

}  // namespace morvane
