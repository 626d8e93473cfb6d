#include "document/Undo.h"

#include "document/Bmp.h"
#include "document/Notice.h"

namespace morvane {
namespace {

Result<Picture> LoadSnapshot(Platform& platform) {
  Result<Bytes> content = platform.ReadSnapshot();
  if (!content.Ok()) return Result<Picture>::Failed(content.Reason());
  return ReadBmp(content.Value());
}

}  // namespace

void EnableUndo(Document& document) {
  document.UndoButtonEnabled = true;
  document.mnuEditUndoEnabled = true;
}

void mnuEditUndo_Click(Document& document) {
  const Pointer windowPointer = document.MousePointer;
  const Pointer canvasPointer = document.Canvas.MousePointer;
  document.MousePointer = Pointer::Hourglass;
  document.Canvas.MousePointer = Pointer::Hourglass;
  document.platform.ShowState();

  Result<Picture> snapshot = LoadSnapshot(document.platform);
  if (snapshot.Ok()) document.Canvas.SetPicture(std::move(snapshot.Value()));
  document.UndoButtonEnabled = false;
  document.mnuEditUndoEnabled = false;

  document.MousePointer = windowPointer;
  document.Canvas.MousePointer = canvasPointer;
  if (!snapshot.Ok()) {
    TellFailure(document.platform, "The last change can't be taken back.", snapshot.Reason());
  }
}

}  // namespace morvane
