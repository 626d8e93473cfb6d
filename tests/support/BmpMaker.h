#pragma once

#include <vector>

#include "document/Platform.h"
#include "document/picture/Color.h"

namespace morvane {

inline void Append16(Bytes& bytes, std::uint32_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8U));
}

inline void Append32(Bytes& bytes, std::uint32_t value) {
  Append16(bytes, value);
  Append16(bytes, value >> 16U);
}

/// Builds BMP files of every form, also malformed ones.
struct BmpMaker {
  std::uint32_t header = 40;
  int width = 1;
  int height = 1;
  unsigned bits = 24;
  std::uint32_t compression = 0;
  std::vector<std::uint32_t> masks = {};
  std::vector<Color> palette = {};
  Bytes data = {};

  Bytes Make() const {
    Bytes info;
    Append32(info, header);
    if (header == 12) {
      Append16(info, static_cast<std::uint32_t>(width));
      Append16(info, static_cast<std::uint32_t>(height));
    } else {
      Append32(info, static_cast<std::uint32_t>(width));
      Append32(info, static_cast<std::uint32_t>(height));
    }
    Append16(info, 1);
    Append16(info, bits);
    if (header >= 40) {
      Append32(info, compression);
      for (int i = 0; i < 3; ++i) Append32(info, 0);
      Append32(info, static_cast<std::uint32_t>(palette.size()));
      Append32(info, 0);
    }
    for (const std::uint32_t mask : masks) Append32(info, mask);
    if (info.size() < header) info.resize(header);
    for (const Color color : palette) {
      info.push_back(static_cast<std::uint8_t>(color >> 16U));
      info.push_back(static_cast<std::uint8_t>(color >> 8U));
      info.push_back(static_cast<std::uint8_t>(color));
      if (header != 12) info.push_back(0);
    }
    const auto dataOffset = static_cast<std::uint32_t>(14 + info.size());
    Bytes file = {'B', 'M'};
    Append32(file, dataOffset + static_cast<std::uint32_t>(data.size()));
    Append32(file, 0);
    Append32(file, dataOffset);
    file.insert(file.end(), info.begin(), info.end());
    file.insert(file.end(), data.begin(), data.end());
    return file;
  }
};

}  // namespace morvane
