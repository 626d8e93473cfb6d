#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "document/Platform.h"

namespace morvane {

/// Page-aligned memory for one chunk of a file; aligned writes are the fastest.
class ChunkBuffer {
 public:
  std::span<std::uint8_t> First(std::size_t count) const {
    return std::span(pages_->bytes).first(count);
  }

 private:
  struct alignas(4096) Pages {
    std::array<std::uint8_t, kChunkBytes> bytes;
  };
  std::unique_ptr<Pages> pages_ = std::make_unique_for_overwrite<Pages>();
};

/// Passes the bytes of a source to `write` chunk by chunk, with the offset of each. `write` returns
/// why it failed.
template <typename Write>
Failure ForEachChunk(ByteSource& source, const ChunkBuffer& buffer, Write write) {
  const std::size_t size = source.Size();
  for (std::size_t place = 0; place < size; place += kChunkBytes) {
    const std::span<std::uint8_t> chunk = buffer.First(std::min(kChunkBytes, size - place));
    Failure failure = source.ReadAt(place, chunk);
    if (failure.empty()) failure = write(place, std::span<const std::uint8_t>(chunk));
    if (!failure.empty()) return failure;
  }
  return {};
}

}  // namespace morvane
