#pragma once

#include <SDL_surface.h>

#include <memory>

#include "document/picture/Picture.h"

namespace morvane::bench {

using SdlSurface = std::shared_ptr<SDL_Surface>;

/// An SDL surface over the pixels of a picture, which must outlive it.
inline SdlSurface SdlOver(const Surface& surface) {
  SDL_Surface* over = SDL_CreateRGBSurfaceWithFormatFrom(
      surface.pixels, surface.width, surface.height, 32,
      surface.stride * static_cast<int>(sizeof(Pixel)), SDL_PIXELFORMAT_ARGB8888);
  SDL_SetSurfaceBlendMode(over, SDL_BLENDMODE_NONE);
  return {over, SDL_FreeSurface};
}

}  // namespace morvane::bench
