#include <QApplication>

#include "document/Undo.h"
#include "fuzz/Require.h"
#include "palette/CustomTiles.h"
#include "palette/FlipAndRotate.h"
#include "palette/PalettePages.h"
#include "platform/PictureDecoding.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

/// The platform in memory, but with the real decoders.
struct DecodingPlatform : FakePlatform {
  Result<Picture> DecodePicture(Bytes content) override {
    constexpr long long kMaxPixels = 2'000'000;  // larger pictures would take too long
    return DecodeForeignPicture(std::move(content), {.pixels = kMaxPixels});
  }
};

/// One editor for all inputs, with a small map.
struct SmallEditor {
  DecodingPlatform platform;
  MainForm form{platform, &SpeckledSheet};

  SmallEditor() {
    form.Form_Resize(350, 250);
    form.document.Canvas.SetPicture(Picture(1, 1));
    Dir1_Change(form.palette, "/custom");
    TileSetSelector_Click(form.palette, kCustomSet);
  }
};

}  // namespace
}  // namespace morvane

/// The input is the file of a custom tile, which is then turned, stamped and undone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  static int arguments = 1;
  static char program[] = "fuzz_custom_tile";
  static char* names[] = {program, nullptr};
  static const QApplication application(arguments, names);
  static SmallEditor editor;
  Document& document = editor.form.document;
  Palette& palette = editor.form.palette;
  editor.platform.files["/custom/tile"] = Bytes(data, data + size);
  File1_Click(palette, "tile");
  if (document.StatusText.find("can't be used") != std::string::npos) return 0;
  Require(document.StatusText.starts_with("Custom tile selected"), "reported");
  const Picture tile(palette.Custom.Image());
  for (const auto turn :
       {&Rotate_Click, &FlipHorizontal_Click, &RotateLeft_Click, &FlipVertical_Click}) {
    turn(palette);
  }
  Require(Picture(palette.Custom.Image()) == tile, "two turns and two flips restore the tile");
  const Picture map(document.Canvas.Image());
  Canvas_MouseDown(palette, kLeftButton, 41, 43);
  mnuEditUndo_Click(document);
  Require(Picture(document.Canvas.Image()) == map, "Undo restores the map");
  return 0;
}
