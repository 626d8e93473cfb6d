#pragma once

#include <string>

#include "document/Platform.h"
#include "platform/ChunkBuffer.h"
#include "platform/SystemFiles.h"

namespace morvane {

/// A new file under a passing name in a folder, which may then take the place of another one. What
/// never did is gone with this object.
///
/// The names are few, short and the same in every folder: ".morvane-save-1" and on. The file is
/// locked as long as it is open, so a name whose file isn't locked was left by a run that was
/// killed, and the next save into that folder takes it away.
class TemporaryFile {
 public:
  /// The folder stays open longer than this.
  explicit TemporaryFile(int folder) : folder_(folder) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  /// Makes the empty file with a mode, which the user's mask cuts. It never takes the wished name
  /// itself.
  Failure Create(const std::string& wishedName, mode_t mode);
  /// Gives the file the owner, the group and the mode of another one, as far as the system lets us.
  void TakeAfter(const struct stat& other);
  /// Writes all the content, through a buffer.
  Failure Fill(ByteSource& content, const ChunkBuffer& buffer);
  /// Flushes the content to the disk.
  Failure Flush() const;
  /// Takes the place of what bears the name in the folder, if anything does.
  Failure RenameTo(const std::string& name);
  /// Takes a name that nothing in the folder bears.
  NewFileOutcome RenameToNew(const std::string& name);
  /// Flushes the folder: without this a power cut may undo the renaming.
  void FlushFolder() const;
  /// The file, still open and locked, to be kept by the caller after renaming.
  Descriptor Release() { return std::move(file_); }

 private:
  bool TryName(const std::string& name, mode_t mode);
  void RemoveIfStale(const std::string& name) const;

  int folder_;
  Descriptor file_;
  std::string name_;  ///< empty where there is nothing to take away
};

}  // namespace morvane
