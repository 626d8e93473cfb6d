#pragma once

#include <QTextDocument>
#include <string>

#include "document/picture/Picture.h"

namespace morvane {

/// The resolution of the map: 96 dpi, in dots per metre.
inline constexpr int kDotsPerMetre = 3780;

/// The largest font size in pixels: the height of the picture that text is drawn on. Much larger
/// fonts overflow the coordinates of a long text, and its layout never ends.
inline constexpr int kMaxFontSize = 349;

/// A document that loads nothing: pictures and style sheets in its text are ignored.
class ClosedDocument : public QTextDocument {
 public:
  using QTextDocument::QTextDocument;

 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

/// Draws rich text from the top left of a picture at 96 dpi, wrapped at its width. Text is not
/// anti-aliased, so that no pale fringe is left where white is transparent.
void DrawRichText(const std::string& text, Picture& picture);

}  // namespace morvane
