#include "document/bmp/BmpHeader.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "document/io/LittleEndian.h"
#include "document/picture/Picture.h"

namespace morvane {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kCoreHeaderSize = 12;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::uint32_t kShortestOs2Header = 16;
constexpr std::uint32_t kOs2HeaderSize = 64;
constexpr const char* kTooShort = "The file ends too early.";
constexpr const char* kContradicts = "The file's header contradicts itself.";
constexpr const char* kUnknownForm = "The file is a form of BMP that isn't known.";

/// Values of the compression field.
enum : std::uint32_t {
  kRgb = 0,
  kRle8 = 1,
  kRle4 = 2,
  kBitFields = 3,
  kRle24 = 4,
  kAlphaFields = 6
};

bool IsContiguous(std::uint32_t mask) {
  const std::uint32_t low = mask == 0 ? 0 : mask >> static_cast<unsigned>(std::countr_zero(mask));
  return (low & (low + 1)) == 0;
}

/// Reads the headers step by step. Each step returns why it failed, or an empty text.
class HeaderReader {
 public:
  HeaderReader(std::span<const std::uint8_t> head, std::size_t fileSize)
      : head_(head), fileSize_(fileSize) {}

  Result<BmpHeader> Read() {
    for (auto step : {&HeaderReader::ReadSizes, &HeaderReader::ReadCompression,
                      &HeaderReader::ReadMasks, &HeaderReader::ReadPalette}) {
      Failure failure = (this->*step)();
      if (!failure.empty()) return Failed{std::move(failure)};
    }
    return header_;
  }

 private:
  bool IsCore() const { return infoSize_ == kCoreHeaderSize; }
  bool IsOs2() const { return infoSize_ == kShortestOs2Header || infoSize_ == kOs2HeaderSize; }

  Failure ReadSizes() {
    if (fileSize_ < kFileHeaderSize + 4) return kTooShort;
    header_.dataOffset = Read32(head_, 10);
    infoSize_ = Read32(head_, kFileHeaderSize);
    const bool isOld = infoSize_ >= kShortestOs2Header && infoSize_ <= kOs2HeaderSize;
    if (!IsCore() && !isOld && infoSize_ != 108 && infoSize_ != 124) return kUnknownForm;
    tablesAt_ = kFileHeaderSize + infoSize_;
    if (fileSize_ < tablesAt_) return kTooShort;

    long long width = 0;
    long long height = 0;
    if (IsCore()) {
      width = Read16(head_, 18);
      height = Read16(head_, 20);
      header_.bits = static_cast<int>(Read16(head_, 24));
    } else {
      width = static_cast<std::int32_t>(Read32(head_, 18));
      height = static_cast<std::int32_t>(Read32(head_, 22));
      header_.bits = static_cast<int>(Read16(head_, 28));
    }
    header_.topDown = height < 0;
    height = std::abs(height);
    if (width <= 0 || height == 0) return "The picture has no size.";
    if (width * height > kMaxPixels) return kTooLarge;
    header_.width = static_cast<int>(width);
    header_.height = static_cast<int>(height);
    constexpr std::array<int, 7> kDepths = {1, 2, 4, 8, 16, 24, 32};
    if (std::find(kDepths.begin(), kDepths.end(), header_.bits) == kDepths.end()) {
      return kUnknownForm;
    }
    return {};
  }

  /// Run lengths require a certain depth and the usual order of rows, from the bottom up.
  Failure SetRunLengths(BmpCompression compression, int bits) {
    header_.compression = compression;
    return header_.bits == bits && !header_.topDown ? Failure() : kContradicts;
  }

  Failure ReadCompression() {
    compressionField_ = infoSize_ >= 20 ? Read32(head_, 30) : std::uint32_t{kRgb};
    switch (compressionField_) {
      case kRgb:
        return {};
      case kRle8:
        return SetRunLengths(BmpCompression::Rle8, 8);
      case kRle4:
        return SetRunLengths(BmpCompression::Rle4, 4);
      case kRle24:
        // In other headers than those of OS/2, this number stands for JPEG data.
        return IsOs2() ? SetRunLengths(BmpCompression::Rle24, 24) : kUnknownForm;
      case kBitFields:
      case kAlphaFields:
        if (IsOs2()) return kUnknownForm;
        return header_.bits == 16 || header_.bits == 32 ? Failure() : kContradicts;
      default:
        return kUnknownForm;
    }
  }

  Failure ReadMasks() {
    if (header_.bits != 16 && header_.bits != 32) return {};
    if (compressionField_ == kRgb) {
      const bool wide = header_.bits == 32;
      header_.red.mask = wide ? 0xFF0000U : 0x7C00U;
      header_.green.mask = wide ? 0xFF00U : 0x3E0U;
      header_.blue.mask = wide ? 0xFFU : 0x1FU;
      return {};
    }
    // Newer headers contain the masks. After the basic header they follow as a separate table.
    const std::size_t masks = compressionField_ == kAlphaFields || infoSize_ >= 56 ? 4 : 3;
    const std::size_t masksAt = kFileHeaderSize + kInfoHeaderSize;
    if (fileSize_ < masksAt + masks * 4) return kTooShort;
    tablesAt_ = std::max(tablesAt_, masksAt + masks * 4);
    std::array<BmpChannel*, 4> channels = {&header_.red, &header_.green, &header_.blue,
                                           &header_.alpha};
    for (std::size_t i = 0; i < masks; ++i) {
      channels[i]->mask = Read32(head_, masksAt + i * 4);
      if (!IsContiguous(channels[i]->mask)) return kContradicts;
    }
    return {};
  }

  Failure ReadPalette() {
    if (header_.dataOffset < tablesAt_) return kContradicts;
    if (header_.dataOffset >= fileSize_) return kTooShort;
    if (header_.bits > 8) return {};
    header_.palette.assign(std::size_t{1} << static_cast<unsigned>(header_.bits), PixelOf(0));
    const std::size_t entryBytes = IsCore() ? 3 : 4;
    const std::size_t room = (header_.dataOffset - tablesAt_) / entryBytes;
    header_.colors = std::min(header_.palette.size(), room);
    const std::size_t stated = infoSize_ >= 36 ? Read32(head_, 46) : 0;
    if (stated != 0) header_.colors = std::min(header_.colors, stated);
    for (std::size_t i = 0; i < header_.colors; ++i) {
      const std::uint8_t* entry = &head_[tablesAt_ + i * entryBytes];
      header_.palette[i] = MakePixel(entry[2], entry[1], entry[0]);
    }
    return {};
  }

  std::span<const std::uint8_t> head_;
  std::size_t fileSize_;
  BmpHeader header_;
  std::uint32_t infoSize_ = 0;
  std::uint32_t compressionField_ = kRgb;
  std::size_t tablesAt_ = 0;  ///< the end of the headers and masks read so far
};

}  // namespace

std::uint32_t BmpChannel::Of(std::uint32_t pixel) const {
  if (mask == 0) return 0;
  const auto shift = static_cast<unsigned>(std::countr_zero(mask));
  const std::uint32_t most = mask >> shift;
  const std::uint32_t value = (pixel & mask) >> shift;
  if (most == 255) return value;
  // 64-bit divisions are slow, and hardly any file needs them.
  if (most <= 0xFFFF) return (value * 255 + most / 2) / most;
  return static_cast<std::uint32_t>((std::uint64_t{value} * 255 + most / 2) / most);
}

Result<BmpHeader> ReadBmpHeader(std::span<const std::uint8_t> head, std::size_t fileSize) {
  return HeaderReader(head, fileSize).Read();
}

}  // namespace morvane
