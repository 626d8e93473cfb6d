#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "palette/TileSelection.h"
#include "tests/support/HeapWatch.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

/// Takes the snapshot's bytes as a file would, and keeps none.
struct PullingPlatform : FakePlatform {
  std::array<std::uint8_t, 4096> chunk{};

  Failure WriteSnapshot(ByteSource& content) override {
    const std::size_t size = content.Size();
    for (std::size_t place = 0; place < size; place += chunk.size()) {
      const std::size_t count = std::min(chunk.size(), size - place);
      Failure failure = content.ReadAt(place, std::span(chunk).first(count));
      if (!failure.empty()) return failure;
    }
    ++snapshots;
    return {};
  }
};

struct AllocationTest : testing::Test {
  PullingPlatform platform;
  MainForm form{platform, &SpeckledSheet};
  Document& document = form.document;
  Palette& palette = form.palette;

  AllocationTest() {
    form.Form_Initialize();
    form.Form_Resize(787, 537);
  }

  Picture Map() const { return Picture(document.Canvas.Image()); }

  /// Presses, goes on through many cells and over grid lines, and hovers. X and Y must be a place
  /// where the mode paints.
  void ExpectNoAllocation(const char* what, int button, float X, float Y) {
    SCOPED_TRACE(what);
    const Picture before = Map();
    const int snapshots = platform.snapshots;
    int allocations = 0;
    {
      const HeapWatch watch;
      Canvas_MouseDown(palette, button, X, Y);
      for (int step = 0; step < 200; ++step) {
        const auto way = static_cast<float>(step);
        Canvas_MouseMove(palette, button, X + way, Y);
        Canvas_MouseMove(palette, button, X, Y + way);
      }
      for (int step = 0; step < 200; ++step) {
        Canvas_MouseMove(palette, 0, X + static_cast<float>(step), Y);
      }
      allocations = watch.Allocations();
    }
    EXPECT_EQ(allocations, 0);
    EXPECT_NE(Difference(Map(), before), "");
    EXPECT_EQ(platform.snapshots, snapshots + 1);
  }
};

TEST_F(AllocationTest, TheWatchSeesEveryFormOfMemory) {
  const HeapWatch watch;
  ::operator delete(::operator new(1000));
  ::operator delete (::operator new (2000, std::align_val_t{64}), std::align_val_t{64});
  ::operator delete[](::operator new[](3000, std::nothrow));
  EXPECT_EQ(watch.Allocations(), 3);
  EXPECT_GE(watch.Peak(), 3000);
  EXPECT_LT(watch.Peak(), 3500);
}

TEST_F(AllocationTest, PaintingAndHoveringTakeNothingFromTheHeap) {
  for (const char* control : {"pbfloor", "pb4040"}) {
    Item_Click(palette, *FindItem(control));
    ExpectNoAllocation(control, kLeftButton, 50, 50);
    ExpectNoAllocation("erase", kRightButton, 50, 50);
  }
  palette.WallMode = true;
  ExpectNoAllocation("wall", kLeftButton, 100, 50);
  palette.TileSetSelector.ListIndex = kClassicVillage;
  ExpectNoAllocation("fence", kLeftButton, 200, 50);
  palette.WallMode = false;
  palette.DoorMode = true;
  palette.TileSetSelector.ListIndex = kAbandonedCathedral;
  ExpectNoAllocation("door", kLeftButton, 100, 150);
  ExpectNoAllocation("secret door", kRightButton, 200, 150);
  palette.DoorMode = false;
  palette.TileSetSelector.ListIndex = kCustomSet;
  palette.Custom.SetPictureAndSize(Speckled(40, 40, 5));
  ExpectNoAllocation("custom tile", kLeftButton, 290, 290);
}

}  // namespace
}  // namespace morvane
