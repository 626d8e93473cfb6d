#include <QApplication>

#include "document/Undo.h"
#include "editor/MainForm.h"
#include "fuzz/Require.h"
#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "palette/StampTurn.h"
#include "platform/PictureDecoding.h"
#include "tests/support/FakePlatform.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

constexpr const char* kName = "tile";

/// Larger ones only take time.
constexpr long long kMostFuzzedPixels = 2'000'000;

/// A desktop in memory, with the real decoders.
struct DecodingPlatform : FakePlatform {
  Result<Picture> DecodePicture(Bytes content) override {
    return DecodeForeignPicture(std::move(content), {.pixels = kMostFuzzedPixels});
  }
};

/// One editor for all files, with a small map: each file must leave it as it was.
struct Editor {
  DecodingPlatform platform;
  MainForm form{platform, [](const std::string&) { return Picture(120, 180, 0); }};

  Editor() {
    form.Form_Initialize();
    form.Form_Resize(350, 250);
    form.document.Canvas.SetPicture(Picture(1, 1));
    Dir1_Change(form.palette, "/custom");
    TileSetSelector_Click(form.palette, kCustomSet);
  }
  void Choose(Bytes tile) {
    platform.files[std::string("/custom/") + kName] = std::move(tile);
    form.palette.Label2.clear();
    File1_Click(form.palette, kName);
  }
  Picture Map() const { return Picture(form.document.Canvas.Image()); }
};

void TurnAround(Palette& palette) {
  const Picture before(palette.Custom.Image());
  Rotate_Click(palette);
  FlipHorizontal_Click(palette);
  RotateLeft_Click(palette);
  FlipVertical_Click(palette);
  Require(Picture(palette.Custom.Image()) == before, "two turns and two flips give the tile back");
}

void Stamp(Editor& editor) {
  const Picture before = editor.Map();
  Canvas_MouseDown(editor.form.palette, kLeftButton, 41, 43);
  mnuEditUndo_Click(editor.form.document);
  Require(editor.Map() == before, "Undo takes the stamp away");
}

}  // namespace
}  // namespace morvane

/// Any bytes as the file of a custom tile, that is then turned, stamped and taken back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  static int arguments = 1;
  static char program[] = "fuzz_custom_tile";
  static char* names[] = {program, nullptr};
  static const QApplication application(arguments, names);

  static Editor editor;
  Palette& palette = editor.form.palette;
  editor.Choose(Bytes(data, data + size));
  if (palette.Label2 != kName) {
    Require(editor.form.document.StatusText.find("can't be used") != std::string::npos,
            "a refusal is told");
    return 0;
  }
  TurnAround(palette);
  Stamp(editor);
  return 0;
}
