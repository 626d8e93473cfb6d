#include "document/MapFiles.h"

#include <utility>

#include "document/FailureReport.h"
#include "document/PictureFile.h"
#include "document/Rescue.h"

namespace morvane {
namespace {

FileDialog MapDialog(const Document& document, const char* title) {
  return {.DialogTitle = title,
          .Filter = "Map files (*.bmp)|*.bmp",
          .FileName = {},
          .InitDir = document.settings.GetINIFileString("Map", "Dir", "")};
}

struct SaveOutcome {
  bool isSaved = false;
  std::string path;  ///< empty if the user chose no name
  Failure reason;    ///< empty if the user declined
};

SaveOutcome SaveTo(Document& document, const std::string& path) {
  Failure reason = SavePicture(document.platform, document.Canvas.Image(), path);
  return {reason.empty(), path, std::move(reason)};
}

SaveOutcome SaveAs(Document& document) {
  FileDialog dialog = MapDialog(document, "Save As");
  dialog.FileName = document.CurrentFile;
  const std::string path = document.platform.ShowSave(dialog);
  if (path.empty()) return {};
  if (document.platform.FileExists(path) &&
      document.platform.MsgBox("File already exists. Are you sure?", BoxStyle::YesNoExclamation,
                               "Warning") != Answer::Yes) {
    return {};
  }
  SaveOutcome outcome = SaveTo(document, path);
  if (outcome.isSaved) {
    document.CurrentFile = path;
    document.HasCurrentFile = true;
    SetTitle(document);
  }
  return outcome;
}

/// Saves to the current file, or asks for a name if there is none.
SaveOutcome Save(Document& document) {
  if (!document.HasCurrentFile) return SaveAs(document);
  SaveOutcome outcome = SaveTo(document, document.CurrentFile);
  if (outcome.isSaved) {
    document.platform.MsgBox("Map saved as " + document.CurrentFile, BoxStyle::OkOnly,
                             kProgramName);
  }
  return outcome;
}

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

/// The message about a map that was not saved.
std::string TextOf(const SaveOutcome& outcome) {
  if (outcome.reason.empty()) return "The map was not saved.";
  return "The map could not be saved.\n\n" + outcome.path + "\n\n" + outcome.reason;
}

/// Reports a save that failed. One that the user declined needs no message.
void ReportFailedSave(Document& document, const SaveOutcome& outcome) {
  if (!outcome.reason.empty()) {
    document.platform.MsgBox(TextOf(outcome), BoxStyle::OkExclamation, kProgramName);
  }
}

/// Saves a rescue copy, because the window closes in any case. If no folder accepts it, the user
/// can choose other places.
void Rescue(Document& document, SaveOutcome outcome) {
  Platform& platform = document.platform;
  const std::string path = WriteRescueCopy(document);
  if (!path.empty()) {
    SettleMap(document);
    platform.MsgBox(TextOf(outcome) + "\n\nA rescue copy was saved as\n\n" + path,
                    BoxStyle::OkExclamation, kProgramName);
    return;
  }
  const auto wantsOtherPlace = [&] {
    return platform.MsgBox(
               TextOf(outcome) +
                   "\n\nA rescue copy could not be written to any other folder either.\n\n"
                   "Do you want to choose a place to save the map? Otherwise it is lost.",
               BoxStyle::YesNoExclamation, kProgramName) == Answer::Yes;
  };
  while (!outcome.isSaved && wantsOtherPlace()) outcome = SaveAs(document);
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
    ReportFailure(document.platform, "The map could not be opened.\n\n" + path, loaded.Reason());
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
  ReportFailedSave(document, Save(document));
}

void mnuFileSaveAs_Click(Document& document) {
  ReportFailedSave(document, SaveAs(document));
}

bool AskToSave(Document& document) {
  const Answer answer = document.platform.MsgBox("Do you want to save your map?",
                                                 BoxStyle::YesNoCancelQuestion, "Save?");
  if (answer == Answer::Yes) {
    SaveOutcome outcome = Save(document);
    if (!outcome.isSaved) Rescue(document, std::move(outcome));
  }
  return answer == Answer::Cancel;
}

}  // namespace morvane
