#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "document/Picture.h"
#include "platform/Platform.h"

namespace morvane {

/// A message box as the user saw it.
struct SeenBox {
  std::string text;
  BoxStyle style;
  std::string title;
  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

/// A desktop in memory: answers are scripted, and what happened is written down.
class FakePlatform : public Platform {
 public:
  std::deque<Answer> answers;           ///< to the next message boxes; Ok when none is left
  std::deque<std::string> chosenFiles;  ///< from the next file dialogs; a cancel when none is left
  std::map<std::string, Bytes> files;
  std::set<std::string> folders = {"/start", "/maps", "/custom"};
  std::map<std::string, std::string> settings;  ///< by "section/key"
  std::set<std::string> unwritable;             ///< beginnings of paths
  bool snapshotFails = false;

  std::vector<SeenBox> boxes;
  std::vector<FileDialog> dialogs;
  int snapshots = 0;  ///< written so far
  Bytes snapshot;
  std::function<void()> onShowState;

  void ShowState() override {
    if (onShowState) onShowState();
  }
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override {
    boxes.push_back({text, style, title});
    return Next(answers, Answer::Ok);
  }
  std::string ShowOpen(const FileDialog& dialog) override { return Choose(dialog); }
  std::string ShowSave(const FileDialog& dialog) override { return Choose(dialog); }
  std::string CurrentDirectory() override { return "/start"; }
  bool FileExists(const std::string& path) override { return files.contains(path); }
  bool FolderExists(const std::string& path) override { return folders.contains(path); }
  Result<Bytes> ReadFile(const std::string& path) override {
    if (!files.contains(path)) return Result<Bytes>::Failed("There is no such file.");
    return files[path];
  }
  Failure WriteFile(const std::string& path, const Bytes& content) override {
    for (const std::string& beginning : unwritable) {
      if (path.starts_with(beginning)) return "No space left on device";
    }
    files[path] = content;
    return {};
  }
  std::vector<std::string> ListFiles(const std::string& folder, const std::string&) override {
    std::vector<std::string> names;
    for (const auto& [path, content] : files) {
      if (path.starts_with(folder + "/")) names.push_back(path.substr(folder.size() + 1));
    }
    return names;
  }
  std::vector<std::string> RescueFolders() override { return {"/home", "/tmp"}; }
  std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                      const std::string& dv, std::size_t,
                                      const std::string& path) override {
    profilePath = path;
    const auto found = settings.find(section + "/" + key);
    return found == settings.end() ? dv : found->second;
  }
  Failure WriteSnapshot(const Bytes& content) override {
    snapshot.clear();
    if (snapshotFails) return "No space left on device";
    ++snapshots;
    snapshot = content;
    return {};
  }
  Result<Bytes> ReadSnapshot() override {
    if (snapshot.empty()) return Result<Bytes>::Failed("No earlier state of the map was kept.");
    return snapshot;
  }
  void DeleteSnapshot() override { snapshot.clear(); }
  Result<Picture> DecodePicture(const Bytes&) override {
    return Result<Picture>::Failed("This is not a picture that can be read.");
  }

  std::string profilePath;  ///< of the last setting that was read

 private:
  template <typename T>
  static T Next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
  }
  std::string Choose(const FileDialog& dialog) {
    dialogs.push_back(dialog);
    return Next(chosenFiles, std::string());
  }
};

}  // namespace morvane
