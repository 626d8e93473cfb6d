#pragma once

#include "document/picture/Picture.h"

namespace morvane {

/// Copies a rectangle without scaling. Clipped to the target and the source.
void BitBlt(const Surface& target, int x, int y, int width, int height, const PictureView& source,
            int sourceX, int sourceY);

/// The same, except that source pixels of exactly that colour are not copied.
void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                    const PictureView& source, int sourceX, int sourceY, Color transparent);

/// Copies a rectangle scaled to the given size, with nearest-neighbour sampling. Clipped to the
/// target; does nothing if the source rectangle isn't completely inside the source.
void StretchBlt(const Surface& target, int x, int y, int width, int height,
                const PictureView& source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight);

/// The colour of one pixel, which must lie inside the picture.
Color GetPixel(const PictureView& picture, int x, int y);

/// Sets one pixel; does nothing outside the target.
void SetPixelV(const Surface& target, int x, int y, Color color);

/// Fills a rectangle with one colour.
void FillBox(const Surface& target, const Rect& box, Color color);

}  // namespace morvane
