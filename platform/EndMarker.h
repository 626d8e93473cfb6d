#pragma once

#include <cstdint>
#include <span>

namespace morvane {

/// Whether a JPEG or GIF file contains its end marker, with or without data after it. True for
/// files of other formats.
bool HasEndMarker(std::span<const std::uint8_t> file);

}  // namespace morvane
