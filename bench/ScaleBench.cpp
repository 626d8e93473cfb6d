#include "bench/Benches.h"
#include "bench/Stage.h"
#include "document/picture/Blit.h"
#ifdef MORVANE_BENCH_PIXMAN
#include "bench/PixmanPeer.h"
#endif

namespace morvane::bench {
namespace {

#ifdef MORVANE_BENCH_PIXMAN
/// The transform with which pixman selects the same pixels as StretchBlt. pixman samples the centre
/// of each target pixel in units of 1/65536, and on an edge selects the pixel before it. Rounding
/// up the step and adding a small offset selects the pixel after it, as StretchBlt does.
pixman_transform_t Scaling(Size from, Size to) {
  const auto step = [](int source, int target) {
    return static_cast<pixman_fixed_t>((65536LL * source + target - 1) / target);
  };
  pixman_transform_t transform;
  pixman_transform_init_scale(&transform, step(from.width, to.width), step(from.height, to.height));
  transform.matrix[0][2] = 2;
  transform.matrix[1][2] = 2;
  return transform;
}
#endif

void AddStretch(RatioTable& table, const std::string& name, const Stage& source,
                const Stage& target) {
  Contest contest(table, target.AsWork(name));
  contest.Ours([=] {
    StretchBlt(target.Draw(), 0, 0, target.Width(), target.Height(), source.View(), 0, 0,
               source.Width(), source.Height());
  });
#ifdef MORVANE_BENCH_PIXMAN
  const PixmanImage from = PixmanOver(source.Draw());
  const PixmanImage to = PixmanOver(target.Draw());
  ReadThrough(from, Scaling({source.Width(), source.Height()}, {target.Width(), target.Height()}));
  contest.Against("pixman", AtMost(1.0), [=] { Compose(from, to); });
#endif
}

}  // namespace

void AddScaling(RatioTable& table) {
#ifdef MORVANE_BENCH_PIXMAN
  table.Note(
      "pixman scales through a transform that is rounded up, so that it takes the same nearest "
      "pixels as StretchBlt.");
#endif
  const Stage photo(Noise({1000, 800}, 4));
  const Stage small(Noise({60, 48}, 5));
  AddStretch(table, "StretchBlt 1000x800 to 60x48", photo, Stage(Picture(60, 48)));
  AddStretch(table, "StretchBlt 60x48 to 600x480", small, Stage(Picture(600, 480)));
}

}  // namespace morvane::bench
