#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace morvane {

/// Reads and writes little-endian numbers at an offset. The caller checks the bounds.
inline std::uint32_t Read16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return bytes[at] | (static_cast<std::uint32_t>(bytes[at + 1]) << 8U);
}

inline std::uint32_t Read32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return Read16(bytes, at) | (Read16(bytes, at + 2) << 16U);
}

inline void Write16(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value) {
  bytes[at] = static_cast<std::uint8_t>(value);
  bytes[at + 1] = static_cast<std::uint8_t>(value >> 8U);
}

inline void Write32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value) {
  Write16(bytes, at, value);
  Write16(bytes, at + 2, value >> 16U);
}

}  // namespace morvane
