#include "document/MapFiles.h"

#include <utility>

#include "document/Notice.h"
#include "document/PictureFile.h"
#include "document/Rescue.h"

namespace morvane {
namespace {

constexpr const char* kNotSaved = "The map could not be saved.";

FileDialog MapDialog(const Document& document, const char* title) {
  return {.DialogTitle = title,
          .Filter = "Map files (*.bmp)|*.bmp",
          .FileName = {},
          .InitDir = document.settings.GetINIFileString("Map", "Dir", "")};
}

/// A save that failed: where, and why.
struct FailedSave {
  std::string path;
  Failure reason;
  bool Happened() const { return !reason.empty(); }
};

FailedSave SaveTo(Document& document, const std::string& path) {
  return {path, SavePicture(document.platform, document.Canvas.Image(), path)};
}

FailedSave Save(Document& document) {
  FailedSave failed = SaveTo(document, document.CurrentFile);
  if (!failed.Happened()) {
    document.platform.MsgBox("Map saved as " + document.CurrentFile, BoxStyle::OkOnly,
                             kProgramName);
  }
  return failed;
}

FailedSave SaveAs(Document& document) {
  FileDialog dialog = MapDialog(document, "Save As");
  dialog.FileName = document.CurrentFile;
  const std::string path = document.platform.ShowSave(dialog);
  if (path.empty()) return {};
  if (document.platform.FileExists(path) &&
      document.platform.MsgBox("File already exists. Are you sure?", BoxStyle::YesNoExclamation,
                               "Warning") != Answer::Yes) {
    return {};
  }
  FailedSave failed = SaveTo(document, path);
  if (!failed.Happened()) {
    document.CurrentFile = path;
    document.HasCurrentFile = true;
    SetTitle(document);
  }
  return failed;
}

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

void Tell(Document& document, const FailedSave& failed) {
  if (failed.Happened()) TellFileFailure(document.platform, kNotSaved, failed.path, failed.reason);
}

/// The window goes away whatever happens, so the map is put somewhere first.
void Rescue(Document& document, const FailedSave& failed) {
  const std::string path = WriteRescueCopy(document);
  const std::string outcome = path.empty() ? "It could not be written to any other folder either."
                                           : "A rescue copy was saved as\n" + path;
  TellFileFailure(document.platform, kNotSaved, failed.path, failed.reason + "\n\n" + outcome);
}

}  // namespace

void SetTitle(Document& document) {
  document.Caption = kProgramName;
  if (!document.HasCurrentFile) return;
  document.Caption += " - " + NameOf(document.CurrentFile);
}

void OpenMap(Document& document, const std::string& path) {
  Result<LoadedPicture> loaded = LoadPicture(document.platform, path);
  if (!loaded.Ok()) {
    TellFileFailure(document.platform, "The map could not be opened.", path, loaded.Reason());
    return;
  }
  document.CurrentFile = path;
  document.Canvas.SetPicture(std::move(loaded.Value().picture));
  document.HasCurrentFile = true;
  SetTitle(document);
  if (loaded.Value().isDamaged) {
    document.StatusText = NameOf(path) + " is damaged. Parts of the map may be wrong.";
  }
}

void mnuFileOpen_Click(Document& document) {
  const std::string path = document.platform.ShowOpen(MapDialog(document, "Open"));
  if (!path.empty()) OpenMap(document, path);
}

void mnuFileSave_Click(Document& document) {
  Tell(document, document.HasCurrentFile ? Save(document) : SaveAs(document));
}

void mnuFileSaveAs_Click(Document& document) {
  Tell(document, SaveAs(document));
}

bool AskToSave(Document& document) {
  const Answer answer = document.platform.MsgBox("Do you want to save your map?",
                                                 BoxStyle::YesNoCancelQuestion, "Save?");
  if (answer == Answer::Yes) {
    const FailedSave failed = document.HasCurrentFile ? Save(document) : SaveAs(document);
    if (failed.Happened()) Rescue(document, failed);
  }
  return answer == Answer::Cancel;
}

}  // namespace morvane
