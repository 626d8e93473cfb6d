#include "document/Undo.h"

#include <new>
#include <utility>

#include "document/FailureReport.h"
#include "document/PictureFile.h"
#include "document/bmp/Bmp.h"

namespace morvane {
namespace {

/// Replaces the map with the snapshot. An unmodified snapshot that can be read to its end is
/// decoded directly into the map; any other might turn out to be damaged half-way.
Failure RestoreSnapshot(Document& document) try {
  OpenedFile snapshot = document.platform.OpenSnapshot();
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
} catch (const std::bad_alloc&) {
  return kOutOfMemory;
}

}  // namespace

void TakeSnapshot(Document& document) {
  BmpEncoder map(document.Canvas.Image());
  const Failure failure = document.platform.WriteSnapshot(map);
  if (failure.empty() || document.SnapshotFailureReported) return;
  document.SnapshotFailureReported = true;
  ReportFailure(document.platform,
                "The map could not be kept for Undo. Drawing goes on, but can't be taken back.",
                failure);
}

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

  const Failure failure = RestoreSnapshot(document);
  document.UndoButtonEnabled = false;
  document.mnuEditUndoEnabled = false;

  document.MousePointer = windowPointer;
  document.Canvas.MousePointer = canvasPointer;
  if (!failure.empty()) {
    ReportFailure(document.platform, "The last change can't be taken back.", failure);
  }
}

}  // namespace morvane
