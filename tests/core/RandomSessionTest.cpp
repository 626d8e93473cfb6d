#include <gtest/gtest.h>

#include <random>

#include "document/Undo.h"
#include "palette/PalettePages.h"
#include "palette/StampTurn.h"
#include "palette/TileSelection.h"
#include "tests/support/ReferenceModel.h"
#include "tools/CanvasMouse.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

/// Fences with their transparent colour in every other column, but not in the very corner.
Picture SheetWithFence(const std::string& name) {
  Picture sheet = SpeckledSheet(name);
  if (name != "classic-village/edges") return sheet;
  for (int x = 0; x < 60; x += 2) FillBox(sheet.Draw(), {x, 0, x + 1, 30}, 0xFF00FF);
  for (const int x : {0, 30}) SetPixelV(sheet.Draw(), x, 0, 0x00FFFF);
  return sheet;
}

class RandomSession : public testing::TestWithParam<unsigned> {
 protected:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  /// Coordinates crowd around the grid lines, where the rules differ; strokes leave the map too.
  int Coordinate(int extent, bool press) {
    if (Random(0, 2) == 0) return Random(0, std::min(extent - 1, 600 / Random(1, 10)));
    const int v = Random(0, extent / 20) * 20 + Random(-5, 5);
    return press ? std::clamp(v, 0, extent - 1) : v + (Random(0, 9) == 0 ? Random(-60, 60) : 0);
  }

  void Step() {
    switch (Random(0, 11)) {
      case 0: {
        const Item& item = Items()[static_cast<std::size_t>(Random(0, kItemCount - 1))];
        Item_Click(form_.palette, item);
        model_.Pick(item);
        break;
      }
      case 1: {
        const int set = Random(0, 4);
        TileSetSelector_Click(form_.palette, set);
        model_.ChooseSet(set);
        break;
      }
      case 2:
        WallButton_Click(form_.palette);
        model_.NextMode();
        break;
      case 3:
        Turn(Random(0, 3));
        break;
      case 4:
        mnuEditUndo_Click(form_.document);
        model_.Undo();
        break;
      default:
        Paint();
    }
  }

  void Turn(int kind) {
    using Place = std::pair<int, int>;
    switch (kind) {
      case 0:
        FlipHorizontal_Click(form_.palette);
        model_.Turn(false, [](int x, int y, int W, int) { return Place(W - 1 - x, y); });
        break;
      case 1:
        FlipVertical_Click(form_.palette);
        model_.Turn(false, [](int x, int y, int, int H) { return Place(x, H - 1 - y); });
        break;
      case 2:
        Rotate_Click(form_.palette);
        model_.Turn(true, [](int x, int y, int, int H) { return Place(H - 1 - y, x); });
        break;
      default:
        RotateLeft_Click(form_.palette);
        model_.Turn(true, [](int x, int y, int W, int) { return Place(y, W - 1 - x); });
    }
  }

  void Paint() {
    const bool press = Random(0, 1) == 0;
    const int button = press ? 1 << Random(0, 2) : Random(1, 7);
    const int X = Coordinate(615, press);
    const int Y = Coordinate(483, press);
    const auto run = press ? &Canvas_MouseDown : &Canvas_MouseMove;
    run(form_.palette, button, static_cast<float>(X), static_cast<float>(Y));
    model_.Paint(press, button, X, Y);
  }

  std::mt19937 random_{GetParam()};
  FakePlatform platform_;
  MainForm form_{platform_, &SheetWithFence};
  ReferenceModel model_{form_.palette.pictures};
};

TEST_P(RandomSession, EveryPixelIsAsThePlainModelSays) {
  form_.Form_Initialize();
  form_.Form_Resize(787, 537);
  for (int step = 0; step < 1500; ++step) {
    Step();
    const PictureView map = form_.document.Canvas.Image();
    ASSERT_EQ(Difference(map, model_.map.View()), "") << "after step " << step;
    ASSERT_EQ(form_.palette.Shape1.Width, model_.outline.width);
    ASSERT_EQ(form_.palette.Shape1.Height, model_.outline.height);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession, testing::Range(1U, 7U));

}  // namespace
}  // namespace morvane
