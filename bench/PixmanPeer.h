#pragma once

#include <pixman.h>

#include <memory>

#include "document/picture/Picture.h"

namespace morvane::bench {

using PixmanImage = std::shared_ptr<pixman_image_t>;

/// A pixman image over the pixels of a picture, which must outlive it.
inline PixmanImage PixmanOver(const Surface& surface) {
  pixman_image_t* image =
      pixman_image_create_bits(PIXMAN_a8r8g8b8, surface.width, surface.height, surface.pixels,
                               surface.stride * static_cast<int>(sizeof(Pixel)));
  return {image, pixman_image_unref};
}

/// Sets the transform of an image, with nearest-neighbour sampling.
inline void ReadThrough(const PixmanImage& image, const pixman_transform_t& transform) {
  pixman_image_set_transform(image.get(), &transform);
  pixman_image_set_filter(image.get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
}

/// Fills the target from an image and its transform.
inline void Compose(const PixmanImage& source, const PixmanImage& target) {
  pixman_image_composite32(PIXMAN_OP_SRC, source.get(), nullptr, target.get(), 0, 0, 0, 0, 0, 0,
                           pixman_image_get_width(target.get()),
                           pixman_image_get_height(target.get()));
}

}  // namespace morvane::bench
