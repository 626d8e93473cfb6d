#include <SDL_surface.h>
#include <pixman.h>

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

/// Copies of one picture to many places of a map.
struct Copies {
  Copies(Picture picture, std::vector<Place> to)
      : source(std::move(picture)), places(std::move(to)) {}

  Operation AsOperation(const std::string& name) const {
    return map.AsOperation(name, static_cast<int>(places.size()));
  }
  /// Calls `copy` with the map, a place and the picture.
  template <class Copy>
  void Make(Copy copy) const {
    Surface target = map.Draw();
    target.damage = damage.get();
    const PictureView view = source.View();
    for (const Place& at : places) copy(target, at, view);
  }

  SharedPicture map{RandomPicture(kDesignedMap, 1)};
  SharedPicture source;
  std::vector<Place> places;
  std::shared_ptr<Rect> damage = std::make_shared<Rect>();
};

/// Stamps a tile on every cell of a map.
void AddStamps(RatioTable& table, Size size, double limit) {
  const Copies copies(RandomPicture(size, 2), Cells(size));
  const Surface from = copies.source.Draw();
  Comparison comparison(table, copies.AsOperation("BitBlt " + SizeText(size) + " onto a map"), [=] {
    copies.Make([](const Surface& map, Place at, const PictureView& tile) {
      BitBlt(map, at.x, at.y, tile.width, tile.height, tile, 0, 0);
    });
  });
  comparison.Peer("row memcpy", AtMost(limit), [=] { copies.Make(CopyRows); });
  comparison.Peer("pixman_blt", AtMost(1.0), [=] {
    copies.Make([&](const Surface& map, Place at, const PictureView& tile) {
      pixman_blt(from.pixels, map.pixels, from.stride, map.stride, 32, 32, 0, 0, at.x, at.y,
                 tile.width, tile.height);
    });
  });
  if (size == Size{20, 20}) {
    comparison.Peer("a QPainter for each", Faster(5), [=] {
      QImage map = ImageOver(copies.map.Draw());
      const QImage tile = ImageOver(from);
      for (const Place& at : copies.places) QPainter(&map).drawImage(at.x, at.y, tile);
    });
  }
}

void AddWholeMap(RatioTable& table, Size size) {
  const SharedPicture target(size);
  const SharedPicture source(RandomPicture(size, 3));
  Comparison(table, target.AsOperation("BitBlt of a whole map " + SizeText(size)), [=] {
    BitBlt(target.Draw(), 0, 0, size.width, size.height, source.View(), 0, 0);
  }).Peer("memcpy", AtMost(1.15), [=] { CopyWhole(target.Draw(), source.View()); });
}

/// An SDL surface over the pixels of a picture, which must outlive it.
SdlSurface SdlOver(const Surface& surface) {
  SDL_Surface* over = SDL_CreateRGBSurfaceWithFormatFrom(
      surface.pixels, surface.width, surface.height, 32,
      surface.stride * static_cast<int>(sizeof(Pixel)), SDL_PIXELFORMAT_ARGB8888);
  SDL_SetSurfaceBlendMode(over, SDL_BLENDMODE_NONE);
  return {over, SDL_FreeSurface};
}

/// Compares copies that leave out white pixels. Returns the comparison for further peers.
Comparison AddTransparent(RatioTable& table, const std::string& name, const Copies& copies) {
  Comparison comparison(table, copies.AsOperation("TransparentBlt of a " + name), [=] {
    copies.Make([](const Surface& map, Place at, const PictureView& source) {
      TransparentBlt(map, at.x, at.y, source.width, source.height, source, 0, 0, kWhite);
    });
  });
  comparison.Baseline("row memcpy", AtMost(4.0), [=] { copies.Make(CopyRows); });
  const SdlSurface from = SdlOver(copies.source.Draw());
  const SdlSurface to = SdlOver(copies.map.Draw());
  SDL_SetColorKey(from.get(), SDL_TRUE, PixelOf(kWhite));
  comparison.Peer("SDL colour key", Faster(1.0), [=] {
    for (const Place& at : copies.places) {
      SDL_Rect rect{at.x, at.y, 0, 0};
      SDL_BlitSurface(from.get(), nullptr, to.get(), &rect);
    }
  });
  return comparison;
}

/// A piece of fence: posts of 2 pixels and gaps of 2.
Picture Fence(Size size) {
  Picture fence = RandomPicture(size, 7);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const int along = size.width > size.height ? x : y;
      if (along / 2 % 2 == 1) fence.Row(y)[x] = PixelOf(kWhite);
    }
  }
  return fence;
}

/// A white page with black text that is not anti-aliased.
Picture Page(Size size) {
  Picture page(size.width, size.height);
  QImage image = ImageOver(page.Draw());
  QFont font("Liberation Sans");
  font.setPixelSize(13);
  font.setStyleStrategy(QFont::NoAntialias);
  const QString text =
      QString("The door to the crypt is barred; two lamps burn beside it. ").repeated(70);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignJustify | Qt::TextWordWrap, text);
  painter.end();

  const Pixel* pixels = page.Row(0);
  const auto all = static_cast<std::ptrdiff_t>(size.width) * size.height;
  const auto black = std::count(pixels, pixels + all, PixelOf(0));
  const auto white = std::count(pixels, pixels + all, PixelOf(kWhite));
  Require(black > all / 20 && black + white == all, "The page of text has no text; check the font");
  return page;
}

void AddText(RatioTable& table) {
  constexpr Place kPlace{53, 67};
  const Copies copies(Page({509, 349}), {kPlace});
  const QImage text = ImageOver(copies.source.View());
  const auto mask = [](const QImage& picture) {
    return QBitmap::fromImage(picture.createMaskFromColor(PixelOf(kWhite), Qt::MaskInColor));
  };
  Comparison comparison = AddTransparent(table, "page of text 509x349", copies);
  comparison.Peer("Qt, mask made for each", Faster(10), [=] {
    QImage map = ImageOver(copies.map.Draw());
    QPixmap masked = QPixmap::fromImage(text);
    masked.setMask(mask(text));
    QPainter(&map).drawPixmap(kPlace.x, kPlace.y, masked);
  });
  const QRegion clip = QRegion(mask(text)).translated(kPlace.x, kPlace.y);
  comparison.Peer("Qt, clipped to a ready region", Faster(10), [=] {
    QImage map = ImageOver(copies.map.Draw());
    QPainter painter(&map);
    painter.setClipRegion(clip);
    painter.drawImage(kPlace.x, kPlace.y, text);
  });
}

}  // namespace

void AddCopies(RatioTable& table) {
  AddStamps(table, {20, 20}, 1.25);
  AddStamps(table, {40, 40}, 1.15);
  AddStamps(table, {60, 40}, 1.15);
  for (const Size size : {kDesignedMap, Size{1432, 1168}, Size{3840, 2160}}) {
    AddWholeMap(table, size);
  }
  for (const Size size : {Size{4, 22}, Size{22, 4}}) {
    AddTransparent(table, "fence " + SizeText(size), Copies(Fence(size), Cells(size)));
  }
  AddText(table);
}

}  // namespace morvane::bench
