#include "document/Options.h"

#include "document/FailureReport.h"

namespace morvane {
namespace {

constexpr Color kDefaultBackground = 0xFFFFFF;
constexpr Color kDefaultGrid = 0xC0C0C0;

}  // namespace

void Options::Form_Load() {
  const Settings& settings = document_.settings;
  TextMapDir = settings.GetINIFileString("Map", "Dir", "");
  TextCustomDir = settings.GetINIFileString("Custom", "Dir", "");
  ColorBox = ColorValue(settings.GetINIFileString("Color", "Canvas", ""));
  GridColorBox = ColorValue(settings.GetINIFileString("Color", "Grid", ""));
  if (ColorBox == 0 && GridColorBox == 0) {
    ColorBox = kDefaultBackground;
    GridColorBox = kDefaultGrid;
  }
  GridCheck = LongValue(settings.GetINIFileString("Map", "Grid", ""));
}

bool Options::cmdOK_Click() {
  const Settings& settings = document_.settings;
  Failure failure;
  const auto write = [&](const char* section, const char* key, const std::string& value) {
    if (failure.empty()) failure = settings.Write(section, key, value);
  };
  write("Map", "Dir", TextMapDir);
  write("Custom", "Dir", TextCustomDir);
  write("Color", "Canvas", std::to_string(ColorBox));
  write("Color", "Grid", std::to_string(GridColorBox));
  write("Map", "Grid", GridCheck == 1 ? "1" : "0");
  if (failure.empty()) return true;
  ReportFailure(document_.platform, "The options could not be stored.\n\n" + settings.Path(),
                failure);
  return false;
}

void Options::Browse(const char* title, std::string& field) {
  const std::string folder = document_.platform.BrowseForFolder(title);
  if (!folder.empty()) field = folder;
}

void Options::PickColor(Color& box) {
  document_.platform.ShowColor(commonColor_);
  box = commonColor_;
}

}  // namespace morvane
