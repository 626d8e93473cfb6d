#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Platform.h"

namespace morvane {

/// Numbers of a file, low byte first. The caller has checked that they lie inside it.
inline std::uint32_t Read16(const Bytes& bytes, std::size_t at) {
  return bytes[at] | (static_cast<std::uint32_t>(bytes[at + 1]) << 8U);
}

inline std::uint32_t Read32(const Bytes& bytes, std::size_t at) {
  return Read16(bytes, at) | (Read16(bytes, at + 2) << 16U);
}

inline void Append16(Bytes& bytes, std::uint32_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8U));
}

inline void Append32(Bytes& bytes, std::uint32_t value) {
  Append16(bytes, value);
  Append16(bytes, value >> 16U);
}

}  // namespace morvane
