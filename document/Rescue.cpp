#include "document/Rescue.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <functional>
#include <new>
#include <utility>

#include "document/NewMap.h"
#include "document/PictureFile.h"
#include "document/bmp/Bmp.h"
#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// "Morvane rescue 2026-11-23 14.05", in local time.
std::string RescueName(std::time_t painted) {
  std::tm local{};
  localtime_r(&painted, &local);
  std::array<char, 64> name{};
  std::strftime(name.data(), name.size(), "Morvane rescue %Y-%m-%d %H.%M", &local);
  return name.data();
}

/// Writes a file to the first rescue folder that accepts it, under a name that is new there.
std::string PlaceRescueFile(Platform& platform, std::time_t painted,
                            const std::function<NewFileOutcome(const std::string& path)>& place) {
  constexpr int kMaxNames = 100;
  for (const std::string& folder : platform.RescueFolders()) {
    const std::string stem = WithTrailingBackslash(folder) + RescueName(painted);
    for (int i = 1; i <= kMaxNames; ++i) {
      std::string path = stem + (i == 1 ? "" : " (" + std::to_string(i) + ")") + ".bmp";
      const NewFileOutcome outcome = place(path);
      if (outcome == NewFileOutcome::Done) return path;
      if (outcome == NewFileOutcome::Failed) break;
    }
  }
  return {};
}

/// Whether the current file contains the map as it is now.
bool IsInItsFile(Document& document) {
  if (!document.HasCurrentFile) return false;
  Result<LoadedPicture> file = LoadPicture(document.platform, document.CurrentFile);
  if (!file.Ok()) return false;
  // If the file is smaller than the map, it was opened on a white background.
  const PictureView map = document.Canvas.Image();
  const PictureView saved = file.Value().picture.View();
  if (saved.width > map.width || saved.height > map.height) return false;
  Picture shown(map.width, map.height);
  BitBlt(shown.Draw(), 0, 0, saved.width, saved.height, saved, 0, 0);
  return shown.View() == map;
}

bool IsSettled(const Document& document) {
  return document.SettledMap.View() == document.Canvas.Image();
}

bool IsUnsaved(Document& document) {
  return !IsBlankMap(document.Canvas.Image()) && !IsSettled(document) && !IsInItsFile(document);
}

/// Whether a file holds a complete map on which something was painted. A map that is too large to
/// be examined is kept too.
bool IsWorthKeeping(ByteSource& file) {
  try {
    if (!IsBmp(file)) return false;
    Result<LoadedPicture> map = ReadBmp(file);
    return map.Ok() && !IsBlankMap(map.Value().picture.View());
  } catch (const std::bad_alloc&) {
    return true;
  }
}

}  // namespace

std::string WriteRescueCopy(Document& document) {
  Platform& platform = document.platform;
  return PlaceRescueFile(platform, std::time(nullptr), [&](const std::string& path) {
    BmpEncoder map(document.Canvas.Image());
    return platform.WriteNewFile(path, map);
  });
}

void SettleMap(Document& document) {
  try {
    document.SettledMap = Picture(document.Canvas.Image());
  } catch (const std::bad_alloc&) {
    // The map may get a second rescue copy, which does no harm.
  }
}

bool RescueForSession(Document& document) {
  if (!IsUnsaved(document)) return true;
  document.SessionCopy = WriteRescueCopy(document);
  if (document.SessionCopy.empty()) return false;
  SettleMap(document);
  return true;
}

bool RescueUnsavedMap(Document& document) {
  if (!RescueForSession(document)) return false;
  if (IsSettled(document) && !document.SessionCopy.empty()) {
    document.platform.NoteRescueCopy(document.SessionCopy);
  }
  return true;
}

void RescueLeftovers(Document& document) {
  Platform& platform = document.platform;
  for (std::unique_ptr<Leftover>& leftover : platform.FindLeftovers()) {
    if (IsWorthKeeping(*leftover)) {
      const std::string path =
          PlaceRescueFile(platform, leftover->WrittenAt(), [&](const std::string& name) {
            const NewFileOutcome moved = leftover->MoveTo(name);
            return moved == NewFileOutcome::Failed ? platform.WriteNewFile(name, *leftover) : moved;
          });
      if (path.empty()) {
        document.UnplacedLeftovers.push_back(std::move(leftover));
        continue;
      }
      platform.NoteRescueCopy(path);
      document.RescueCopies.push_back(path);
    }
    leftover->Delete();
  }
  // A copy that could not be noted isn't among these, but is reported too.
  for (const std::string& path : platform.RescueNotes()) {
    std::vector<std::string>& copies = document.RescueCopies;
    if (std::find(copies.begin(), copies.end(), path) == copies.end()) copies.push_back(path);
  }
}

void ReportRescueCopies(Document& document) {
  Platform& platform = document.platform;
  const std::vector<std::string> noted = std::exchange(document.RescueCopies, {});
  std::string list;
  int copies = 0;
  for (const std::string& path : noted) {
    if (!platform.FileExists(path)) continue;
    list += "\n" + path;
    ++copies;
  }
  if (copies > 0) {
    platform.MsgBox("Morvane did not end properly last time. The map" +
                        std::string(copies == 1 ? " was" : "s were") + " saved as\n" + list +
                        "\n\nThe last stroke may be missing.",
                    BoxStyle::OkExclamation, kProgramName);
  }
  if (!noted.empty()) platform.DeleteRescueNotes(noted);
}

}  // namespace morvane
