#pragma once

#include <cairo.h>

#include <memory>

#include "document/picture/Picture.h"

namespace morvane::bench {

using CairoSurface = std::shared_ptr<cairo_surface_t>;

/// A cairo surface over the pixels of a picture, which must outlive it.
inline CairoSurface CairoOver(const Surface& surface) {
  cairo_surface_t* over = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(surface.pixels), CAIRO_FORMAT_RGB24, surface.width,
      surface.height, surface.stride * static_cast<int>(sizeof(Pixel)));
  return {over, cairo_surface_destroy};
}

/// Paints a square surface, turned by 90 degrees, over another one.
inline void PaintTurned(const CairoSurface& target, const CairoSurface& source, bool right,
                        int side) {
  cairo_matrix_t turn;
  cairo_matrix_init(&turn, 0, right ? 1 : -1, right ? -1 : 1, 0, right ? side : 0,
                    right ? 0 : side);
  cairo_t* painter = cairo_create(target.get());
  cairo_set_matrix(painter, &turn);
  cairo_set_source_surface(painter, source.get(), 0, 0);
  cairo_pattern_set_filter(cairo_get_source(painter), CAIRO_FILTER_NEAREST);
  cairo_set_operator(painter, CAIRO_OPERATOR_SOURCE);
  cairo_paint(painter);
  cairo_destroy(painter);
}

}  // namespace morvane::bench
