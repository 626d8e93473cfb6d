#pragma once

#include "document/picture/Picture.h"

namespace morvane {

/// Copies a rectangle without scaling. Clipped to the target and the source.
void BitBlt(const Surface& target, int x, int y, int width, int height, const PictureView& source,
            int sourceX, int sourceY);

/// The same, leaving out the source pixels of exactly that colour.
void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                    const PictureView& source, int sourceX, int sourceY, Color transparent);

/// Copies a rectangle scaled to the target size, each pixel from the nearest one of the source.
void StretchBlt(const Surface& target, int x, int y, int width, int height,
                const PictureView& source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight);

/// The colour of one pixel, which must lie inside the picture.
Color GetPixel(const PictureView& picture, int x, int y);

/// Sets one pixel; one outside the target is dropped.
void SetPixelV(const Surface& target, int x, int y, Color color);

/// Fills a rectangle with one colour.
void FillBox(const Surface& target, const Rect& box, Color color);

}  // namespace morvane
