#include "platform/PrivateFolders.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace morvane {

std::vector<std::string> PrivateFolders() {
  const char* variable = std::getenv("XDG_STATE_HOME");
  std::string state = variable != nullptr ? variable : "";
  if (!state.starts_with('/')) state = QDir::homePath().toStdString() + "/.local/state";
  return {state + "/morvane",
          QDir::tempPath().toStdString() + "/morvane-" + std::to_string(geteuid())};
}

Descriptor OpenPrivateFolder(const std::string& path) {
  constexpr mode_t kWritableByOthers = S_IWGRP | S_IWOTH;
  Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status {};
  const bool isPrivate = folder.IsOpen() && fstat(folder.Number(), &status) == 0 &&
                         status.st_uid == geteuid() && (status.st_mode & kWritableByOthers) == 0;
  return isPrivate ? std::move(folder) : Descriptor();
}

Descriptor MakePrivateFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
  mkdir(path.c_str(), 0700);
  return OpenPrivateFolder(path);
}

std::vector<std::string> NamesIn(const Descriptor& folder, const std::string& prefix) {
  std::vector<std::string> names;
  std::error_code error;
  const std::string path = "/proc/self/fd/" + std::to_string(folder.Number());
  for (std::filesystem::directory_iterator entry(path, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename();
    if (name.starts_with(prefix)) names.push_back(name);
  }
  return names;
}

}  // namespace morvane
