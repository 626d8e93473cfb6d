#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>

namespace morvane::bench {

/// A folder beside the program, so on the disk that it was built on, for as long as it is held.
class WorkFolder {
 public:
  WorkFolder();
  std::string File(const char* name) const;
  /// The name of its kind of file system.
  std::string FileSystem() const;
  /// Makes it the current directory.
  void Enter() const;

 private:
  QTemporaryDir folder_;
};

/// Ends the program with a message if something on the disk didn't go as it had to.
void Must(bool done, const char* what);

}  // namespace morvane::bench
