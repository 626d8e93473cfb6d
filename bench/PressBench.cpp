#include <array>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/HeapUse.h"
#include "bench/SharedPicture.h"
#include "document/Grid.h"
#include "document/picture/Blit.h"
#include "palette/TileSelection.h"
#include "platform/QtPlatform.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane::bench {
namespace {

/// Counts snapshots and discards them.
class CountingPlatform : public QtPlatform {
 public:
  int snapshots = 0;

  Failure WriteSnapshot(ByteSource&) override {
    ++snapshots;
    return {};
  }
};

using Editor = BenchEditor<CountingPlatform>;

constexpr int kMoves = 400;

std::shared_ptr<Editor> EditorFor(Size map, const char* tile) {
  auto editor = std::make_shared<Editor>(map);
  Item_Click(editor->palette, *FindItem(tile));
  return editor;
}

/// Presses in the middle of the first cell of each place.
void PressAll(Editor& editor, const std::vector<Place>& places) {
  constexpr int kMiddle = kCellSize / 2;
  for (const Place& place : places) {
    Canvas_MouseDown(editor.palette, kLeftButton, static_cast<float>(place.x + kMiddle),
                     static_cast<float>(place.y + kMiddle));
  }
}

/// Moves pixel by pixel across the cells.
void MoveAlong(Editor& editor, int button) {
  for (int x = 50; x < 50 + kMoves; ++x) {
    const int y = x / 4 + 40;
    Canvas_MouseMove(editor.palette, button, static_cast<float>(x), static_cast<float>(y));
  }
}

/// Counts the allocations of an action, which must change the map or move the outline. Returns the
/// number of its snapshots.
int AddAllocations(RatioTable& table, const std::string& name, Editor& editor,
                   const std::function<void()>& action) {
  const Picture map(editor.document.Canvas.Image());
  const int left = editor.palette.Shape1.Left;
  const int snapshots = editor.platform.snapshots;
  const int allocations = HeapUseOf(action).allocations;
  Require(editor.palette.Shape1.Left != left || !(Picture(editor.document.Canvas.Image()) == map),
          "A press or move had no effect");
  table.AddCount(name, std::to_string(allocations) + " allocations", "none", allocations == 0);
  return editor.platform.snapshots - snapshots;
}

void AddPress(RatioTable& table) {
  const std::string name = "A press that stamps 40x40, without the snapshot";
  const std::vector<Place> places = Cells({40, 40});
  const int count = static_cast<int>(places.size());
  const auto editor = EditorFor(kDesignedMap, "pb4040");
  const auto pressAll = [=] { PressAll(*editor, places); };
  Require(AddAllocations(table, name, *editor, pressAll) == count,
          "Not every press took a snapshot");
  Comparison(table, {.name = name, .pieces = count}, pressAll).Absolute(Within(5000));
}

void AddMoves(RatioTable& table) {
  const std::array<std::pair<std::string, int>, 2> moves = {
      {{"A move of a stroke", kLeftButton}, {"A move that hovers", 0}}};
  const auto designed = EditorFor(kDesignedMap, "pbfloor");
  for (const auto& [name, button] : moves) {
    const int snapshots = AddAllocations(table, name, *designed,
                                         [&, button = button] { MoveAlong(*designed, button); });
    table.AddCount(name, std::to_string(snapshots) + " snapshots", "none", snapshots == 0);
  }
  for (const Size size : {Size{1432, 1168}, Size{3840, 2160}, Size{7680, 4320}}) {
    const auto larger = EditorFor(size, "pbfloor");
    for (const auto& [name, button] : moves) {
      Comparison(table, {.name = name + ", map " + SizeText(size), .pieces = kMoves},
                 [=, button = button] { MoveAlong(*larger, button); })
          .Baseline("map " + SizeText(kDesignedMap), AtMost(1.1),
                    [=, button = button] { MoveAlong(*designed, button); });
    }
  }
}

/// The same stamps on two maps.
void AddBlit(RatioTable& table) {
  const SharedPicture designed(RandomPicture(kDesignedMap, 1));
  const SharedPicture larger(RandomPicture({7680, 4320}, 1));
  const SharedPicture tile(RandomPicture({20, 20}, 2));
  const auto stampAlong = [tile](const SharedPicture& map) {
    for (int step = 0; step < kMoves; ++step) {
      BitBlt(map.Draw(), 50 + step, 50 + step / 4, 20, 20, tile.View(), 0, 0);
    }
  };
  Comparison(table, {.name = "BitBlt 20x20 onto a map 7680x4320", .pieces = kMoves}, [=] {
    stampAlong(larger);
  }).Baseline("onto a map " + SizeText(kDesignedMap), AtMost(1.1), [=] { stampAlong(designed); });
}

}  // namespace

void AddPresses(RatioTable& table) {
  AddPress(table);
  AddMoves(table);
  AddBlit(table);
}

}  // namespace morvane::bench
