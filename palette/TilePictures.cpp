#include "palette/TilePictures.h"

#include <map>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

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
  std::map<std::string, Picture> sheets;  // each is loaded once, on its first use
  const auto cut = [&](int set, std::string_view sheet, const Rect& rect) {
    const std::string name = std::string(TileSets()[set].folder) + "/" + std::string(sheet);
    if (!sheets.contains(name)) sheets[name] = load(name);
    Picture picture(rect.Width(), rect.Height());
    BitBlt(picture.Draw(), 0, 0, rect.Width(), rect.Height(), sheets[name].View(), rect.left,
           rect.top);
    return picture;
  };
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Item& item = Items()[i];
    const Page& page = TileSets()[item.set].pages[item.page - 1];
    items_[i] = cut(item.set, page.sheet,
                    RectAt(item.column * kSheetCell, item.row * kSheetCell, item.stored));
  }
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    const EdgePicture& edge = EdgePictures()[i];
    edges_[i] = cut(edge.set, "edges", EdgeOnSheet(edge));
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
