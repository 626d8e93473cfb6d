#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "document/Platform.h"
#include "document/picture/Blit.h"
#include "tests/support/FileBytes.h"

namespace morvane {

/// A message box that was shown.
struct SeenBox {
  std::string text;
  BoxStyle style;
  std::string title;
  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

/// The answers to the next dialogs, and a record of the dialogs.
struct DialogScript {
  std::deque<Answer> answers;           ///< Ok if empty
  std::deque<std::string> chosenFiles;  ///< files and folders; canceled if empty
  std::deque<std::string> typedTexts;   ///< rich texts; canceled if empty
  std::deque<std::uint32_t> colors;     ///< canceled if empty
  std::vector<SeenBox> boxes;
  std::vector<FileDialog> dialogs;
  std::vector<std::string> titles;  ///< of folder and printer dialogs

  Answer Box(const std::string& text, BoxStyle style, const std::string& title) {
    boxes.push_back({text, style, title});
    return Next(answers).value_or(Answer::Ok);
  }
  std::string File(const FileDialog& dialog) {
    dialogs.push_back(dialog);
    return Next(chosenFiles).value_or("");
  }
  std::string Folder(const std::string& title) {
    titles.push_back(title);
    return Next(chosenFiles).value_or("");
  }
  bool Text(std::string& text) {
    const auto typed = Next(typedTexts);
    if (typed) text = *typed;
    return typed.has_value();
  }
  void Color(std::uint32_t& color) { color = Next(colors).value_or(color); }

 private:
  template <typename T>
  static std::optional<T> Next(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
  }
};

/// A platform in memory, with scripted dialogs.
class FakePlatform : public Platform, public DialogScript {
 public:
  std::map<std::string, Bytes> files;
  std::set<std::string> folders = {"/", "/start", "/maps", "/custom", "/custom/more"};
  std::map<std::string, std::string> settings;  ///< by "section/key"
  std::set<std::string> unwritable;             ///< prefixes of paths
  std::map<std::string, Picture> drawnTexts;    ///< the picture of each rich text
  bool snapshotFails = false;
  bool memoryIsFull = false;
  bool snapshotTouched = false;
  std::size_t readableSnapshot = static_cast<std::size_t>(-1);  ///< bytes of it
  std::string currentDirectory = "/start";
  int snapshots = 0;  ///< written so far
  int foldersRead = 0;
  Bytes snapshot;
  std::vector<std::string> rescueNotes;
  Bytes leftover;  ///< of an earlier run
  std::string leftoverFolder = "/start";
  Failure printFailure;
  std::vector<Picture> printed;
  std::function<void()> onShowState;
  std::function<void()> onNextBox;  ///< called while the next message box is open

