#include "platform/EndMarker.h"

#include <cstddef>
#include <string_view>

namespace morvane {
namespace {

using File = std::span<const std::uint8_t>;

/// Steps from marker to marker: an end marker inside a segment belongs to an embedded preview.
bool JpegHasItsEnd(File file) {
  constexpr unsigned kEscapedByte = 0x00;
  constexpr unsigned kTemporary = 0x01;
  constexpr unsigned kFirstRestart = 0xD0;
  constexpr unsigned kStart = 0xD8;
  constexpr unsigned kEnd = 0xD9;
  std::size_t at = 2;
  while (at + 1 < file.size()) {
    const unsigned marker = file[at + 1];
    if (file[at] != 0xFF || marker == 0xFF) {
      ++at;
    } else if (marker == kEnd) {
      return true;
    } else if (marker == kEscapedByte || marker == kTemporary ||
               (marker >= kFirstRestart && marker <= kStart)) {
      at += 2;
    } else {
      if (at + 3 >= file.size()) return false;
      at += 2 + file[at + 2] * std::size_t{256} + file[at + 3];
    }
  }
  return false;
}

/// The size in bytes of the colour table that these flags describe.
std::size_t TableBytes(unsigned flags) {
  return (flags & 0x80U) == 0 ? 0 : std::size_t{3} << ((flags & 7U) + 1);
}

/// Steps from block to block.
bool GifHasItsEnd(File file) {
  constexpr std::size_t kHeaderBytes = 13;
  if (file.size() < kHeaderBytes) return false;
  std::size_t at = kHeaderBytes + TableBytes(file[10]);
  while (at < file.size()) {
    switch (file[at]) {
      case ';':
        return true;
      case '!':
        at += 2;
        break;
      case ',':
        if (at + 9 >= file.size()) return false;
        at += 11 + TableBytes(file[at + 9]);
        break;
      case 0:  // some programs write an extra empty block
        ++at;
        continue;
      default:
        return false;
    }
    while (at < file.size() && file[at] != 0) at += file[at] + std::size_t{1};
    ++at;
  }
  return false;
}

}  // namespace

bool HasEndMarker(File file) {
  const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
  if (text.starts_with("\xFF\xD8\xFF")) return JpegHasItsEnd(file);
  return !text.starts_with("GIF8") || GifHasItsEnd(file);
}

}  // namespace morvane
