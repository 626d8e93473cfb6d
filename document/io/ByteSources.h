#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "document/io/Result.h"

namespace morvane {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a file: on the disk, in memory, or made from a picture while they are asked for.
class ByteSource {
 public:
  ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;
  virtual ~ByteSource() = default;

  /// How many bytes there are.
  virtual std::size_t Size() const = 0;
  /// Fills a buffer with the bytes from a place on. The caller asks for none beyond the end.
  virtual Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) = 0;
};

/// So many bytes are read or written at once: no file is ever held twice in memory.
inline constexpr std::size_t kChunkBytes = std::size_t{256} << 10U;

/// No map needs a larger file.
inline constexpr long long kMostFileBytes = 420'000'000;
inline constexpr const char* kTooLargeFile = "The file is too large.";

/// Bytes in memory that belong to somebody else.
class MemorySource : public ByteSource {
 public:
  explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::size_t Size() const override { return bytes_.size(); }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override;

 private:
  std::span<const std::uint8_t> bytes_;
};

/// All bytes of a source at once.
Result<Bytes> ReadAll(ByteSource& source);

/// Reads all bytes once and keeps none. Tells why some can't be read.
Failure TryToRead(ByteSource& source);

/// Reads a source from front to back through a window of some bytes.
class ByteWindow {
 public:
  explicit ByteWindow(ByteSource& source) : source_(source) {}

  /// Bytes that were not taken yet.
  std::size_t Left() const { return source_.Size() - place_ + (end_ - begin_); }
  /// Makes the window show the next bytes, so many at least. False if there aren't so many, or they
  /// can't be read.
  bool Show(std::size_t count) { return count <= end_ - begin_ || Fill(count); }
  /// The next bytes, as many as were shown.
  const std::uint8_t* Data() const { return buffer_.data() + begin_; }
  std::size_t Shown() const { return end_ - begin_; }
  /// Moves on behind bytes that were shown.
  void Take(std::size_t count) { begin_ += count; }
  /// Moves on behind bytes that may lie beyond the window.
  void Skip(std::size_t count);

  /// Why bytes could not be read; empty where there are none.
  const Failure& Reason() const { return reason_; }

 private:
  bool Fill(std::size_t count);

  ByteSource& source_;
  Bytes buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t place_ = 0;  ///< in the source, of the byte behind the window
  Failure reason_;
};

}  // namespace morvane
