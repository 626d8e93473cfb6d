#include "tools/CopyToMap.h"

#include "document/Undo.h"
#include "document/picture/Blit.h"

namespace morvane {

void CopyToMap(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
               const PictureView& source, std::optional<Color> transparent) {
  if (gesture == Gesture::Press) TakeSnapshot(document);
  const Surface map = document.Canvas.hDC();
  if (transparent) {
    TransparentBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0, *transparent);
  } else {
    BitBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0);
  }
}

}  // namespace morvane
