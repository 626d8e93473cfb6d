#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>

#include "document/Platform.h"

namespace morvane {

/// Page-aligned memory for one chunk of a file; aligned writes are the fastest.
class ChunkBuffer {
 public:
  std::span<std::uint8_t> First(std::size_t count) const { return {bytes_.get(), count}; }

 private:
  static constexpr std::align_val_t kPage{4096};
  struct Release {
    void operator()(std::uint8_t* bytes) const { ::operator delete(bytes, kPage); }
  };

  std::unique_ptr<std::uint8_t[], Release> bytes_{
      static_cast<std::uint8_t*>(::operator new(kChunkBytes, kPage))};
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
