#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/HeapUse.h"
#include "bench/SharedPicture.h"
#include "bench/TempFolder.h"
#include "document/MapFiles.h"
#include "document/Undo.h"
#include "document/picture/Blit.h"

namespace morvane::bench {
namespace {

constexpr Size kHugeMap{3840, 2160};

/// Runs once and adds the peak of additional memory.
void AddPeak(RatioTable& table, const std::string& name, const std::function<void()>& run) {
  // A chunk of a file, and its path and other small objects.
  constexpr std::ptrdiff_t kLimit = kChunkBytes / 1024 + 16;
  const std::ptrdiff_t peak = (HeapUseOf(run).peak + 1023) / 1024;
  table.AddCount(name + ", map " + SizeText(kHugeMap) + ", more memory",
                 std::to_string(peak) + " KiB", "at most " + std::to_string(kLimit) + " KiB",
                 peak <= kLimit);
}

}  // namespace

void AddMemory(RatioTable& table) {
  const TempFolder folder;
  folder.Enter();
  BenchEditor<YesPlatform> editor(kHugeMap);
  Document& document = editor.document;
  document.CurrentFile = folder.filePath("map.bmp").toStdString();
  document.HasCurrentFile = true;
  AddPeak(table, "Snapshot of a press", [&] { TakeSnapshot(document); });
  AddPeak(table, "Save", [&] { mnuFileSave_Click(document); });
  const Picture before(document.Canvas.Image());
  SetPixelV(document.Canvas.hDC(), 1, 1, 0);
  AddPeak(table, "Undo", [&] { mnuEditUndo_Click(document); });
  Require(editor.platform.FileExists(document.CurrentFile), "The map was not saved");
  Require(Picture(document.Canvas.Image()) == before, "The map was not restored");
}

}  // namespace morvane::bench
