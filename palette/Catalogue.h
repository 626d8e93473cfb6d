#pragma once

#include <array>
#include <string_view>

#include "document/picture/Rect.h"

namespace morvane {

/// Numbers of the tile sets, in the order of the entries of TileSetSelector.
enum TileSetNumber : int {
  kAbandonedCathedral,
  kGraveDungeon,
  kTsrOriginal,
  kClassicVillage,
  kCustomSet,
};

inline constexpr int kBuiltInSets = 4;
inline constexpr int kMaxPages = 3;
inline constexpr int kItemCount = 184;
inline constexpr int kEdgePictureCount = 22;

/// One page of a tile set.
struct Page {
  std::string_view caption;
  std::string_view sheet;  ///< name of its art sheet in the folder of the set
};

/// A built-in tile set with the names of its controls.
struct TileSet {
  std::string_view caption;
  std::string_view folder;  ///< of its art sheets
  std::string_view tabStrip;
  std::string_view frame;  ///< common name of the frames of its pages
  int pageCount;
  std::array<Page, kMaxPages> pages;
};

/// A tile on a page of the palette.
struct Item {
  std::string_view control;
  std::string_view caption;
  int set;
  int page;    ///< from 1
  int column;  ///< cell on the page, from 0
  int row;
  Size stored;  ///< size of its picture
};

enum class Edge { Wall, Door, SecretDoor };
enum class Direction { Vertical, Horizontal };

/// A picture for one side of a cell.
struct EdgePicture {
  std::string_view control;
  int set;
  Edge edge;
  Direction direction;
  Size stored;
};

const std::array<TileSet, kBuiltInSets>& TileSets();
const std::array<Item, kItemCount>& Items();
const std::array<EdgePicture, kEdgePictureCount>& EdgePictures();

/// The size that an item paints on the map. In "TSR Original" it is one pixel less than that of the
/// picture in both directions, so that the grid line at the end of the cell stays visible.
Size StampSize(const Item& item);

/// The item with that control; null if there is none.
const Item* FindItem(std::string_view control);

}  // namespace morvane
