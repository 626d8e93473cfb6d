#include "document/Snapshot.h"

#include "document/FailureReport.h"
#include "document/bmp/Bmp.h"

namespace morvane {

void TakeSnapshot(Document& document) {
  BmpEncoder map(document.Canvas.Image());
  const Failure failure = document.platform.WriteSnapshot(map);
  if (failure.empty() || document.SnapshotFailureReported) return;
  document.SnapshotFailureReported = true;
  ReportFailure(document.platform,
                "The map could not be kept for Undo. Drawing goes on, but can't be taken back.",
                failure);
}

}  // namespace morvane
