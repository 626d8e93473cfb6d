#include "platform/Files.h"

#include <mntent.h>

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include "platform/ChunkBuffer.h"

namespace morvane {
namespace {

constexpr qint64 kMostBytes = qint64{1} << 30;

Failure WhyNotNormal(const QFileInfo& info) {
  if (info.isDir()) return "This is a folder, not a file.";
  if (info.isFile()) return info.size() > kMostBytes ? "The file is too large." : Failure();
  return info.exists() ? "This is not a normal file." : "There is no such file.";
}

Failure ReasonOf(const QFileDevice& file) {
  return file.errorString().toStdString();
}

class NormalFile : public ByteSource {
 public:
  explicit NormalFile(const std::string& path) : file_(QString::fromStdString(path)) {}

  Failure Open() {
    Failure failure = WhyNotNormal(QFileInfo(file_));
    if (!failure.empty()) return failure;
    if (!file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return ReasonOf(file_);
    size_ = static_cast<std::size_t>(file_.size());
    return {};
  }

  std::size_t Size() const override { return size_; }

  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    if (!file_.seek(static_cast<qint64>(place))) return ReasonOf(file_);
    while (!buffer.empty()) {
      const qint64 read =
          file_.read(reinterpret_cast<char*>(buffer.data()), static_cast<qint64>(buffer.size()));
      if (read < 0) return ReasonOf(file_);
      if (read == 0) return "The file ends too early.";
      buffer = buffer.subspan(static_cast<std::size_t>(read));
    }
    return {};
  }

 private:
  QFile file_;
  std::size_t size_ = 0;
};

std::vector<std::string> InNaturalOrder(QStringList names) {
  // The plain "C" locale knows no natural order.
  const bool plain = QLocale().language() == QLocale::C;
  QCollator natural(plain ? QLocale(QLocale::English) : QLocale());
  natural.setNumericMode(true);
  natural.setCaseSensitivity(Qt::CaseInsensitive);
  std::sort(names.begin(), names.end(), natural);
  std::vector<std::string> result;
  result.reserve(static_cast<std::size_t>(names.size()));
  for (const QString& name : names) result.push_back(name.toStdString());
  return result;
}

}  // namespace

Result<std::unique_ptr<ByteSource>> OpenNormalFile(const std::string& path) {
  using Opened = Result<std::unique_ptr<ByteSource>>;
  auto file = std::make_unique<NormalFile>(path);
  Failure failure = file->Open();
  return failure.empty() ? Opened(std::move(file)) : Opened::Failed(std::move(failure));
}

Failure ReplaceFile(const std::string& path, ByteSource& content) {
  const QFileInfo info(QString::fromStdString(path));
  if (info.isDir()) return "This is a folder, not a file.";
  if (info.exists() && !info.isFile()) return "This is not a normal file.";
  if (!info.dir().exists()) return "The folder doesn't exist.";
  QSaveFile file(info.filePath());
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return ReasonOf(file);
  Failure failure = ForEachChunk(
      content, {}, [&file](std::size_t /*place*/, std::span<const std::uint8_t> bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        const bool isWritten =
            file.write(reinterpret_cast<const char*>(bytes.data()), size) == size;
        return isWritten ? Failure() : ReasonOf(file);
      });
  if (!failure.empty()) return failure;
  return file.commit() ? Failure() : ReasonOf(file);
}

std::vector<std::string> FoldersIn(const std::string& folder) {
  return InNaturalOrder(
      QDir(QString::fromStdString(folder)).entryList(QDir::Dirs | QDir::NoDotAndDotDot));
}

std::vector<std::string> MountedVolumes() {
  std::vector<std::string> roots = {"/"};
  // The table of mounts answers at once, also where a volume behind it has gone.
  std::FILE* table = setmntent("/proc/self/mounts", "r");
  if (table == nullptr) return roots;
  while (const mntent* mount = getmntent(table)) {
    const std::string source = mount->mnt_fsname;
    const bool isVolume = source.starts_with("/dev/") || source.find(":/") != std::string::npos ||
                          source.starts_with("//");
    const bool isKnown = std::find(roots.begin(), roots.end(), mount->mnt_dir) != roots.end();
    if (isVolume && !isKnown) roots.emplace_back(mount->mnt_dir);
  }
  endmntent(table);
  return roots;
}

std::vector<std::string> MatchingFiles(const std::string& folder, const std::string& pattern) {
  const QStringList patterns = QString::fromStdString(pattern).split(';');
  return InNaturalOrder(QDir(QString::fromStdString(folder)).entryList(patterns, QDir::Files));
}

}  // namespace morvane
