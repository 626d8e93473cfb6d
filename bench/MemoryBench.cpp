#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/HeapWatch.h"
#include "bench/Stage.h"
#include "bench/WorkFolder.h"
#include "document/MapFiles.h"
#include "document/Undo.h"
#include "document/Undo.h"
#include "document/picture/Blit.h"

namespace morvane::bench {
namespace {

constexpr Size kHugeMap{3840, 2160};
constexpr std::ptrdiff_t kChunk = kChunkBytes;
/// Paths, names and members of the file classes.
constexpr std::ptrdiff_t kSmallThings = std::ptrdiff_t{16} << 10U;

std::string KibText(std::ptrdiff_t bytes) {
  return std::to_string((bytes + 1023) / 1024) + " KiB";
}

/// Runs once and adds the peak of additional memory.
template <class Run>
void AddPeak(RatioTable& table, const std::string& name, std::ptrdiff_t limit, Run run) {
  std::ptrdiff_t peak = 0;
  {
    const HeapWatch watch;
    run();
    peak = watch.Peak();
  }
  table.Add(
      Count{name + ", more memory", KibText(peak), "at most " + KibText(limit), peak <= limit});
}

}  // namespace

void AddMemory(RatioTable& table) {
  const WorkFolder folder;
  folder.Enter();
  BenchEditor<YesPlatform> editor(kHugeMap);
  Document& document = editor.document;
  document.CurrentFile = folder.File("map.bmp");
  document.HasCurrentFile = true;
  const std::string map = ", map " + SizeText(kHugeMap);
  AddPeak(table, "Snapshot of a press" + map, kChunk + kSmallThings,
          [&] { TakeSnapshot(document); });
  AddPeak(table, "Save" + map, kChunk + kSmallThings, [&] { mnuFileSave_Click(document); });
  const Picture before(document.Canvas.Image());
  SetPixelV(document.Canvas.hDC(), 1, 1, 0);
  AddPeak(table, "Undo" + map, kChunk + kSmallThings, [&] { mnuEditUndo_Click(document); });
  Must(editor.platform.FileExists(document.CurrentFile), "The map was not saved");
  Must(Picture(document.Canvas.Image()) == before, "The map was not taken back");
}

}  // namespace morvane::bench
