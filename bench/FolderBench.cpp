#include <dirent.h>

#include <QListWidget>
#include <fstream>
#include <memory>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/Contest.h"
#include "bench/WorkFolder.h"
#include "shell/CustomFrame.h"

namespace morvane::bench {
namespace {

constexpr int kPictures = 10'000;

/// A folder full of empty pictures and their names in the order of a list, and an empty folder.
struct Folders {
  Folders() {
    for (int number = 1; number <= kPictures; ++number) {
      const std::string name = "tile " + std::to_string(number) + ".bmp";
      Must(std::ofstream(full.File(name.c_str())).good(), "A picture could not be made");
      names << QString::fromStdString(name);
    }
  }

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

/// The frame of the custom tiles in a window, on the real disk.
struct Lister {
  BenchEditor<YesPlatform> editor{{615, 483}};
  QWidget window;
  CustomFrame frame{editor.palette, &window};

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

/// A list of Qt without anything of ours.
struct PlainList {
  QWidget window;
  QListWidget list{&window};

  PlainList() { window.show(); }
  void List(const WorkFolder& folder, const QStringList& names) {
    constexpr int kItselfAndParent = 2;
    Must(EntriesIn(folder) == names.size() + kItselfAndParent, "A folder could not be read");
    list.clear();
    list.addItems(names);
  }
};

Result NamesIn(QListWidget* list) {
  return [list, text = std::make_shared<QByteArray>()] {
    text->clear();
    for (int row = 0; row < list->count(); ++row) *text += list->item(row)->text().toUtf8() + '\n';
    return std::as_bytes(std::span(text->constData(), static_cast<std::size_t>(text->size())));
  };
}

}  // namespace

void AddFolders(RatioTable& table) {
  const auto folders = std::make_shared<const Folders>();
  const auto lister = std::make_shared<Lister>();
  const auto plain = std::make_shared<PlainList>();
  // The empty folder comes first, for a list that already shows a folder isn't filled again.
  Work work{.name = "A folder of 10,000 pictures, listed",
            .result = NamesIn(lister->frame.findChild<QListWidget*>("File1")),
            .clock = Clock::Wall};
  Contest(table, work)
      .Ours([=] {
        lister->List(folders->empty);
        lister->List(folders->full);
      })
      .Against(
          "readdir and QListWidget::addItems", AtMost(2.0),
          [=] {
            plain->List(folders->empty, {});
            plain->List(folders->full, folders->names);
          },
          NamesIn(&plain->list));
}

}  // namespace morvane::bench
