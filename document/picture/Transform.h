#pragma once

#include "document/picture/Picture.h"

namespace morvane {

enum class Transform { FlipHorizontal, FlipVertical, RotateRight, RotateLeft };

constexpr bool IsFlip(Transform transform) {
  return transform == Transform::FlipHorizontal || transform == Transform::FlipVertical;
}

/// Mirrors a picture in place.
void FlipInPlace(const Surface& picture, Transform flip);

/// Turns a picture by 90 degrees into a target with width and height exchanged. They must not
/// overlap.
void TurnInto(const Surface& target, const PictureView& picture, Transform transform);

/// A mirrored or turned copy. A turn exchanges width and height.
Picture Transformed(const PictureView& picture, Transform transform);

}  // namespace morvane
