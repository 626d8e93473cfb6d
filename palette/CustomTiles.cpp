#include "palette/CustomTiles.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "document/PictureFile.h"
#include "document/picture/Blit.h"

namespace morvane {
namespace {

constexpr int kMaxPreview = 60;

int Scaled(int side, int otherSide) {
  // Halves are rounded to even, as in the settings.
  return std::max(1, static_cast<int>(std::nearbyint(double{kMaxPreview} * side / otherSide)));
}

void ShowPreview(Palette& palette) {
  PictureBox& Picture1 = palette.Picture1;
  const Size full = palette.Custom.ScaleSize();
  const Size preview = PreviewSize(full);
  if (preview == full) {
    palette.SetPicture1(Picture(palette.Custom.Image()), full);
    return;
  }
  Picture1.SetSize(preview);
  StretchBlt(Picture1.hDC(), 0, 0, preview.width, preview.height, palette.Custom.Image(), 0, 0,
             full.width, full.height);
  Picture1.Refresh();
}

}  // namespace

void Drive1_Change(Palette& palette, const std::string& drive) {
  Dir1_Change(palette, drive);
}

void Dir1_Change(Palette& palette, const std::string& path) {
  Platform& platform = palette.document.platform;
  if (!palette.Dir1.SetPath(platform, path)) {
    palette.document.StatusText = "The folder can't be opened: " + path;
  }
  palette.File1.SetPath(platform, palette.Dir1.Path());
}

void File1_Click(Palette& palette, const std::string& FileName) {
  Document& document = palette.document;
  const std::string path = WithTrailingBackslash(palette.File1.Path()) + FileName;
  Result<LoadedPicture> picture = LoadPicture(document.platform, path);
  if (!picture.Ok()) {
    document.StatusText = FileName + " can't be used as a tile: " + picture.Reason();
    return;
  }
  palette.Custom.SetPictureAndSize(std::move(picture.Value().picture));
  const Size size = palette.Custom.ScaleSize();
  palette.Label2 = FileName.substr(FileName.rfind('/') + 1);
  ShowPreview(palette);
  palette.Shape1.SetSize(size);
  palette.Label5 = std::to_string(size.width) + "x" + std::to_string(size.height);
  document.StatusText = "Custom tile selected: " + palette.Label2;
  if (picture.Value().isDamaged) {
    document.StatusText += ". The file is damaged, and parts of the picture may be wrong.";
  }
  palette.SwitchToTileMode();
  document.Canvas.SetFocus();
}

void File1_Drop(Palette& palette, const std::string& path) {
  const std::size_t nameAt = path.rfind('/') + 1;
  const std::string folder = path.substr(0, std::max<std::size_t>(1, nameAt - 1));
  Dir1_Change(palette, folder);
  if (palette.File1.Path() == folder) File1_Click(palette, path.substr(nameAt));
}

void ShowStoredFolder(Palette& palette) {
  Platform& platform = palette.document.platform;
  const std::string stored = palette.document.settings.GetINIFileString("Custom", "Dir", "");
  if (!palette.File1.SetPath(platform, stored) && !stored.empty()) {
    palette.document.StatusText = "The folder of custom tiles can't be opened: " + stored;
  }
  Dir1_Change(palette, palette.File1.Path());
}

Size PreviewSize(Size picture) {
  const auto [W, H] = picture;
  if (W <= kMaxPreview && H <= kMaxPreview) return picture;
  if (W > H) return {kMaxPreview, Scaled(H, W)};
  return {Scaled(W, H), kMaxPreview};
}

}  // namespace morvane
