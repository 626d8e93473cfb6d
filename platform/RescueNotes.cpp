#include "platform/RescueNotes.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/PrivateFolders.h"

namespace morvane {
namespace {

/// A note is a symbolic link to the rescue copy, since a link is created atomically.
constexpr const char* kNote = "rescue-";

/// Calls `visit` with the folder, the name and the rescue copy of each note.
template <typename Visit>
void ForEachNote(Visit visit) {
  for (const std::string& path : PrivateFolders()) {
    const Descriptor folder = OpenPrivateFolder(path);
    if (!folder.IsOpen()) continue;
    for (const std::string& name : NamesIn(folder, kNote)) {
      std::error_code error;
      const std::filesystem::path copy =
          std::filesystem::read_symlink(std::filesystem::path(path) / name, error);
      if (!error) visit(folder, name, copy.string());
    }
  }
}

}  // namespace

void WriteRescueNote(const std::string& path) {
  constexpr int kMaxNotes = 100;
  for (const std::string& folder : PrivateFolders()) {
    if (!MakePrivateFolder(folder).IsOpen()) continue;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 1; error == std::errc::file_exists && i <= kMaxNotes; ++i) {
      std::filesystem::create_symlink(path, folder + '/' + kNote + std::to_string(i), error);
    }
    if (!error) return;
  }
}

std::vector<std::string> ReadRescueNotes() {
  std::vector<std::string> paths;
  ForEachNote([&paths](const Descriptor& /*folder*/, const std::string& /*name*/,
                       const std::string& copy) { paths.push_back(copy); });
  return paths;
}

void DeleteRescueNotes(const std::vector<std::string>& paths) {
  ForEachNote([&paths](const Descriptor& folder, const std::string& name, const std::string& copy) {
    if (std::find(paths.begin(), paths.end(), copy) == paths.end()) return;
    unlinkat(folder.Number(), name.c_str(), 0);
  });
  // rmdir fails for a folder that is in use.
  for (const std::string& folder : PrivateFolders()) rmdir(folder.c_str());
}

}  // namespace morvane
