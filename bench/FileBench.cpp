#include <fcntl.h>
#include <unistd.h>

#include <QImage>
#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bench/Benches.h"
#include "bench/Stage.h"
#include "bench/WorkFolder.h"
#include "document/bmp/Bmp.h"
#include "document/io/ByteSources.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "platform/SnapshotFile.h"

namespace morvane::bench {
namespace {

constexpr Size kLargeMap{1432, 1168};
constexpr std::chrono::milliseconds kBetweenPresses{60};

/// A map and a folder for its files.
struct FileStage {
  explicit FileStage(Size size) : map(Noise(size, 20)) {}

  std::size_t FileBytes() const { return BmpEncoder(map.View()).Size(); }
  /// The bytes of its file in memory.
  std::shared_ptr<Bytes> ReadyBytes() const {
    BmpEncoder encoder(map.View());
    return std::make_shared<Bytes>(ReadAll(encoder).Value());
  }

  Stage map;
  std::shared_ptr<WorkFolder> folder = std::make_shared<WorkFolder>();
};

/// The picture in a file, read by Qt.
Result DecodedFile(const std::string& path) {
  return [path, image = std::make_shared<QImage>()] {
    Must(image->load(QString::fromStdString(path), "BMP"), "A picture could not be read back");
    image->convertTo(QImage::Format_RGB32);
    return std::as_bytes(
        std::span(image->constBits(), static_cast<std::size_t>(image->sizeInBytes())));
  };
}

/// An open file that is closed with its last owner.
std::shared_ptr<const int> HeldOpen(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  Must(file >= 0, "A file could not be opened");
  return {new int(file), [](const int* held) {
            close(*held);
            delete held;
          }};
}

void WriteBare(int file, const Bytes& bytes) {
  for (std::size_t place = 0; place < bytes.size(); place += kChunkBytes) {
    const std::size_t count = std::min(kChunkBytes, bytes.size() - place);
    const ssize_t written = pwrite(file, bytes.data() + place, count, static_cast<off_t>(place));
    Must(written == static_cast<ssize_t>(count), "A file could not be written");
  }
}

void WriteSnapshot(SnapshotFile& snapshot, const PictureView& picture) {
  BmpEncoder encoder(picture);
  Must(snapshot.Write(encoder).empty(), "A snapshot could not be written");
}

/// A snapshot in the benchmark's folder.
std::shared_ptr<SnapshotFile> SnapshotOf(const FileStage& stage) {
  auto snapshot = std::make_shared<SnapshotFile>();
  stage.folder->Enter();
  WriteSnapshot(*snapshot, stage.map.View());
  Must(access(stage.folder->File("mvtmp.~mp").c_str(), F_OK) == 0, "A snapshot lies elsewhere");
  return snapshot;
}

/// A copy in Qt's format of 24 bits.
QImage PackedCopy(const PictureView& picture) {
  return ImageOver(picture).convertToFormat(QImage::Format_RGB888);
}

void AddSnapshotWrite(RatioTable& table) {
  const FileStage stage(kLargeMap);
  const auto snapshot = SnapshotOf(stage);
  const std::string bare = stage.folder->File("bare.bmp");
  const std::string saved = stage.folder->File("saved.bmp");
  Work work{.name = "Snapshot of a press, map " + SizeText(kLargeMap),
            .result = DecodedFile(stage.folder->File("mvtmp.~mp")),
            .pause = kBetweenPresses};
  Contest(table, work)
      .Ours([=] { WriteSnapshot(*snapshot, stage.map.View()); })
      .Against(
          "pwrite of ready bytes", AtMost(2.6),
          [file = HeldOpen(bare), stage, bytes = stage.ReadyBytes()] { WriteBare(*file, *bytes); },
          DecodedFile(bare))
      .Against(
          "QImage::save", Faster(6),
          [image = PackedCopy(stage.map.View()), saved, stage] {
            Must(image.save(QString::fromStdString(saved), "BMP"), "Qt could not save");
          },
          DecodedFile(saved));
}

void AddSnapshotRead(RatioTable& table) {
  const FileStage stage(kLargeMap);
  const auto snapshot = SnapshotOf(stage);
  const std::string path = stage.folder->File("mvtmp.~mp");
  const auto read = std::make_shared<Picture>(kLargeMap.width, kLargeMap.height);
  const auto loaded = std::make_shared<QImage>();
  Work work{.name = "Undo's read of a snapshot " + SizeText(kLargeMap),
            .result = [read] { return PixelsOf(read)(); },
            .clock = Clock::Wall};
  Contest(table, work)
      .Ours([=] {
        auto file = snapshot->Read();
        Must(file.Ok(), "The snapshot could not be opened");
        BmpDecoder decoder(*file.Value());
        Must(snapshot->IsUntouched() && decoder.Open().empty() &&
                 CheckReadable(*file.Value()).empty(),
             "The snapshot is not as it was");
        Must(decoder.Decode(read->Draw()).empty(), "The snapshot could not be read");
      })
      .Limit("pread into ready memory", AtMost(3),
             [file = HeldOpen(path), stage, buffer = stage.ReadyBytes()] {
               const ssize_t count = pread(*file, buffer->data(), buffer->size(), 0);
               Must(count == static_cast<ssize_t>(buffer->size()), "The file could not be read");
             })
      .Against(
          "QImage::load", Faster(9),
          [=] { Must(loaded->load(QString::fromStdString(path), "BMP"), "Qt could not load"); },
          [loaded] {
            loaded->convertTo(QImage::Format_RGB32);
            return std::as_bytes(
                std::span(loaded->constBits(), static_cast<std::size_t>(loaded->sizeInBytes())));
          });
}

/// Compares each map size with the one before it.
void AddSnapshotGrowth(RatioTable& table) {
  constexpr double kAboveLinear = 1.1;  // for each doubling
  const std::vector<Size> sizes = {kMap, kLargeMap, {2864, 2336}, {7680, 4320}};
  for (std::size_t i = 1; i < sizes.size(); ++i) {
    const FileStage larger(sizes[i]);
    const auto largerSnapshot = SnapshotOf(larger);
    const FileStage smaller(sizes[i - 1]);
    const auto smallerSnapshot = SnapshotOf(smaller);
    const double growth =
        static_cast<double>(larger.FileBytes()) / static_cast<double>(smaller.FileBytes());
    Work work{.name = "Snapshot, map " + SizeText(sizes[i]), .pause = kBetweenPresses};
    Contest(table, work)
        .Ours([=] { WriteSnapshot(*largerSnapshot, larger.map.View()); })
        .Limit("map " + SizeText(sizes[i - 1]),
               AtMost(growth * std::pow(kAboveLinear, std::log2(growth))),
               [=] { WriteSnapshot(*smallerSnapshot, smaller.map.View()); });
  }
}

}  // namespace

void AddSnapshots(RatioTable& table) {
  table.Note("The files are on " + WorkFolder().FileSystem() +
             ". File operations are measured in wall-clock time, all others in processor time. A "
             "snapshot may take 1.1 times more than linear time for each doubling of its size.");
  AddSnapshotWrite(table);
  AddSnapshotRead(table);
  AddSnapshotGrowth(table);
}

void AddSaving(RatioTable& table) {
  const FileStage stage(kLargeMap);
  const std::string ours = stage.folder->File("ours.bmp");
  const std::string bare = stage.folder->File("bare.bmp");
  const std::string saved = stage.folder->File("saved.bmp");
  Work work{.name = "Saving a map " + SizeText(kLargeMap),
            .result = DecodedFile(ours),
            .clock = Clock::Wall};
  Contest(table, work)
      .Ours([=] {
        BmpEncoder encoder(stage.map.View());
        Must(ReplaceFile(ours, encoder).empty(), "A map could not be saved");
      })
      .Against(
          "write, fsync, rename of ready bytes", AtMost(1.6),
          [stage, bare, bytes = stage.ReadyBytes()] {
            const std::string temporary = bare + ".new";
            {
              const auto file = HeldOpen(temporary);
              WriteBare(*file, *bytes);
              Must(fsync(*file) == 0, "A file could not be flushed");
            }
            Must(std::rename(temporary.c_str(), bare.c_str()) == 0, "A file could not be renamed");
          },
          DecodedFile(bare))
      .Against(
          "QImage::save, QSaveFile", Faster(1),
          [image = PackedCopy(stage.map.View()), saved, stage] {
            QSaveFile file(QString::fromStdString(saved));
            Must(file.open(QIODevice::WriteOnly) && image.save(&file, "BMP") && file.commit(),
                 "Qt could not save");
          },
          DecodedFile(saved));
}

}  // namespace morvane::bench
