#pragma once

#include <QTextDocument>

#include "document/picture/Picture.h"

namespace morvane {

/// The fineness of the map: 96 dots to the inch, counted by the metre.
inline constexpr int kDotsPerMetre = 3780;

/// The largest size of letters in pixels, as high as the picture that text is drawn on. Far larger
/// ones overflow the coordinates of a long text, and its layout never ends.
inline constexpr int kMaxLetterHeight = 349;

/// A document that never fetches anything: pictures and style sheets that its text names stay out.
class ClosedDocument : public QTextDocument {
 public:
  using QTextDocument::QTextDocument;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
};

/// Draws rich text from the top left of a picture at 96 dpi, wrapped at its width. Letters have
/// hard edges, so that no pale rim is left where white drops out.
void DrawRichText(const std::string& text, Picture& picture);

}  // namespace morvane
