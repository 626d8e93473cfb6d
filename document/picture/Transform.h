#pragma once

#include "document/picture/Picture.h"

namespace morvane {

enum class Transform { FlipHorizontal, FlipVertical, RotateRight, RotateLeft };

constexpr bool IsFlip(Transform transform) {
  return transform == Transform::FlipHorizontal || transform == Transform::FlipVertical;
}

/// Mirrors a picture where it is. Every pixel keeps its colour.
void FlipInPlace(const Surface& picture, Transform flip);

/// Turns a picture by a quarter into a target with exchanged sides that doesn't overlap it.
void TurnInto(const Surface& target, const PictureView& picture, Transform transform);

/// The picture mirrored, or turned by a quarter with its sides exchanged.
Picture Transformed(const PictureView& picture, Transform transform);

}  // namespace morvane
