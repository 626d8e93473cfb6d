#pragma once

#include "document/Picture.h"

namespace morvane {

enum class Transform { FlipHorizontal, FlipVertical, RotateRight, RotateLeft };

/// The picture mirrored, or turned by a quarter with its sides exchanged. Every pixel keeps its
/// colour.
Picture Transformed(const PictureView& picture, Transform transform);

}  // namespace morvane
