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

struct Note {
  int folder;
  std::string name;
  std::string copy;
};

template <typename Visit>
void ForEachNote(Visit visit) {
  for (const std::string& path : PrivateFolders()) {
    const Descriptor folder = OpenPrivateFolder(path);
    if (!folder.IsOpen()) continue;
    for (const std::string& name : NamesIn(folder, kNote)) {
      std::error_code error;
      const std::filesystem::path copy =
          std::filesystem::read_symlink(std::filesystem::path(path) / name, error);
      if (!error) visit(Note{folder.Number(), name, copy});
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
  ForEachNote([&paths](const Note& note) { paths.push_back(note.copy); });
  return paths;
}

void DeleteRescueNotes(const std::vector<std::string>& paths) {
  ForEachNote([&paths](const Note& note) {
    if (std::find(paths.begin(), paths.end(), note.copy) == paths.end()) return;
    unlinkat(note.folder, note.name.c_str(), 0);
  });
  // rmdir fails for a folder that is in use.
  for (const std::string& folder : PrivateFolders()) rmdir(folder.c_str());
}

}  // namespace morvane
