#include "document/NewMap.h"

#include <algorithm>

#include "document/Grid.h"
#include "document/MapFiles.h"
#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// The outer size of the canvas for which the grid is drawn in advance, so that a larger window
/// shows it too.
constexpr Size kDrawnAhead = {1432, 1168};
/// The same without the border.
constexpr Size kInsideDrawnAhead = {1428, 1164};

void DrawGrid(const Surface& surface, Color color) {
  for (int x = GridLine(1); x < surface.width; x += kCellSize) {
    FillBox(surface, {x, 0, x + 1, surface.height}, color);
  }
  for (int y = GridLine(1); y < surface.height; y += kCellSize) {
    FillBox(surface, {0, y, surface.width, y + 1}, color);
  }
}

void Fill(PictureBox& box, Color color) {
  box.Cls();
  const Surface surface = box.hDC();
  FillBox(surface, surface.Bounds(), color);
}

void DrawGridAhead(PictureBox& canvas, Color color) {
  const Size size = {canvas.Width(), canvas.Height()};
  canvas.SetSize(kDrawnAhead);
  DrawGrid(canvas.hDC(), color);
  canvas.SetSize(size);
  canvas.TrimImage();
}

}  // namespace

bool IsBlankMap(const PictureView& map) {
  const int line = GridLine(1);
  const Color paperColor = GetPixel(map, 0, 0);
  const Color lineColor = map.width > line    ? GetPixel(map, line, 0)
                          : map.height > line ? GetPixel(map, 0, line)
                                              : paperColor;
  Picture blank(map.width, map.height, paperColor);
  Surface ahead = blank.Draw();
  ahead.width = std::min(ahead.width, kInsideDrawnAhead.width);
  ahead.height = std::min(ahead.height, kInsideDrawnAhead.height);
  DrawGrid(ahead, lineColor);
  return blank.View() == map;
}

void mnuFileNew_Click(Document& document) {
  if (document.platform.MsgBox("Are you sure?", BoxStyle::YesNoQuestion, "New map") !=
      Answer::Yes) {
    return;
  }

  const Settings& settings = document.settings;
  const bool ShowGrid = NumericValue(settings.GetINIFileString("Map", "Grid", "")) != 0;
  const Color CanvasColor = ColorValue(settings.GetINIFileString("Color", "Canvas", ""));
  const Color GridColor = ColorValue(settings.GetINIFileString("Color", "Grid", ""));

  PictureBox& Canvas = document.Canvas;
  PictureBox& pbclear = document.pbclear;
  Fill(Canvas, CanvasColor);
  Fill(pbclear, CanvasColor);
  if (ShowGrid) {
    DrawGridAhead(Canvas, GridColor);
    DrawGrid(pbclear.hDC(), GridColor);
  }
  Canvas.Refresh();

  document.HasCurrentFile = false;
  SetTitle(document);
}

}  // namespace morvane
