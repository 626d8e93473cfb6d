#include "palette/TilePictures.h"

#include <map>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// Loads each sheet once, on its first use.
class Sheets {
 public:
  explicit Sheets(const TilePictures::SheetLoader& load) : load_(load) {}

  Picture Cut(int set, std::string_view sheet, const Rect& rect) {
    const std::string name = std::string(TileSets()[set].folder) + "/" + std::string(sheet);
    const auto [found, isNew] = sheets_.try_emplace(name);
    if (isNew) found->second = load_(name);
    Picture picture(rect.Width(), rect.Height());
    BitBlt(picture.Draw(), 0, 0, rect.Width(), rect.Height(), found->second.View(), rect.left,
           rect.top);
    return picture;
  }

 private:
  const TilePictures::SheetLoader& load_;
  std::map<std::string, Picture> sheets_;
};

Rect RectAt(int x, int y, Size size) {
  return {x, y, x + size.width, y + size.height};
}

}  // namespace

Rect EdgeOnSheet(const EdgePicture& picture) {
  constexpr int kStep = 10;
  constexpr int kHorizontalColumn = 30;
  const int place = static_cast<int>(picture.edge) * kStep;
  return picture.direction == Direction::Vertical
             ? RectAt(place, 0, picture.stored)
             : RectAt(kHorizontalColumn, place, picture.stored);
}

TilePictures::TilePictures(const SheetLoader& load) {
  Sheets sheets(load);
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Item& item = Items()[i];
    const Page& page = TileSets()[item.set].pages[item.page - 1];
    items_[i] = sheets.Cut(item.set, page.sheet,
                           RectAt(item.column * kSheetCell, item.row * kSheetCell, item.stored));
  }
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    const EdgePicture& edge = EdgePictures()[i];
    edges_[i] = sheets.Cut(edge.set, "edges", EdgeOnSheet(edge));
  }
}

const Picture& TilePictures::Of(const Item& item) const {
  return items_[static_cast<std::size_t>(&item - Items().data())];
}

const Picture* TilePictures::Of(int set, Edge edge, Direction direction) const {
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    const EdgePicture& row = EdgePictures()[i];
    if (row.set == set && row.edge == edge && row.direction == direction) return &edges_[i];
  }
  return nullptr;
}

}  // namespace morvane
