#include <pixman.h>

#include <QPainter>

#include "bench/Benches.h"
#include "bench/SharedPicture.h"
#include "document/picture/Blit.h"
#include "platform/Images.h"

namespace morvane::bench {
namespace {

/// Stamps a tile on every cell of a map.
void AddStamps(RatioTable& table, Size size, double limit) {
  const SharedPicture map(RandomPicture(kDesignedMap, 1));
  const SharedPicture tile(RandomPicture(size, 2));
  const std::vector<Place> places = Cells(size);
  const auto damage = std::make_shared<Rect>();
  Comparison comparison(
      table,
      map.AsOperation("BitBlt " + SizeText(size) + " onto a map", static_cast<int>(places.size())),
      [=] {
        Surface target = map.Draw();
        target.damage = damage.get();
        const PictureView source = tile.View();
        for (const Place& at : places) {
          BitBlt(target, at.x, at.y, source.width, source.height, source, 0, 0);
        }
      });
  comparison.Peer("row memcpy", AtMost(limit), [=] {
    const Surface target = map.Draw();
    const PictureView source = tile.View();
    for (const Place& at : places) CopyRows(target, at, source);
  });
  comparison.Peer("pixman_blt", AtMost(1.0), [=] {
    const Surface target = map.Draw();
    const Surface source = tile.Draw();
    for (const Place& at : places) {
      pixman_blt(source.pixels, target.pixels, source.stride, target.stride, 32, 32, 0, 0, at.x,
                 at.y, source.width, source.height);
    }
  });
  if (size == Size{20, 20}) {
    comparison.Peer("a QPainter for each", Faster(5), [=] {
      QImage target = ImageOver(map.Draw());
      const QImage source = ImageOver(tile.View());
      for (const Place& at : places) QPainter(&target).drawImage(at.x, at.y, source);
    });
  }
}

void AddWholeMap(RatioTable& table, Size size) {
  const SharedPicture target(size);
  const SharedPicture source(RandomPicture(size, 3));
  Comparison(table, target.AsOperation("BitBlt of a whole map " + SizeText(size)), [=] {
    BitBlt(target.Draw(), 0, 0, size.width, size.height, source.View(), 0, 0);
  }).Peer("memcpy", AtMost(1.15), [=] { CopyWhole(target.Draw(), source.View()); });
}

}  // namespace

void AddCopies(RatioTable& table) {
  AddStamps(table, {20, 20}, 1.25);
  AddStamps(table, {40, 40}, 1.15);
  AddStamps(table, {60, 40}, 1.15);
  for (const Size size : {kDesignedMap, Size{1432, 1168}, Size{3840, 2160}}) {
    AddWholeMap(table, size);
  }
}

}  // namespace morvane::bench
