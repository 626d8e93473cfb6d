#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "document/io/Result.h"

namespace morvane {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a file: on the disk, in memory, or encoded from a picture on demand.
class ByteSource {
 public:
  ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;
  virtual ~ByteSource() = default;

  /// The number of bytes.
  virtual std::size_t Size() const = 0;
  /// Fills a buffer with the bytes from an offset on. The range must lie within the source.
  virtual Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) = 0;
};

/// An open file, or why it can't be opened.
using OpenedFile = Result<std::unique_ptr<ByteSource>>;

/// The number of bytes in a chunk. Files are written in chunks, so that no complete copy of them is
/// in memory.
inline constexpr std::size_t kChunkBytes = std::size_t{256} << 10U;

/// The size of the largest file that is opened, in bytes. No map needs a larger one.
inline constexpr long long kMaxFileBytes = 420'000'000;
inline constexpr const char* kTooLargeFile = "The file is too large.";

/// Bytes in memory, not owned.
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

/// Reads all bytes once and discards them. Returns why some can't be read.
Failure CheckReadable(ByteSource& source);

/// Reads a source sequentially through a small buffer.
class ByteWindow {
 public:
  explicit ByteWindow(ByteSource& source) : source_(source) {}

  /// The number of bytes that were not consumed yet.
  std::size_t Left() const { return source_.Size() - place_ + (end_ - begin_); }
  /// Buffers at least this many of the next bytes. Returns false if there are fewer, or if they
  /// can't be read.
  bool Show(std::size_t count) { return count <= end_ - begin_ || Fill(count); }
  /// The buffered bytes.
  const std::uint8_t* Data() const { return buffer_.data() + begin_; }
  std::size_t Shown() const { return end_ - begin_; }
  /// Consumes buffered bytes.
  void Take(std::size_t count) { begin_ += count; }
  /// Consumes bytes that may not be buffered yet.
  void Skip(std::size_t count);

  /// Why bytes could not be read; empty if the source had ended.
  const Failure& Reason() const { return reason_; }

 private:
  bool Fill(std::size_t count);

  ByteSource& source_;
  Bytes buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t place_ = 0;  ///< offset in the source of the byte after the buffer
  Failure reason_;
};

}  // namespace morvane
