#include <dirent.h>

#include <QImage>
#include <QListWidget>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <filesystem>
#include <memory>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/TempFolder.h"
#include "shell/CustomFrame.h"
#include "shell/ThumbnailCache.h"

namespace morvane::bench {
namespace {

constexpr int kPictures = 10'000;

/// A folder of pictures of 4 megapixels with their names in natural order, and an empty folder.
struct Folders {
  Folders() {
    QImage picture(2000, 2000, QImage::Format_RGB32);
    picture.fill(Qt::darkGray);
    const QString path = original.filePath("picture.jpg");
    Require(picture.save(path), "A picture could not be made");
    for (int number = 1; number <= kPictures; ++number) {
      names << QString("tile %1.jpg").arg(number);
      std::filesystem::create_hard_link(path.toStdString(),
                                        full.filePath(names.back()).toStdString());
    }
  }

  TempFolder original;
  TempFolder full;
  TempFolder empty;
  QStringList names;
};

/// The list of custom tiles in its window, with real files.
struct TileList {
  BenchEditor<YesPlatform> editor{{615, 483}};
  QWidget window;
  CustomFrame frame{editor.palette, &window};
  QListWidget* rows = frame.findChild<QListWidget*>("File1");

  explicit TileList(bool hasThumbnails) {
    if (!hasThumbnails) rows->setItemDelegate(new QStyledItemDelegate(rows));
    editor.palette.TileSetSelector.ListIndex = kCustomSet;
    window.show();
    frame.ShowState();
  }
  void Show(const TempFolder& folder) {
    Require(editor.palette.File1.SetPath(editor.platform, folder.path().toStdString() + '/'),
            "A folder could not be listed");
    frame.ShowState();
  }
  /// The list is filled only if the folder changes, so the empty folder is shown in between.
  void Refill(const Folders& folders) {
    Show(folders.empty);
    Show(folders.full);
  }
  /// Scrolls by three rows, as a step of the mouse wheel does, and starts again at the end.
  void Scroll() const {
    QScrollBar* bar = rows->verticalScrollBar();
    const int row = bar->value() + 3;
    bar->setValue(row > bar->maximum() ? 0 : row);
    QCoreApplication::processEvents();
  }
};

/// Reads a folder and fills a list with Qt alone.
void FillPlainly(QListWidget& list, const TempFolder& folder, const QStringList& names) {
  constexpr int kItselfAndParent = 2;
  int entries = 0;
  DIR* directory = opendir(folder.path().toUtf8());
  while (readdir(directory) != nullptr) ++entries;
  closedir(directory);
  Require(entries == names.size() + kItselfAndParent, "A folder could not be read");
  list.clear();
  list.addItems(names);
}

Output NamesIn(const QListWidget* list) {
  return [list] {
    QByteArray text;
    for (int row = 0; row < list->count(); ++row) text += list->item(row)->text().toUtf8() + '\n';
    return Bytes(text.begin(), text.end());
  };
}

struct Lists {
  Folders folders;
  TileList ours{true};
  TileList withoutThumbnails{false};
  QListWidget plain;

  ~Lists() {
    while (ThumbnailCache::AreBeingMade()) QCoreApplication::processEvents();
  }
};

}  // namespace

void AddFolders(RatioTable& table) {
  const auto lists = std::make_shared<Lists>();
  const Operation listing{.name = "A folder of 10,000 pictures, listed",
                          .output = NamesIn(lists->ours.rows),
                          .isWallClock = true};
  Comparison(table, listing, [lists] { lists->ours.Refill(lists->folders); })
      .Absolute(Within(60e6))
      .Peer(
          "readdir and QListWidget::addItems", AtMost(5.0),
          [lists] {
            FillPlainly(lists->plain, lists->folders.empty, {});
            FillPlainly(lists->plain, lists->folders.full, lists->folders.names);
          },
          NamesIn(&lists->plain))
      .Baseline("the list without thumbnails", AtMost(1.5),
                [lists] { lists->withoutThumbnails.Refill(lists->folders); });

  // At 60 frames a second. Thumbnails are made during the pause.
  const Operation scrolling{.name = "Its list, scrolled by three rows",
                            .pause = std::chrono::milliseconds(16)};
  Comparison(table, scrolling, [lists] { lists->ours.Scroll(); })
      .Absolute(Within(8e6))
      .Baseline("the list without thumbnails", AtMost(1.5),
                [lists] { lists->withoutThumbnails.Scroll(); });
}

}  // namespace morvane::bench
