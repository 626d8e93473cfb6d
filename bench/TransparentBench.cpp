#include <QBitmap>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "bench/Benches.h"
#include "bench/Stage.h"
#include "document/picture/Blit.h"
#include "platform/Images.h"
#ifdef MORVANE_BENCH_SDL
#include "bench/SdlPeer.h"
#endif

namespace morvane::bench {
namespace {

/// A transparent copy at many places of a map.
struct Pasting {
  Stage map{Noise(kMap, 1)};
  Stage piece;
  std::vector<Place> places;
  Color key;
};

Contest AddPasting(RatioTable& table, const std::string& name, const Pasting& pasting) {
  const auto [map, piece, places, key] = pasting;
  Contest contest(table, map.AsWork(name, static_cast<int>(places.size())));
  const auto damage = std::make_shared<Rect>();
  contest.Ours([=, map = map, piece = piece, places = places, key = key] {
    Surface target = map.Draw();
    target.damage = damage.get();
    const PictureView source = piece.View();
    for (const Place& at : places) {
      TransparentBlt(target, at.x, at.y, source.width, source.height, source, 0, 0, key);
    }
  });
  contest.Limit("row memcpy", AtMost(4.0), [map = map, piece = piece, places = places] {
    const Surface target = map.Draw();
    const PictureView source = piece.View();
    for (const Place& at : places) CopyRows(target, at, source);
  });
#ifdef MORVANE_BENCH_SDL
  const SdlSurface from = SdlOver(piece.Draw());
  const SdlSurface to = SdlOver(map.Draw());
  SDL_SetColorKey(from.get(), SDL_TRUE, PixelOf(key));
  contest.Against("SDL colour key", Faster(1.0), [from, to, places = places] {
    for (const Place& at : places) {
      SDL_Rect rect{at.x, at.y, 0, 0};
      SDL_BlitSurface(from.get(), nullptr, to.get(), &rect);
    }
  });
#endif
  return contest;
}

/// A piece of fence: posts of 2 pixels and gaps of 2.
Pasting Fence(Size size) {
  constexpr Color kGap = kWhite;
  Picture piece = Noise(size, 7);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const int along = size.width > size.height ? x : y;
      if (along / 2 % 2 == 1) piece.Row(y)[x] = PixelOf(kGap);
    }
  }
  return {.piece = Stage(piece), .places = Cells(size), .key = kGap};
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
  return page;
}

void RequireText(const Picture& page) {
  const PictureView view = page.View();
  const long long all = 1LL * view.width * view.height;
  const long long black = std::count(view.pixels, view.pixels + all, PixelOf(0));
  const long long white = std::count(view.pixels, view.pixels + all, PixelOf(kWhite));
  if (black > all / 20 && black + white == all) return;
  std::cerr << "The page of text has " << black << " black and " << white << " white of " << all
            << " pixels: is a font installed?\n";
  std::exit(EXIT_FAILURE);
}

/// The region of the picture that isn't white.
QBitmap MaskOf(const QImage& picture) {
  return QBitmap::fromImage(picture.createMaskFromColor(PixelOf(kWhite), Qt::MaskInColor));
}

void AddText(RatioTable& table) {
  constexpr Size kText{509, 349};
  const Picture page = Page(kText);
  RequireText(page);
  const Pasting pasting{.piece = Stage(page), .places = {{53, 67}}, .key = kWhite};
  Contest contest = AddPasting(table, "TransparentBlt of a page of text 509x349", pasting);
  const Stage map = pasting.map;
  const QImage text = ImageOver(pasting.piece.View());
  const Place at = pasting.places.front();
  contest.Against("Qt, mask made for each", Faster(10), [=] {
    QImage target = ImageOver(map.Draw());
    QPixmap masked = QPixmap::fromImage(text);
    masked.setMask(MaskOf(text));
    QPainter painter(&target);
    painter.drawPixmap(at.x, at.y, masked);
  });
  const QRegion clip = QRegion(MaskOf(text)).translated(at.x, at.y);
  contest.Against("Qt, clipped to a ready region", Faster(10), [=] {
    QImage target = ImageOver(map.Draw());
    QPainter painter(&target);
    painter.setClipRegion(clip);
    painter.drawImage(at.x, at.y, text);
  });
}

}  // namespace

void AddTransparentCopies(RatioTable& table) {
  AddPasting(table, "TransparentBlt of a fence 4x22", Fence({4, 22}));
  AddPasting(table, "TransparentBlt of a fence 22x4", Fence({22, 4}));
  AddText(table);
}

}  // namespace morvane::bench
