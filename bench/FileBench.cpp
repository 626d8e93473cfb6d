#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <QStorageInfo>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bench/Benches.h"
#include "bench/SharedPicture.h"
#include "bench/TempFolder.h"
#include "document/bmp/Bmp.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "platform/SnapshotFile.h"

namespace morvane::bench {
namespace {

constexpr Size kLargeMap{1432, 1168};
constexpr std::chrono::milliseconds kBetweenPresses{60};

/// A map, a folder for its files, and its snapshot there. Copies share all of it; the folder is
/// deleted with the last one, so each run that uses a file holds a copy.
struct MapFiles {
  explicit MapFiles(Size size) : map(RandomPicture(size, 20)) {
    folder->Enter();
    WriteSnapshot();
    Require(QFile::exists(Path(kSnapshotName)), "The snapshot is in another folder");
  }

  void WriteSnapshot() const {
    BmpEncoder encoder(map.View());
    Require(snapshot->Write(encoder).empty(), "A snapshot could not be written");
  }
  QString Path(const char* name) const { return folder->filePath(name); }
  /// The bytes of the map file.
  Bytes Encoded() const {
    BmpEncoder encoder(map.View());
    return ReadAll(encoder).Value();
  }
  /// A copy in Qt's format of 24 bits.
  QImage Packed() const { return ImageOver(map.View()).convertToFormat(QImage::Format_RGB888); }

