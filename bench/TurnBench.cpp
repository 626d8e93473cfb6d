#include <QTransform>

#include "bench/Benches.h"
#include "bench/Stage.h"
#include "document/picture/Transform.h"
#include "platform/Images.h"
#ifdef MORVANE_BENCH_PIXMAN
#include "bench/PixmanPeer.h"
#endif
#ifdef MORVANE_BENCH_CAIRO
#include "bench/CairoPeer.h"
#endif

namespace morvane::bench {
namespace {

constexpr int kTile = 40;
constexpr int kLarge = 4096;

std::string SquareText(int side) {
  const std::string text = std::to_string(side);
  return ' ' + text + 'x' + text;
}

Result PixelsOf(const std::shared_ptr<QImage>& image) {
  return [image] {
    return std::as_bytes(
        std::span(image->constBits(), static_cast<std::size_t>(image->sizeInBytes())));
  };
}

void AddFlip(RatioTable& table, const std::string& name, Transform flip, int side) {
  const bool large = side == kLarge;
  const Stage picture(Noise({side, side}, 8));
  const Stage other(Picture(side, side));
  Contest contest(table, picture.AsWork(name + SquareText(side) + " in place"));
  contest.Ours([=] { FlipInPlace(picture.Draw(), flip); })
      .Limit("memcpy", AtMost(large ? 0.8 : 8.0), [=] { CopyWhole(other, picture); });
  if (!large) return;
  // Qt flips in place only images that own their pixels.
  const auto image = std::make_shared<QImage>(ImageOver(picture.View()).copy());
  const bool horizontal = flip == Transform::FlipHorizontal;
  contest.Against(
      "Qt in place", Faster(1.0), [=] { image->mirror(horizontal, !horizontal); }, PixelsOf(image));
}

void AddTurn(RatioTable& table, const std::string& name, Transform turn, int side) {
  const Stage picture(Noise({side, side}, 9));
  const Stage target(Picture(side, side));
  const int degrees = turn == Transform::RotateRight ? 90 : -90;
  Contest contest(table, target.AsWork(name + SquareText(side)));
  contest.Ours([=] { TurnInto(target.Draw(), picture.View(), turn); });

  const auto turned = std::make_shared<QImage>();
  contest.Against(
      "Qt", Faster(1.0),
      [=] { *turned = ImageOver(picture.View()).transformed(QTransform().rotate(degrees)); },
      PixelsOf(turned));
#ifdef MORVANE_BENCH_PIXMAN
  const PixmanImage from = PixmanOver(picture.Draw());
  const PixmanImage to = PixmanOver(target.Draw());
  pixman_transform_t back;
  pixman_transform_init_rotate(&back, 0, degrees > 0 ? -pixman_fixed_1 : pixman_fixed_1);
  back.matrix[0][2] = degrees > 0 ? 0 : pixman_int_to_fixed(side);
  back.matrix[1][2] = degrees > 0 ? pixman_int_to_fixed(side) : 0;
  ReadThrough(from, back);
  contest.Against("pixman", AtMost(1.0), [=] { Compose(from, to); });
#endif
#ifdef MORVANE_BENCH_CAIRO
  const CairoSurface source = CairoOver(picture.Draw());
  const CairoSurface onto = CairoOver(target.Draw());
  contest.Against("cairo", AtMost(1.0), [=] { PaintTurned(onto, source, degrees > 0, side); });
#endif
}

}  // namespace

void AddTurns(RatioTable& table) {
  for (const int side : {kTile, kLarge}) {
    AddFlip(table, "Flip left to right", Transform::FlipHorizontal, side);
    AddFlip(table, "Flip upside down", Transform::FlipVertical, side);
    AddTurn(table, "Turn right", Transform::RotateRight, side);
    AddTurn(table, "Turn left", Transform::RotateLeft, side);
  }
}

}  // namespace morvane::bench
