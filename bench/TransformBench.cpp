#include <cairo.h>
#include <pixman.h>

#include <QTransform>

#include "bench/Benches.h"
#include "bench/SharedPicture.h"
#include "document/picture/Blit.h"
#include "document/picture/Transform.h"
#include "platform/Images.h"

namespace morvane::bench {
namespace {

using PixmanImage = std::shared_ptr<pixman_image_t>;
using CairoSurface = std::shared_ptr<cairo_surface_t>;

constexpr int kTile = 40;
constexpr int kLarge = 4096;

/// A pixman image over the pixels of a picture, which must outlive it.
PixmanImage PixmanOver(const Surface& surface) {
  return {pixman_image_create_bits(PIXMAN_a8r8g8b8, surface.width, surface.height, surface.pixels,
                                   surface.stride * static_cast<int>(sizeof(Pixel))),
          pixman_image_unref};
}

/// Adds pixman, which fills the target through a transform with nearest-neighbour sampling.
void AddPixman(Comparison& comparison, const SharedPicture& source, const SharedPicture& target,
               const pixman_transform_t& transform) {
  const PixmanImage from = PixmanOver(source.Draw());
  const PixmanImage to = PixmanOver(target.Draw());
  const Rect bounds = target.View().Bounds();
  pixman_image_set_transform(from.get(), &transform);
  pixman_image_set_filter(from.get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
  comparison.Peer("pixman", AtMost(1.0), [=] {
    pixman_image_composite32(PIXMAN_OP_SRC, from.get(), nullptr, to.get(), 0, 0, 0, 0, 0, 0,
                             bounds.right, bounds.bottom);
  });
}

/// A cairo surface over the pixels of a picture, which must outlive it.
CairoSurface CairoOver(const Surface& surface) {
  return {cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(surface.pixels),
                                              CAIRO_FORMAT_RGB24, surface.width, surface.height,
                                              surface.stride * static_cast<int>(sizeof(Pixel))),
          cairo_surface_destroy};
}

/// Paints a square surface, turned by 90 degrees, over another one.
void PaintTurned(const CairoSurface& target, const CairoSurface& source, bool right, int side) {
  const int sign = right ? 1 : -1;
  cairo_matrix_t turn;
  cairo_matrix_init(&turn, 0, sign, -sign, 0, right ? side : 0, right ? 0 : side);
  cairo_t* painter = cairo_create(target.get());
  cairo_set_matrix(painter, &turn);
  cairo_set_source_surface(painter, source.get(), 0, 0);
  cairo_pattern_set_filter(cairo_get_source(painter), CAIRO_FILTER_NEAREST);
  cairo_set_operator(painter, CAIRO_OPERATOR_SOURCE);
  cairo_paint(painter);
  cairo_destroy(painter);
}

/// pixman samples the centre of each target pixel in units of 1/65536, and on an edge selects the
/// pixel before it. Rounding up the step and adding a small offset selects the pixel after it, as
/// StretchBlt does.
void AddStretch(RatioTable& table, Size from, Size to) {
  const SharedPicture source(RandomPicture(from, 4));
  const SharedPicture target(to);
  const auto name = "StretchBlt " + SizeText(from) + " to " + SizeText(to);
  Comparison comparison(table, target.AsOperation(name), [=] {
    StretchBlt(target.Draw(), 0, 0, to.width, to.height, source.View(), 0, 0, from.width,
               from.height);
  });
  const auto step = [](int fromSide, int toSide) {
    return static_cast<pixman_fixed_t>((65536LL * fromSide + toSide - 1) / toSide);
  };
  pixman_transform_t transform;
  pixman_transform_init_scale(&transform, step(from.width, to.width), step(from.height, to.height));
  transform.matrix[0][2] = 2;
  transform.matrix[1][2] = 2;
  AddPixman(comparison, source, target, transform);
}

void AddFlip(RatioTable& table, const std::string& name, Transform flip, int side) {
  const bool isLarge = side == kLarge;
  const SharedPicture picture(RandomPicture({side, side}, 8));
  const SharedPicture other(Size{side, side});
  Comparison comparison(table,
                        picture.AsOperation(name + ' ' + SizeText({side, side}) + " in place"),
                        [=] { FlipInPlace(picture.Draw(), flip); });
  comparison.Baseline("memcpy", AtMost(isLarge ? 0.8 : 8.0),
                      [=] { CopyWhole(other.Draw(), picture.View()); });
  if (!isLarge) return;
  // Qt flips in place only images that own their pixels.
  const auto image = std::make_shared<QImage>(ImageOver(picture.View()).copy());
  const bool horizontal = flip == Transform::FlipHorizontal;
  comparison.Peer(
      "Qt in place", Faster(1.0), [=] { image->mirror(horizontal, !horizontal); },
      [=] { return PixelsOf(*image); });
}

void AddTurn(RatioTable& table, const std::string& name, Transform turn, int side) {
  const bool right = turn == Transform::RotateRight;
  const SharedPicture picture(RandomPicture({side, side}, 9));
  const SharedPicture target(Size{side, side});
  Comparison comparison(table, target.AsOperation(name + ' ' + SizeText({side, side})),
                        [=] { TurnInto(target.Draw(), picture.View(), turn); });

  const auto turned = std::make_shared<QImage>();
  const QTransform rotation = QTransform().rotate(right ? 90 : -90);
  comparison.Peer(
      "Qt", Faster(1.5), [=] { *turned = ImageOver(picture.View()).transformed(rotation); },
      [=] { return PixelsOf(*turned); });

  pixman_transform_t back;
  pixman_transform_init_rotate(&back, 0, right ? -pixman_fixed_1 : pixman_fixed_1);
  back.matrix[right ? 1 : 0][2] = pixman_int_to_fixed(side);
  AddPixman(comparison, picture, target, back);

  const CairoSurface from = CairoOver(picture.Draw());
  const CairoSurface to = CairoOver(target.Draw());
  comparison.Peer("cairo", AtMost(1.0), [=] { PaintTurned(to, from, right, side); });
}

}  // namespace

void AddTransforms(RatioTable& table) {
  table.Note(
      "pixman scales with a transform that is rounded up, so that it selects the same pixels as "
      "StretchBlt.");
  AddStretch(table, {1000, 800}, {60, 48});
  AddStretch(table, {60, 48}, {600, 480});
  for (const int side : {kTile, kLarge}) {
    AddFlip(table, "Flip left to right", Transform::FlipHorizontal, side);
    AddFlip(table, "Flip upside down", Transform::FlipVertical, side);
    AddTurn(table, "Turn right", Transform::RotateRight, side);
    AddTurn(table, "Turn left", Transform::RotateLeft, side);
  }
}

}  // namespace morvane::bench
