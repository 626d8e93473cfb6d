#pragma once

#include <algorithm>
#include <vector>

#include "document/io/ByteSources.h"
#include "document/io/LittleEndian.h"
#include "document/picture/Color.h"

namespace morvane {

/// Builds BMP files of every form, also malformed ones. The number of planes, which readers should
/// ignore, is 0.
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
    const std::size_t masksEnd = masks.empty() ? 0 : 54 + 4 * masks.size();
    Bytes file(std::max<std::size_t>(14 + header, masksEnd));
    file[0] = 'B';
    file[1] = 'M';
    Write32(file, 14, header);
    const bool isShort = header == 12;
    const auto writeSide = isShort ? &Write16 : &Write32;
    writeSide(file, 18, static_cast<std::uint32_t>(width));
    writeSide(file, isShort ? 20 : 22, static_cast<std::uint32_t>(height));
    Write16(file, isShort ? 24 : 28, bits);
    if (header >= 40) {
      const std::uint32_t fields = masks.size() == 4 && header < 56 ? 6 : 3;
      Write32(file, 30, masks.empty() ? compression : fields);
      Write32(file, 46, static_cast<std::uint32_t>(palette.size()));
    }
    for (std::size_t i = 0; i < masks.size(); ++i) Write32(file, 54 + 4 * i, masks[i]);
    for (const Color color : palette) {
      const Pixel pixel = PixelOf(color);
      file.insert(file.end(), {BlueOf(pixel), GreenOf(pixel), RedOf(pixel)});
      if (!isShort) file.push_back(0);
    }
    Write32(file, 10, static_cast<std::uint32_t>(file.size()));
    file.insert(file.end(), data.begin(), data.end());
    return file;
  }
};

}  // namespace morvane
