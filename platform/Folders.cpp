#include "platform/Folders.h"

#include <fcntl.h>
#include <mntent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
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
  const QStringList endings =
      QString::fromStdString(pattern).remove('*').split(';', Qt::SkipEmptyParts);
  return NamesIn(folder, [&endings](const Entry& entry) {
    const QString name = QString::fromStdString(entry.path().filename());
    std::error_code error;
    return std::any_of(endings.begin(), endings.end(),
                       [&name](const QString& ending) {
                         return name.endsWith(ending, Qt::CaseInsensitive);
                       }) &&
           entry.is_regular_file(error);
  });
}

}  // namespace morvane
