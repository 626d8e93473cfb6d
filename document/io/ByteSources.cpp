#include "document/io/ByteSources.h"

#include <algorithm>
#include <cstring>

namespace morvane {
namespace {

/// The usual size of the buffer: small enough to stay in the processor's cache.
constexpr std::size_t kWindowBytes = std::size_t{64} << 10U;

}  // namespace

Failure MemorySource::ReadAt(std::size_t place, std::span<std::uint8_t> buffer) {
  std::memcpy(buffer.data(), bytes_.data() + place, buffer.size());
  return {};
}

Result<Bytes> ReadAll(ByteSource& source) {
  Bytes bytes(source.Size());
  Failure failure = source.ReadAt(0, bytes);
  if (!failure.empty()) return Failed{std::move(failure)};
  return bytes;
}

Failure CheckReadable(ByteSource& source) {
  Bytes buffer(std::min(kWindowBytes, source.Size()));
  Failure failure;
  for (std::size_t place = 0; place < source.Size() && failure.empty(); place += buffer.size()) {
    const std::size_t count = std::min(buffer.size(), source.Size() - place);
    failure = source.ReadAt(place, std::span(buffer).first(count));
  }
  return failure;
}

void ByteWindow::Skip(std::size_t count) {
  const std::size_t shown = std::min(count, end_ - begin_);
  begin_ += shown;
  place_ += std::min(count - shown, source_.Size() - place_);
}

bool ByteWindow::Fill(std::size_t count) {
  if (count > Left() || !reason_.empty()) return false;
  const std::size_t kept = end_ - begin_;
  if (buffer_.size() < count) buffer_.resize(std::max(count, std::min(kWindowBytes, Left())));
  std::memmove(buffer_.data(), buffer_.data() + begin_, kept);
  const std::size_t fresh = std::min(buffer_.size() - kept, source_.Size() - place_);
  reason_ = source_.ReadAt(place_, std::span(buffer_).subspan(kept, fresh));
  if (!reason_.empty()) return false;
  begin_ = 0;
  end_ = kept + fresh;
  place_ += fresh;
  return true;
}

}  // namespace morvane
