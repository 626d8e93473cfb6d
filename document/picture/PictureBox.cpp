#include "document/picture/PictureBox.h"

#include <algorithm>
#include <utility>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

constexpr int kSunkenBorder = 2;

Picture Enlarged(const PictureView& picture, int width, int height) {
  Picture larger(std::max(width, picture.width), std::max(height, picture.height));
  BitBlt(larger.Draw(), 0, 0, picture.width, picture.height, picture, 0, 0);
  return larger;
}

}  // namespace

PictureBox::PictureBox(int width, int height, Border border)
    : width_(width), height_(height), border_(border == Border::Sunken ? kSunkenBorder : 0) {
  Cls();
}

void PictureBox::SetWidth(int width) {
  if (width < 0) return;
  GrowImage(width - 2 * border_, ScaleHeight());
  width_ = width;
}

void PictureBox::SetHeight(int height) {
  if (height < 0) return;
  GrowImage(ScaleWidth(), height - 2 * border_);
  height_ = height;
}

PictureView PictureBox::Image() const {
  return store_.View().Cropped(image_);
}

Surface PictureBox::hDC() {
  Surface surface = store_.Draw();
  surface.width = ScaleWidth();
  surface.height = ScaleHeight();
  surface.damage = &damage_;
  return surface;
}

void PictureBox::SetPicture(Picture picture) {
  const bool fills = picture.Width() >= ScaleWidth() && picture.Height() >= ScaleHeight();
  store_ = fills ? std::move(picture) : Enlarged(picture.View(), ScaleWidth(), ScaleHeight());
  image_ = {store_.Width(), store_.Height()};
  ExposeAll();
}

std::optional<Surface> PictureBox::OverwriteImage(Size size) {
  const bool fits = size == Size{store_.Width(), store_.Height()} && size.width >= ScaleWidth() &&
                    size.height >= ScaleHeight();
  if (!fits) return std::nullopt;
  image_ = size;
  ExposeAll();
  return store_.Draw();
}

void PictureBox::SetPictureAndSize(Picture picture) {
  width_ = picture.Width() + 2 * border_;
  height_ = picture.Height() + 2 * border_;
  SetPicture(std::move(picture));
}

void PictureBox::Cls() {
  store_ = Picture(std::max(1, ScaleWidth()), std::max(1, ScaleHeight()));
  TrimImage();
  ExposeAll();
}

void PictureBox::TrimImage() {
  // A box without an inside still has an image: a file of no pixels could not be read back.
  image_ = {std::max(1, ScaleWidth()), std::max(1, ScaleHeight())};
}

void PictureBox::Refresh() {
  exposed_ = exposed_.United(damage_);
  damage_ = {};
}

void PictureBox::GrowImage(int width, int height) {
  const Size grown = {std::max(image_.width, width), std::max(image_.height, height)};
  // If there isn't enough memory, this throws before any size has changed.
  if (grown.width > store_.Width() || grown.height > store_.Height()) {
    store_ = Enlarged(store_.View(), grown.width, grown.height);
  }
  image_ = grown;
}

void PictureBox::ExposeAll() {
  damage_ = {};
  exposed_ = {0, 0, image_.width, image_.height};
}

}  // namespace morvane