  void ShowState() override {
    if (onShowState) onShowState();
  }
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override {
    if (const auto act = std::exchange(onNextBox, {})) act();
    return Box(text, style, title);
  }
  std::string ShowOpen(const FileDialog& dialog) override { return File(dialog); }
  std::string ShowSave(const FileDialog& dialog) override { return File(dialog); }
  std::string CurrentDirectory() override { return currentDirectory; }
  bool FileExists(const std::string& path) override { return files.contains(path); }
  bool IsFolderReadable(const std::string& path) override { return folders.contains(path); }
  Result<std::unique_ptr<ByteSource>> OpenFile(const std::string& path) override {
    if (!files.contains(path)) return Failed{"There is no such file."};
    return Opened(std::make_unique<OwnedBytes>(files[path]));
  }
  Failure WriteFile(const std::string& path, ByteSource& content) override {
    for (const std::string& prefix : unwritable) {
      if (path.starts_with(prefix)) return "No space left on device";
    }
    files[path] = ReadAll(content).Value();
    return {};
  }
  std::vector<std::string> ListDrives() override { return {"/"}; }
  std::vector<std::string> ListFolders(const std::string& folder) override {
    ++foldersRead;
    return NamesIn(folder, {folders.begin(), folders.end()});
  }
  std::vector<std::string> ListFiles(const std::string& folder, const std::string&) override {
    ++foldersRead;
    std::vector<std::filesystem::path> paths;
    for (const auto& [path, content] : files) paths.emplace_back(path);
    return NamesIn(folder, paths);
  }
  NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content) override {
    if (files.contains(path)) return NewFileOutcome::NameTaken;
    return WriteFile(path, content).empty() ? NewFileOutcome::Done : NewFileOutcome::Failed;
  }
  std::vector<std::string> RescueFolders() override { return {"/home", "/tmp"}; }
  void NoteRescueCopy(const std::string& path) override { rescueNotes.push_back(path); }
  std::vector<std::string> RescueNotes() override { return rescueNotes; }
  void DeleteRescueNotes(const std::vector<std::string>& paths) override {
    for (const std::string& path : paths) std::erase(rescueNotes, path);
  }
  std::vector<std::unique_ptr<Leftover>> FindLeftovers() override;
  std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                      const std::string& dv, std::size_t,
                                      const std::string& /*path*/) override {
    const auto found = settings.find(section + "/" + key);
    return found == settings.end() ? dv : found->second;
  }
  Failure WritePrivateProfileString(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& path) override {
    if (unwritable.contains(path)) return "Permission denied";
    settings[section + "/" + key] = value;
    return {};
  }
  Failure WriteSnapshot(ByteSource& content) override {
    snapshot.clear();
    if (snapshotFails) return "No space left on device";
    ++snapshots;
    snapshot = ReadAll(content).Value();
    return {};
  }
  Result<std::unique_ptr<ByteSource>> OpenSnapshot() override {
    if (memoryIsFull) throw std::bad_alloc();
    if (snapshot.empty()) return Failed{"No earlier state of the map was kept."};
    auto file = std::make_unique<OwnedBytes>(snapshot);
    file->readable = readableSnapshot;
    return Opened(std::move(file));
  }
  bool IsSnapshotUntouched() override { return !snapshotTouched; }
  void DeleteSnapshot() override { snapshot.clear(); }
  Result<Picture> DecodePicture(Bytes) override {
    return Failed{"This is not a picture that can be read."};
  }
  bool EditText(std::string& text) override { return Text(text); }
  void DrawText(const std::string& text, Picture& picture) override {
    const Picture& drawn = drawnTexts[text];
    BitBlt(picture.Draw(), 0, 0, drawn.Width(), drawn.Height(), drawn.View(), 0, 0);
  }
  Failure Print(const PictureView& picture) override {
    printed.emplace_back(picture);
    return printFailure;
  }
  void ShowPrinterSetup(const std::string& title) override { titles.push_back(title); }
  std::string BrowseForFolder(const std::string& title) override { return Folder(title); }
  void ShowColor(std::uint32_t& color) override { Color(color); }

 private:
  using Opened = Result<std::unique_ptr<ByteSource>>;

  static std::vector<std::string> NamesIn(const std::string& folder,
                                          const std::vector<std::filesystem::path>& paths) {
    std::vector<std::string> names;
    for (const std::filesystem::path& path : paths) {
      if (path.has_filename() && path.parent_path() == folder) names.push_back(path.filename());
    }
    return names;
  }
};

class FakeLeftover : public Leftover {
 public:
  explicit FakeLeftover(FakePlatform& platform) : platform_(platform), bytes_(platform.leftover) {}

  std::size_t Size() const override { return bytes_.Size(); }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    return bytes_.ReadAt(place, buffer);
  }
  std::time_t WrittenAt() const override { return 1'000'000'000; }
  NewFileOutcome MoveTo(const std::string& path) override {
    // As a rename, it works only within a volume.
    if (!path.starts_with(platform_.leftoverFolder)) return NewFileOutcome::Failed;
    const NewFileOutcome placing = platform_.WriteNewFile(path, *this);
    if (placing == NewFileOutcome::Done) Delete();
    return placing;
  }
  void Delete() override { platform_.leftover.clear(); }

 private:
  FakePlatform& platform_;
  OwnedBytes bytes_;
};

inline std::vector<std::unique_ptr<Leftover>> FakePlatform::FindLeftovers() {
  std::vector<std::unique_ptr<Leftover>> found;
  if (!leftover.empty()) found.push_back(std::make_unique<FakeLeftover>(*this));
  return found;
}

}  // namespace morvane
