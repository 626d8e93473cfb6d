#include "tools/CopyToMap.h"

#include "document/Undo.h"
#include "document/picture/Blit.h"

namespace morvane {

void CopyToMap(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
               const PictureView& source, std::optional<Color> colorKey) {
  if (gesture == Gesture::Press) TakeSnapshot(document);
  const Surface map = document.Canvas.hDC();
  if (colorKey) {
    TransparentBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0, *colorKey);
  } else {
    BitBlt(map, SnapX, SnapY, size.width, size.height, source, 0, 0);
  }
}

}  // namespace morvane
