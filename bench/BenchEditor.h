#pragma once

#include "editor/MainForm.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"

namespace morvane::bench {

/// The real platform, whose message boxes are answered with Yes.
class YesPlatform : public QtPlatform {
 public:
  Answer MsgBox(const std::string&, BoxStyle, const std::string&) override { return Answer::Yes; }
};

/// The editor without a window, with its real art and a map of any size.
template <class PlatformType>
struct BenchEditor {
  explicit BenchEditor(Size map) {
    constexpr int kBorders = 4;
    form.Form_Initialize();
    document.Canvas.SetWidth(map.width + kBorders);
    document.Canvas.SetHeight(map.height + kBorders);
    document.Canvas.Cls();
  }

  PlatformType platform;
  MainForm form{platform, &LoadArtSheet};
  Document& document = form.document;
  Palette& palette = form.palette;
};

}  // namespace morvane::bench
