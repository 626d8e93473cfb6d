#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>

namespace morvane::bench {

/// A temporary folder on the disk of the program, deleted with this object.
class WorkFolder {
 public:
  WorkFolder();
  std::string File(const char* name) const;
  /// The name of its kind of file system.
  std::string FileSystem() const;
  /// Enters it.
  void Enter() const;

 private:
  QTemporaryDir folder_;
};

/// Ends the program with a message if an operation on files failed.
void Must(bool done, const char* what);

}  // namespace morvane::bench
