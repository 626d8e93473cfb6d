#pragma once

#include <array>
#include <functional>
#include <string>

#include "document/picture/Picture.h"
#include "palette/Catalogue.h"

namespace morvane {

/// Side of a palette cell on an art sheet, in pixels.
inline constexpr int kSheetCell = 20;

/// The place of an edge picture on the sheet "edges" of its set.
Rect EdgeOnSheet(const EdgePicture& picture);

/// All pictures of the catalogue, cut out of the art sheets.
class TilePictures {
 public:
  /// Returns the sheet with a name such as "grave-dungeon/furniture".
  using SheetLoader = std::function<Picture(const std::string& name)>;

  explicit TilePictures(const SheetLoader& load);

  const Picture& Of(const Item& item) const;

  /// The picture for one side of a cell; null if the set has none.
  const Picture* Of(int set, Edge edge, Direction direction) const;

 private:
  std::array<Picture, kItemCount> items_;
  std::array<Picture, kEdgePictureCount> edges_;
};

}  // namespace morvane
