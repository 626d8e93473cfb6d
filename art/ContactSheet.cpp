// Draws overview pictures of the palette: each page with its items at natural size and enlarged,
// with their captions. For reviews of the art.

#include <QGuiApplication>
#include <QPainter>
#include <cstdio>

#include "palette/TilePictures.h"
#include "platform/Images.h"
#include "shell/ArtSheets.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

constexpr int kColumns = 5;
constexpr int kZoom = 4;
constexpr int kCellWidth = 320;
constexpr int kCellHeight = 200;
constexpr int kMargin = 10;

enum class Naming { Captions, Numbers };

/// One item: enlarged, at natural size beside it, and its name below.
void DrawItem(QPainter& painter, const QPoint& corner, const QImage& picture, const QString& name) {
  const QPoint at = corner + QPoint(kMargin, kMargin);
  painter.drawImage(QRect(at, picture.size() * kZoom), picture);
  painter.drawImage(at + QPoint(picture.width() * kZoom + kMargin, 0), picture);
  painter.drawText(QRect(corner + QPoint(kMargin, kCellHeight - 26), QSize(kCellWidth, 20)), name);
}

bool DrawPage(const TilePictures& pictures, int set, int page, Naming naming,
              const QString& folder) {
  std::vector<const Item*> items;
  for (const Item& item : Items()) {
    if (item.set == set && item.page == page) items.push_back(&item);
  }
  const int rows = (static_cast<int>(items.size()) + kColumns - 1) / kColumns;
  QImage sheet(kColumns * kCellWidth, rows * kCellHeight, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.setFont(ArialFont(16));
  for (int i = 0; i < static_cast<int>(items.size()); ++i) {
    const QPoint corner(i % kColumns * kCellWidth, i / kColumns * kCellHeight);
    const QString name =
        naming == Naming::Numbers ? QString::number(i + 1) : TextOf(items[i]->caption);
    DrawItem(painter, corner, ImageOver(pictures.Of(*items[i]).View()), name);
  }
  painter.end();
  const TileSet& tileSet = TileSets()[set];
  return sheet.save(folder + "/" + TextOf(tileSet.folder) + "-" +
                    TextOf(tileSet.pages[page - 1].sheet) + ".png");
}

int Run(const QStringList& arguments) {
  if (arguments.size() < 2) {
    std::fputs("contact_sheet FOLDER [--numbers]\n", stderr);
    return 2;
  }
  const Naming naming = arguments.contains("--numbers") ? Naming::Numbers : Naming::Captions;
  const TilePictures pictures(&LoadArtSheet);
  bool done = true;
  for (int set = 0; set < kBuiltInSets; ++set) {
    for (int page = 1; page <= TileSets()[set].pageCount; ++page) {
      done = DrawPage(pictures, set, page, naming, arguments[1]) && done;
    }
  }
  if (!done) std::fputs("The pictures can't be written.\n", stderr);
  return done ? 0 : 1;
}

}  // namespace
}  // namespace morvane

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return morvane::Run(QGuiApplication::arguments());
}
