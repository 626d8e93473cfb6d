#include <array>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/HeapWatch.h"
#include "bench/Stage.h"
#include "bench/WorkFolder.h"
#include "document/Grid.h"
#include "document/picture/Blit.h"
#include "palette/TileSelection.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane::bench {
namespace {

using Editor = BenchEditor<CountingPlatform>;

constexpr int kMoves = 400;

std::shared_ptr<Editor> EditorFor(Size map, const char* tile) {
  auto editor = std::make_shared<Editor>(map);
  Item_Click(editor->palette, *FindItem(tile));
  return editor;
}

/// Presses in the middle of each cell where the stamp fits on a map of the designed size.
void PressAll(Editor& editor, const std::vector<Place>& cells) {
  constexpr int kMiddle = kCellSize / 2;
  for (const Place& cell : cells) {
    Canvas_MouseDown(editor.palette, kLeftButton, static_cast<float>(cell.x + kMiddle),
                     static_cast<float>(cell.y + kMiddle));
  }
}

/// Moves pixel by pixel across the cells.
void MoveAlong(Editor& editor, int button) {
  for (int x = 50; x < 50 + kMoves; ++x) {
    const int y = x / 4 + 40;
    Canvas_MouseMove(editor.palette, button, static_cast<float>(x), static_cast<float>(y));
  }
}

/// Counts the allocations of a gesture, which must have painted or moved something.
template <class Gesture>
void AddAllocations(RatioTable& table, const std::string& work, Editor& editor, Gesture gesture) {
  const Picture before(editor.document.Canvas.Image());
  const Outline outline = editor.palette.Shape1;
  int allocations = 0;
  {
    const HeapWatch watch;
    gesture();
    allocations = watch.Allocations();
  }
  const bool moved = editor.palette.Shape1.Left != outline.Left;
  Must(moved || !(Picture(editor.document.Canvas.Image()) == before), "A gesture had no effect");
  table.Add(Count{work, std::to_string(allocations) + " allocations", "none", allocations == 0});
}

void AddPress(RatioTable& table) {
  const std::vector<Place> cells = Cells({40, 40});
  const auto editor = EditorFor(kMap, "pb4040");
  const std::string name = "A press that stamps 40x40, without the snapshot";
  const int before = editor->platform.snapshots;
  AddAllocations(table, name, *editor, [&] { PressAll(*editor, cells); });
  Must(editor->platform.snapshots - before == static_cast<int>(cells.size()),
       "Not every press was one");
  Contest(table, {.name = name, .pieces = static_cast<int>(cells.size())})
      .Ours([=] { PressAll(*editor, cells); })
      .Alone(Within(5000));
}

struct Hand {
  const char* name;
  int button;
};

void AddMoves(RatioTable& table) {
  constexpr std::array<Hand, 2> kHands = {
      {{"A move of a stroke", kLeftButton}, {"A move that hovers", 0}}};
  const auto designed = EditorFor(kMap, "pbfloor");
  for (const Hand& hand : kHands) {
    const int before = designed->platform.snapshots;
    AddAllocations(table, hand.name, *designed, [&] { MoveAlong(*designed, hand.button); });
    const int snapshots = designed->platform.snapshots - before;
    table.Add(Count{hand.name, std::to_string(snapshots) + " snapshots", "none", snapshots == 0});
  }
  for (const Size size : {Size{1432, 1168}, Size{3840, 2160}, Size{7680, 4320}}) {
    const auto larger = EditorFor(size, "pbfloor");
    for (const auto [name, button] : kHands) {
      Contest(table, {.name = std::string(name) + ", map " + SizeText(size), .pieces = kMoves})
          .Ours([=, button = button] { MoveAlong(*larger, button); })
          .Limit("map " + SizeText(kMap), AtMost(1.1),
                 [=, button = button] { MoveAlong(*designed, button); });
    }
  }
}

/// The same stamps on a map of any size.
void AddBlit(RatioTable& table) {
  const Stage designed(Noise(kMap, 1));
  const Stage larger(Noise({7680, 4320}, 1));
  const Stage tile(Noise({20, 20}, 2));
  const auto stampAlong = [tile](const Stage& map) {
    for (int step = 0; step < kMoves; ++step) {
      BitBlt(map.Draw(), 50 + step, 50 + step / 4, 20, 20, tile.View(), 0, 0);
    }
  };
  Contest(table, {.name = "BitBlt 20x20 onto a map 7680x4320", .pieces = kMoves})
      .Ours([=] { stampAlong(larger); })
      .Limit("onto a map " + SizeText(kMap), AtMost(1.1), [=] { stampAlong(designed); });
}

}  // namespace

void AddPresses(RatioTable& table) {
  AddPress(table);
  AddMoves(table);
  AddBlit(table);
}

}  // namespace morvane::bench
