#include "platform/RescueNotes.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "platform/PrivateFolders.h"

namespace morvane {
namespace {

/// A note is a symbolic link to the rescue copy: made in one step, and never half written.
constexpr const char* kNote = "rescue-";

}  // namespace

void WriteRescueNote(const std::string& path) {
  constexpr int kMostNotes = 100;
  for (const std::string& folder : PrivateFolders()) {
    if (!MakePrivateFolder(folder).IsOpen()) continue;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 1; error == std::errc::file_exists && i <= kMostNotes; ++i) {
      std::filesystem::create_symlink(path, folder + '/' + kNote + std::to_string(i), error);
    }
    if (!error) return;
  }
}

std::vector<std::string> TakeRescueNotes() {
  std::vector<std::string> paths;
  for (const std::string& path : PrivateFolders()) {
    const Descriptor folder = OpenPrivateFolder(path);
    if (!folder.IsOpen()) continue;
    for (const std::string& name : NamesIn(folder, kNote)) {
      std::error_code error;
      const std::filesystem::path copy = std::filesystem::read_symlink(path + '/' + name, error);
      if (!error) paths.push_back(copy);
      unlinkat(folder.Number(), name.c_str(), 0);
    }
    // Nothing stays in the user's home that isn't needed; a folder in use can't be removed.
    rmdir(path.c_str());
  }
  return paths;
}

}  // namespace morvane
