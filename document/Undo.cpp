#include "document/Undo.h"

#include "document/FailureReport.h"
#include "document/PictureFile.h"
#include "document/bmp/Bmp.h"

namespace morvane {
namespace {

/// Replaces the map with the snapshot. An unmodified snapshot that can be read to its end is
/// decoded into the map's own memory; any other could turn out to be damaged half-way.
Failure RestoreSnapshot(Document& document) {
  Result<std::unique_ptr<ByteSource>> snapshot = document.platform.OpenSnapshot();
  if (!snapshot.Ok()) return snapshot.Reason();
  BmpDecoder decoder(*snapshot.Value());
  Failure failure = decoder.Open();
  if (!failure.empty()) return failure;
  const Size size = decoder.PictureSize();
  if (document.platform.IsSnapshotUntouched()) {
    failure = CheckReadable(*snapshot.Value());
    if (!failure.empty()) return failure;
    const auto image = document.Canvas.OverwriteImage(size);
    if (image) return decoder.Decode(*image);
  }
  Picture picture = Picture::Unpainted(size.width, size.height);
  failure = decoder.Decode(picture.Draw());
  if (failure.empty()) document.Canvas.SetPicture(std::move(picture));
  return failure;
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

  const Failure failure = CatchOutOfMemory([&document] { return RestoreSnapshot(document); });
  document.UndoButtonEnabled = false;
  document.mnuEditUndoEnabled = false;

  document.MousePointer = windowPointer;
  document.Canvas.MousePointer = canvasPointer;
  if (!failure.empty()) {
    ReportFailure(document.platform, "The last change can't be taken back.", failure);
  }
}

}  // namespace morvane
