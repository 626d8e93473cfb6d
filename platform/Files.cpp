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

namespace morvane {
namespace {

constexpr qint64 kMostBytes = qint64{1} << 30;

Failure WhyNotNormal(const QFileInfo& info) {
  if (info.isDir()) return "This is a folder, not a file.";
  if (info.isFile()) return info.size() > kMostBytes ? "The file is too large." : Failure();
  return info.exists() ? "This is not a normal file." : "There is no such file.";
}

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

Result<Bytes> ReadNormalFile(const std::string& path) {
  QFile file(QString::fromStdString(path));
  Failure failure = WhyNotNormal(QFileInfo(file));
  if (!failure.empty()) return Result<Bytes>::Failed(std::move(failure));
  if (!file.open(QIODevice::ReadOnly)) {
    return Result<Bytes>::Failed(file.errorString().toStdString());
  }
  Bytes content(static_cast<std::size_t>(file.size()));
  const qint64 read = file.read(reinterpret_cast<char*>(content.data()), file.size());
  if (read < 0) return Result<Bytes>::Failed(file.errorString().toStdString());
  content.resize(static_cast<std::size_t>(read));
  return content;
}

Failure ReplaceFile(const std::string& path, const Bytes& content) {
  const QFileInfo info(QString::fromStdString(path));
  if (info.isDir()) return "This is a folder, not a file.";
  if (info.exists() && !info.isFile()) return "This is not a normal file.";
  if (!info.dir().exists()) return "The folder doesn't exist.";
  QSaveFile file(info.filePath());
  const auto size = static_cast<qint64>(content.size());
  const bool done = file.open(QIODevice::WriteOnly) &&
                    file.write(reinterpret_cast<const char*>(content.data()), size) == size &&
                    file.commit();
  return done ? Failure() : file.errorString().toStdString();
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
