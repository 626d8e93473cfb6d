#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include "bench/Comparison.h"

namespace morvane::bench {

/// A temporary folder on the disk of the program.
class TempFolder : public QTemporaryDir {
 public:
  TempFolder() : QTemporaryDir(QCoreApplication::applicationDirPath() + "/bench-XXXXXX") {
    Require(isValid(), "A folder beside the program could not be made");
  }
  /// Makes it the current directory.
  void Enter() const { Require(QDir::setCurrent(path()), "A folder could not be entered"); }
};

}  // namespace morvane::bench
