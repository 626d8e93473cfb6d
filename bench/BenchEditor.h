#pragma once

#include "editor/MainForm.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "tests/support/FakePlatform.h"

namespace morvane::bench {

/// The real platform with a user who says yes to everything.
class YesPlatform : public QtPlatform {
 public:
  Answer MsgBox(const std::string&, BoxStyle, const std::string&) override { return Answer::Yes; }
};

/// A platform that counts the snapshots it is given and keeps none.
class CountingPlatform : public FakePlatform {
 public:
  Failure WriteSnapshot(ByteSource&) override {
    ++snapshots;
    return {};
  }
};

/// The editor with its real art and no window, and a map of any size that isn't wiped.
template <class Desktop>
struct BenchEditor {
  explicit BenchEditor(Size map) {
    constexpr int kBorders = 4;
    form.Form_Initialize();
    document.Canvas.SetWidth(map.width + kBorders);
    document.Canvas.SetHeight(map.height + kBorders);
    document.Canvas.Cls();
  }

  Desktop platform;
  MainForm form{platform, &LoadArtSheet};
  Document& document = form.document;
  Palette& palette = form.palette;
};

}  // namespace morvane::bench
