#include "document/Undo.h"

#include "document/Bmp.h"
#include "document/Notice.h"
#include "document/PictureFile.h"

namespace morvane {
namespace {

Result<Picture> LoadSnapshot(Platform& platform) {
  return WithinMemory([&] {
    Result<std::unique_ptr<ByteSource>> snapshot = platform.OpenSnapshot();
    return snapshot.Ok() ? ReadBmp(*snapshot.Value()) : Result<Picture>::Failed(snapshot.Reason());
  });
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
