#include "tools/TextInsertion.h"

#include <cmath>
#include <utility>

#include "document/picture/Blit.h"
#include "tools/CopyToMap.h"

namespace morvane {
namespace {

/// The distance of the text from the pointer in pixels, the same for all fonts: with text of
/// ordinary size, the pointer is in the middle of the first line.
constexpr int kLeftOfPointer = 2;
constexpr int kAbovePointer = 8;

}  // namespace

void mnuToolsInsertText_Click(Document& document) {
  document.Canvas.MousePointer = Pointer::IBeam;
  document.Canvas.SetFocus();
}

bool IsTextArmed(const Document& document) {
  return document.Canvas.MousePointer == Pointer::IBeam;
}

void PlaceText(Document& document, float X, float Y) {
  document.TextX = static_cast<std::int16_t>(std::lround(X));
  document.TextY = static_cast<std::int16_t>(std::lround(Y));
  std::string text = document.TextToInsert;
  document.TextAccepted = document.platform.EditText(text);
  if (document.TextAccepted) {
    document.TextToInsert = std::move(text);
    PictureBox& pbTempText = document.pbTempText;
    Picture block(pbTempText.ScaleWidth(), pbTempText.ScaleHeight());
    document.platform.DrawText(document.TextToInsert, block);
    pbTempText.SetPicture(std::move(block));
    CopyToMap(document, Gesture::Press, document.TextX - kLeftOfPointer,
              document.TextY - kAbovePointer, pbTempText.ScaleSize(), pbTempText.Image(), kWhite);
    document.Canvas.Refresh();
  }
  document.Canvas.MousePointer = Pointer::Cross;
}

}  // namespace morvane
