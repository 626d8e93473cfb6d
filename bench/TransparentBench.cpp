#include <SDL_surface.h>

#include <QBitmap>
#include <QPainter>
#include <algorithm>

#include "bench/Benches.h"
#include "bench/SharedPicture.h"
#include "document/picture/Blit.h"
#include "platform/Images.h"

namespace morvane::bench {
namespace {

using SdlSurface = std::shared_ptr<SDL_Surface>;

/// An SDL surface over the pixels of a picture, which must outlive it.
SdlSurface SdlOver(const Surface& surface) {
  SDL_Surface* over = SDL_CreateRGBSurfaceWithFormatFrom(
      surface.pixels, surface.width, surface.height, 32,
      surface.stride * static_cast<int>(sizeof(Pixel)), SDL_PIXELFORMAT_ARGB8888);
  SDL_SetSurfaceBlendMode(over, SDL_BLENDMODE_NONE);
  return {over, SDL_FreeSurface};
}

/// Copies a piece, in which white is transparent, to each of the places on a map.
Comparison AddCopy(RatioTable& table, const std::string& name, const SharedPicture& map,
                   const SharedPicture& piece, const std::vector<Place>& places) {
  const auto damage = std::make_shared<Rect>();
  Comparison comparison(table, map.AsOperation(name, static_cast<int>(places.size())), [=] {
    Surface target = map.Draw();
    target.damage = damage.get();
    const PictureView source = piece.View();
    for (const Place& at : places) {
      TransparentBlt(target, at.x, at.y, source.width, source.height, source, 0, 0, kWhite);
    }
  });
  comparison.Baseline("row memcpy", AtMost(4.0), [=] {
    const Surface target = map.Draw();
    const PictureView source = piece.View();
    for (const Place& at : places) CopyRows(target, at, source);
  });
  const SdlSurface from = SdlOver(piece.Draw());
  const SdlSurface to = SdlOver(map.Draw());
  SDL_SetColorKey(from.get(), SDL_TRUE, PixelOf(kWhite));
  comparison.Peer("SDL colour key", Faster(1.0), [=] {
    for (const Place& at : places) {
      SDL_Rect rect{at.x, at.y, 0, 0};
      SDL_BlitSurface(from.get(), nullptr, to.get(), &rect);
    }
  });
  return comparison;
}

/// Copies a piece of fence: posts of 2 pixels and gaps of 2.
void AddFence(RatioTable& table, Size size) {
  Picture fence = RandomPicture(size, 7);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const int along = size.width > size.height ? x : y;
      if (along / 2 % 2 == 1) fence.Row(y)[x] = PixelOf(kWhite);
    }
  }
  AddCopy(table, "TransparentBlt of a fence " + SizeText(size),
          SharedPicture(RandomPicture(kDesignedMap, 1)), SharedPicture(fence), Cells(size));
}

/// A white page with black text that is not anti-aliased.
Picture Page(Size size) {
  Picture page(size.width, size.height);
  QImage image = ImageOver(page.Draw());
  QFont font("Liberation Sans");
  font.setPixelSize(13);
  font.setStyleStrategy(QFont::NoAntialias);
  QString text;
  while (text.size() < 4000) text += "The door to the crypt is barred; two lamps burn beside it. ";
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignJustify | Qt::TextWordWrap, text);
  painter.end();

  const PictureView view = page.View();
  const auto all = static_cast<std::ptrdiff_t>(view.width) * view.height;
  const auto black = std::count(view.pixels, view.pixels + all, PixelOf(0));
  const auto white = std::count(view.pixels, view.pixels + all, PixelOf(kWhite));
  Require(black > all / 20 && black + white == all, "The page of text has no text; check the font");
  return page;
}

/// The region of the picture that isn't white.
QBitmap MaskOf(const QImage& picture) {
  return QBitmap::fromImage(picture.createMaskFromColor(PixelOf(kWhite), Qt::MaskInColor));
}

void AddText(RatioTable& table) {
  constexpr Size kText{509, 349};
  constexpr Place kPlace{53, 67};
  const SharedPicture map(RandomPicture(kDesignedMap, 1));
  const SharedPicture page(Page(kText));
  const QImage text = ImageOver(page.View());
  Comparison comparison =
      AddCopy(table, "TransparentBlt of a page of text 509x349", map, page, {kPlace});
  comparison.Peer("Qt, mask made for each", Faster(10), [=] {
    QImage target = ImageOver(map.Draw());
    QPixmap masked = QPixmap::fromImage(text);
    masked.setMask(MaskOf(text));
    QPainter(&target).drawPixmap(kPlace.x, kPlace.y, masked);
  });
  const QRegion clip = QRegion(MaskOf(text)).translated(kPlace.x, kPlace.y);
  comparison.Peer("Qt, clipped to a ready region", Faster(10), [=, page = page] {
    QImage target = ImageOver(map.Draw());
    QPainter painter(&target);
    painter.setClipRegion(clip);
    painter.drawImage(kPlace.x, kPlace.y, text);
  });
}

}  // namespace

void AddTransparentCopies(RatioTable& table) {
  AddFence(table, {4, 22});
  AddFence(table, {22, 4});
  AddText(table);
}

}  // namespace morvane::bench
