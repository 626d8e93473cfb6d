#include <dirent.h>

#include <QCoreApplication>
#include <QImage>
#include <QListWidget>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <filesystem>
#include <memory>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/Contest.h"
#include "bench/WorkFolder.h"
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
    const std::string path = original.File("picture.jpg");
    Must(picture.save(QString::fromStdString(path)), "A picture could not be made");
    for (int number = 1; number <= kPictures; ++number) {
      const std::string name = "tile " + std::to_string(number) + ".jpg";
      std::filesystem::create_hard_link(path, full.File(name.c_str()));
      names << QString::fromStdString(name);
    }
  }

  WorkFolder original;
  WorkFolder full;
  WorkFolder empty;
  QStringList names;
};

int EntriesIn(const WorkFolder& folder) {
  int entries = 0;
  DIR* directory = opendir(folder.File("").c_str());
  while (readdir(directory) != nullptr) ++entries;
  closedir(directory);
  return entries;
}

/// The frame of the custom tiles in a window, with real files.
struct Lister {
  BenchEditor<YesPlatform> editor{{615, 483}};
  QWidget window;
  CustomFrame frame{editor.palette, &window};
  QListWidget* files = frame.findChild<QListWidget*>("File1");

  Lister() {
    editor.palette.TileSetSelector.ListIndex = kCustomSet;
    window.show();
    frame.ShowState();
  }
  void List(const WorkFolder& folder) {
    Must(editor.palette.File1.SetPath(editor.platform, folder.File("")),
         "A folder could not be listed");
    frame.ShowState();
  }
};

/// The same frame without thumbnails.
struct PlainLister : Lister {
  PlainLister() { files->setItemDelegate(new QStyledItemDelegate(files)); }
};

/// Reads a folder and fills a list with Qt alone.
void ListPlainly(QListWidget& list, const WorkFolder& folder, const QStringList& names) {
  constexpr int kItselfAndParent = 2;
  Must(EntriesIn(folder) == names.size() + kItselfAndParent, "A folder could not be read");
  list.clear();
  list.addItems(names);
}

Result NamesIn(QListWidget* list) {
  return [list, text = std::make_shared<QByteArray>()] {
    text->clear();
    for (int row = 0; row < list->count(); ++row) *text += list->item(row)->text().toUtf8() + '\n';
    return std::as_bytes(std::span(text->constData(), static_cast<std::size_t>(text->size())));
  };
}

/// Scrolls by three rows, as a step of the mouse wheel does, and starts again at the end.
void Scroll(const QListWidget& list) {
  constexpr int kRows = 3;
  QScrollBar* bar = list.verticalScrollBar();
  const int row = bar->value() + kRows;
  bar->setValue(row > bar->maximum() ? 0 : row);
  QCoreApplication::processEvents();
}

struct Lists {
  Folders folders;
  Lister lister;
  PlainLister plain;
  QListWidget bare;

  ~Lists() {
    while (ThumbnailCache::AreBeingMade()) QCoreApplication::processEvents();
  }
};

void AddListing(RatioTable& table, const std::shared_ptr<Lists>& lists) {
  // The list is filled only if the folder changes, so an empty folder is shown in between.
  Work work{.name = "A folder of 10,000 pictures, listed",
            .result = NamesIn(lists->lister.files),
            .clock = Clock::Wall};
  Contest(table, work)
      .Ours([lists] {
        lists->lister.List(lists->folders.empty);
        lists->lister.List(lists->folders.full);
      })
      .Alone(Within(60e6))
      .Against(
          "readdir and QListWidget::addItems", AtMost(5.0),
          [lists] {
            ListPlainly(lists->bare, lists->folders.empty, {});
            ListPlainly(lists->bare, lists->folders.full, lists->folders.names);
          },
          NamesIn(&lists->bare))
      .Limit("the list without thumbnails", AtMost(1.5), [lists] {
        lists->plain.List(lists->folders.empty);
        lists->plain.List(lists->folders.full);
      });
}

/// Waits for the next of 60 frames a second. Thumbnails are made in that time.
void AddScrolling(RatioTable& table, const std::shared_ptr<Lists>& lists) {
  constexpr std::chrono::milliseconds kFrame(16);
  Contest(table, {.name = "Its list, scrolled by three rows", .pause = kFrame})
      .Ours([lists] { Scroll(*lists->lister.files); })
      .Alone(Within(8e6))
      .Limit("the list without thumbnails", AtMost(1.5), [lists] { Scroll(*lists->plain.files); });
}

}  // namespace

void AddFolders(RatioTable& table) {
  const auto lists = std::make_shared<Lists>();
  AddListing(table, lists);
  AddScrolling(table, lists);
}

}  // namespace morvane::bench