  SharedPicture map;
  std::shared_ptr<TempFolder> folder = std::make_shared<TempFolder>();
  std::shared_ptr<SnapshotFile> snapshot = std::make_shared<SnapshotFile>();
};

/// The picture in a file, read by Qt.
Output PictureIn(const QString& path) {
  return [path] {
    QImage image;
    Require(image.load(path, "BMP"), "A picture could not be read");
    return PixelsOf(image);
  };
}

std::shared_ptr<QFile> Opened(const QString& path) {
  auto file = std::make_shared<QFile>(path);
  Require(file->open(QIODevice::ReadWrite | QIODevice::Unbuffered), "A file could not be opened");
  return file;
}

void WriteChunks(const QFile& file, const Bytes& bytes) {
  for (std::size_t place = 0; place < bytes.size(); place += kChunkBytes) {
    const std::size_t count = std::min(kChunkBytes, bytes.size() - place);
    const ssize_t written =
        pwrite(file.handle(), bytes.data() + place, count, static_cast<off_t>(place));
    Require(written == static_cast<ssize_t>(count), "A file could not be written");
  }
}

void AddSnapshotWrite(RatioTable& table) {
  const MapFiles files(kLargeMap);
  const QString plain = files.Path("plain.bmp");
  const QString saved = files.Path("saved.bmp");
  const Operation operation{.name = "Snapshot of a press, map " + SizeText(kLargeMap),
                            .output = PictureIn(files.Path(kSnapshotName)),
                            .pause = kBetweenPresses};
  Comparison(table, operation, [=] { files.WriteSnapshot(); })
      .Peer(
          "pwrite of encoded bytes", AtMost(2.6),
          [file = Opened(plain), files, bytes = files.Encoded()] { WriteChunks(*file, bytes); },
          PictureIn(plain))
      .Peer(
          "QImage::save", Faster(6),
          [image = files.Packed(), saved, files] {
            Require(image.save(saved, "BMP"), "Qt can't save");
          },
          PictureIn(saved));
}

void AddSnapshotRead(RatioTable& table) {
  const MapFiles files(kLargeMap);
  const QString path = files.Path(kSnapshotName);
  const SharedPicture read(kLargeMap);
  const auto loaded = std::make_shared<QImage>();
  Operation operation = read.AsOperation("Undo's read of a snapshot " + SizeText(kLargeMap));
  operation.isWallClock = true;
  Comparison(table, operation,
             [=] {
               auto file = files.snapshot->Read();
               Require(file.Ok(), "The snapshot could not be opened");
               BmpDecoder decoder(*file.Value());
               Require(files.snapshot->IsUntouched() && decoder.Open().empty() &&
                           CheckReadable(*file.Value()).empty(),
                       "The snapshot was modified");
               Require(decoder.Decode(read.Draw()).empty(), "The snapshot could not be read");
             })
      .Baseline("pread into a buffer", AtMost(3),
                [file = Opened(path), files, buffer = files.Encoded()]() mutable {
                  const ssize_t count = pread(file->handle(), buffer.data(), buffer.size(), 0);
                  Require(count == static_cast<ssize_t>(buffer.size()), "The file can't be read");
                })
      .Peer(
          "QImage::load", Faster(9),
          [=] { Require(loaded->load(path, "BMP"), "Qt could not load"); },
          [=] { return PixelsOf(*loaded); });
}

/// Compares each map size with the one before it.
void AddSnapshotGrowth(RatioTable& table) {
  constexpr double kAboveLinear = 1.1;  // for each doubling
  const std::vector<Size> sizes = {kDesignedMap, kLargeMap, {2864, 2336}, {7680, 4320}};
  for (std::size_t i = 1; i < sizes.size(); ++i) {
    const MapFiles larger(sizes[i]);
    const MapFiles smaller(sizes[i - 1]);
    const double growth = static_cast<double>(larger.Encoded().size()) /
                          static_cast<double>(smaller.Encoded().size());
    const double limit = growth * std::pow(kAboveLinear, std::log2(growth));
    Comparison(table, {.name = "Snapshot, map " + SizeText(sizes[i]), .pause = kBetweenPresses},
               [=] { larger.WriteSnapshot(); })
        .Baseline("map " + SizeText(sizes[i - 1]), AtMost(limit), [=] { smaller.WriteSnapshot(); });
  }
}

void WriteAndRename(const QString& path, const Bytes& bytes) {
  const QString temporary = path + ".new";
  {
    const auto file = Opened(temporary);
    WriteChunks(*file, bytes);
    Require(fsync(file->handle()) == 0, "A file could not be flushed");
  }
  Require(std::rename(temporary.toUtf8(), path.toUtf8()) == 0, "A file could not be renamed");
}

void AddSaving(RatioTable& table) {
  const MapFiles files(kLargeMap);
  const QString ours = files.Path("ours.bmp");
  const QString renamed = files.Path("renamed.bmp");
  const QString saved = files.Path("saved.bmp");
  const Operation operation{.name = "Saving a map " + SizeText(kLargeMap),
                            .output = PictureIn(ours),
                            .isWallClock = true};
  Comparison(table, operation,
             [files, path = ours.toStdString()] {
               BmpEncoder encoder(files.map.View());
               Require(ReplaceFile(path, encoder).empty(), "A map could not be saved");
             })
      .Peer(
          "write, fsync, rename of encoded bytes", AtMost(1.6),
          [renamed, bytes = files.Encoded(), files] { WriteAndRename(renamed, bytes); },
          PictureIn(renamed))
      .Peer(
          "QImage::save, QSaveFile", Faster(1),
          [image = files.Packed(), saved, files] {
            QSaveFile file(saved);
            Require(file.open(QIODevice::WriteOnly) && image.save(&file, "BMP") && file.commit(),
                    "Qt could not save");
          },
          PictureIn(saved));
}

}  // namespace

void AddFiles(RatioTable& table) {
  const QStorageInfo disk(QCoreApplication::applicationDirPath());
  table.Note("The files are on " + disk.fileSystemType().toStdString() +
             ". File operations are measured in wall-clock time, all others in processor time. A "
             "snapshot may take 1.1 times more than linear time for each doubling of its size.");
  AddSnapshotWrite(table);
  AddSnapshotRead(table);
  AddSnapshotGrowth(table);
  AddSaving(table);
}

}  // namespace morvane::bench
