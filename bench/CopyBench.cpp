#include <QPainter>

#include "bench/Benches.h"
#include "bench/Stage.h"
#include "document/picture/Blit.h"
#include "platform/Images.h"
#ifdef MORVANE_BENCH_PIXMAN
#include "bench/PixmanPeer.h"
#endif

namespace morvane::bench {
namespace {

/// Stamps a tile on every cell of a map.
void AddStamps(RatioTable& table, Size size, double limit) {
  const Stage map(Noise(kMap, 1));
  const Stage tile(Noise(size, 2));
  const std::vector<Place> places = Cells(size);
  const Work work =
      map.AsWork("BitBlt " + SizeText(size) + " onto a map", static_cast<int>(places.size()));
  Contest contest(table, work);

  const auto damage = std::make_shared<Rect>();
  contest.Ours([=] {
    Surface target = map.Draw();
    target.damage = damage.get();
    const PictureView source = tile.View();
    for (const Place& at : places) {
      BitBlt(target, at.x, at.y, source.width, source.height, source, 0, 0);
    }
  });
  contest.Against("row memcpy", AtMost(limit), [=] {
    const Surface target = map.Draw();
    const PictureView source = tile.View();
    for (const Place& at : places) CopyRows(target, at, source);
  });
#ifdef MORVANE_BENCH_PIXMAN
  contest.Against("pixman_blt", AtMost(1.0), [=] {
    const Surface target = map.Draw();
    const Surface source = tile.Draw();
    for (const Place& at : places) {
      pixman_blt(source.pixels, target.pixels, source.stride, target.stride, 32, 32, 0, 0, at.x,
                 at.y, source.width, source.height);
    }
  });
#endif
  if (size == Size{20, 20}) {
    contest.Against("QPainter begun for each", Faster(5), [=] {
      QImage target = ImageOver(map.Draw());
      const QImage source = ImageOver(tile.View());
      for (const Place& at : places) {
        QPainter painter(&target);
        painter.drawImage(at.x, at.y, source);
      }
    });
  }
}

void AddWholeMap(RatioTable& table, Size size) {
  const Stage target(Picture(size.width, size.height));
  const Stage source(Noise(size, 3));
  Contest(table, target.AsWork("BitBlt of a whole map " + SizeText(size)))
      .Ours([=] { BitBlt(target.Draw(), 0, 0, size.width, size.height, source.View(), 0, 0); })
      .Against("memcpy", AtMost(1.15), [=] { CopyWhole(target, source); });
}

}  // namespace

void AddCopies(RatioTable& table) {
  AddStamps(table, {20, 20}, 1.25);
  AddStamps(table, {40, 40}, 1.15);
  AddStamps(table, {60, 40}, 1.15);
  AddWholeMap(table, kMap);
  AddWholeMap(table, {1432, 1168});
  AddWholeMap(table, {3840, 2160});
}

}  // namespace morvane::bench
