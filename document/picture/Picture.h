#pragma once

#include <cstddef>
#include <memory>

#include "document/picture/Color.h"
#include "document/picture/Rect.h"

namespace morvane {

/// Pictures with more pixels are refused, so that no file can exhaust the memory.
inline constexpr long long kMaxPixels = 100'000'000;
inline constexpr const char* kTooLarge = "The picture is too large.";

/// Pixels to read, not owned.
struct PictureView {
  const Pixel* pixels = nullptr;
  int width = 0;
  int height = 0;
  int stride = 0;  ///< pixels from one row to the next

  const Pixel* Row(int y) const { return pixels + static_cast<std::ptrdiff_t>(y) * stride; }
  Rect Bounds() const { return {0, 0, width, height}; }
  /// The top left part of that size.
  PictureView Cropped(Size size) const { return {pixels, size.width, size.height, stride}; }

  /// Whether both show the same pixels.
  friend bool operator==(const PictureView& one, const PictureView& other);
};

/// Pixels to draw on, not owned. Drawing is clipped at the edges.
struct Surface {
  Pixel* pixels = nullptr;
  int width = 0;
  int height = 0;
  int stride = 0;          ///< pixels from one row to the next
  Rect* damage = nullptr;  ///< if not null, grows by every rectangle that is drawn

  void NoteDamage(const Rect& rect) const {
    if (damage != nullptr) *damage = damage->United(rect);
  }
  Pixel* Row(int y) const { return pixels + static_cast<std::ptrdiff_t>(y) * stride; }
  Rect Bounds() const { return {0, 0, width, height}; }
};

/// A picture that owns its pixels.
class Picture {
 public:
  Picture() = default;
  Picture(int width, int height, Color fill = kWhite);
  /// A copy of what the view shows.
  explicit Picture(const PictureView& view);
  /// A picture with undefined pixels. The caller must write all of them.
  static Picture Unpainted(int width, int height);

  Picture(const Picture& other) : Picture(other.View()) {}
  Picture(Picture&& other) noexcept { Swap(other); }
  Picture& operator=(Picture other) noexcept {
    Swap(other);
    return *this;
  }
  ~Picture() = default;

  int Width() const { return width_; }
  int Height() const { return height_; }

  Pixel* Row(int y) { return pixels_.get() + static_cast<std::ptrdiff_t>(y) * width_; }
  PictureView View() const { return {pixels_.get(), width_, height_, width_}; }
  Surface Draw() { return {pixels_.get(), width_, height_, width_}; }

  friend bool operator==(const Picture& one, const Picture& other) {
    return one.View() == other.View();
  }

 private:
  void Swap(Picture& other) noexcept;
  std::size_t Pixels() const {
    return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
  }

  int width_ = 0;
  int height_ = 0;
  std::unique_ptr<Pixel[]> pixels_;  ///< row by row
};

/// A picture from a file.
struct LoadedPicture {
  Picture picture;
  bool isDamaged = false;  ///< whether the file contradicts itself, so that pixels may be wrong
};

}  // namespace morvane
