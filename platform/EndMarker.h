#pragma once

#include <cstdint>
#include <span>

namespace morvane {

/// Whether a JPEG or a GIF file goes on to its end mark; whatever follows is left alone. Files of
/// other formats always do.
bool HasEndMarker(std::span<const std::uint8_t> file);

}  // namespace morvane
