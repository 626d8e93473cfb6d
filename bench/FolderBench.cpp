#include <dirent.h>

#include <QListWidget>
#include <array>
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

/// A folder full of empty pictures, and their names in the order of a list.
struct FullFolder {
  explicit FullFolder(const std::string& beginning) {
    for (int number = 1; number <= kPictures; ++number) {
      const std::string name = beginning + ' ' + std::to_string(number) + ".bmp";
      Must(std::ofstream(folder.File(name.c_str())).good(), "A picture could not be made");
      names << QString::fromStdString(name);
    }
  }

  WorkFolder folder;
  QStringList names;
};

using Folders = std::shared_ptr<std::array<FullFolder, 2>>;

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
  void List(const FullFolder& full) {
    Must(editor.palette.File1.SetPath(editor.platform, full.folder.File("")),
         "A folder could not be listed");
    frame.ShowState();
  }
};

/// A plain list of the toolkit.
struct PlainList {
  QWidget window;
  QListWidget list{&window};

  PlainList() { window.show(); }
  void List(const FullFolder& full) {
    int entries = 0;
    DIR* folder = opendir(full.folder.File("").c_str());
    while (readdir(folder) != nullptr) ++entries;
    closedir(folder);
    Must(entries == kPictures + 2, "A folder could not be read");
    list.clear();
    list.addItems(full.names);
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
  const Folders folders(new std::array<FullFolder, 2>{FullFolder("tile"), FullFolder("wall")});
  const auto lister = std::make_shared<Lister>();
  const auto plain = std::make_shared<PlainList>();
  // Two folders in turn, for a list that already shows a folder isn't filled again.
  Work work{.name = "A folder of 10,000 pictures, listed",
            .pieces = 2,
            .result = NamesIn(lister->frame.findChild<QListWidget*>("File1")),
            .clock = Clock::Wall};
  Contest(table, work)
      .Ours([=] {
        for (const FullFolder& full : *folders) lister->List(full);
      })
      .Against(
          "readdir and QListWidget::addItems", AtMost(2.0),
          [=] {
            for (const FullFolder& full : *folders) plain->List(full);
          },
          NamesIn(&plain->list));
}

}  // namespace morvane::bench
