#include "bench/WorkFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStorageInfo>
#include <cstdlib>
#include <iostream>

namespace morvane::bench {

WorkFolder::WorkFolder() : folder_(QCoreApplication::applicationDirPath() + "/bench-XXXXXX") {
  Must(folder_.isValid(), "A folder beside the program could not be made");
}

std::string WorkFolder::File(const char* name) const {
  return folder_.filePath(name).toStdString();
}

std::string WorkFolder::FileSystem() const {
  return QStorageInfo(folder_.path()).fileSystemType().toStdString();
}

void WorkFolder::Enter() const {
  Must(QDir::setCurrent(folder_.path()), "A folder could not be entered");
}

void Must(bool done, const char* what) {
  if (done) return;
  std::cerr << what << ". Nothing was measured.\n";
  std::exit(EXIT_FAILURE);
}

}  // namespace morvane::bench
