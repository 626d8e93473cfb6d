#pragma once

#include "editor/MainForm.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "tests/support/FakePlatform.h"

namespace morvane::bench {

/// The real platform, whose message boxes are answered with Yes.
class YesPlatform : public QtPlatform {
 public:
  Answer MsgBox(const std::string&, BoxStyle, const std::string&) override { return Answer::Yes; }
};

/// A platform that counts snapshots and discards them.
class CountingPlatform : public FakePlatform {
 public:
  Failure WriteSnapshot(ByteSource&) override {
    ++snapshots;
    return {};
  }
};

/// The editor without a window, with its real art and a map of any size.
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
