#include "tools/CopyToMap.h"

#include "document/Snapshot.h"
#include "document/picture/Blit.h"

namespace morvane {

void CopyToMap(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
               const PictureView& source, const Color* transparent) {
  if (gesture == Gesture::Press) TakeSnapshot(document);
  const Surface map = document.Canvas.hDC();
  if (transparent == nullptr) {
    BitBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0);
  } else {
    TransparentBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0, *transparent);
  }
}

}  // namespace morvane
