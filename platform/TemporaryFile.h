#pragma once

#include <string>

#include "document/Platform.h"
#include "platform/ChunkBuffer.h"
#include "platform/SystemFiles.h"

namespace morvane {

/// A new file under a temporary name in a folder, which can then replace another file. The
/// destructor deletes it unless it was renamed.
///
/// The names are ".morvane-save-1" and so on. The file is locked while it is open, so an unlocked
/// one was left by a killed run, and the next save into that folder deletes it.
class TemporaryFile {
 public:
  /// The folder must outlive this object.
  explicit TemporaryFile(int folder) : folder_(folder) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  /// Creates an empty file with a mode, to which the umask applies. Its temporary name differs from
  /// the name of the target.
  Failure Create(const std::string& targetName, mode_t mode);
  /// Copies owner, group and mode of another file, as far as the system permits.
  void CopyAttributes(const struct stat& other);
  /// Writes the whole content.
  Failure Fill(ByteSource& content, const ChunkBuffer& buffer);
  /// Flushes the content to the disk.
  Failure Flush() const;
  /// Renames the file, replacing an existing one of that name.
  Failure RenameTo(const std::string& name);
  /// Renames the file to a name that must not exist yet.
  NewFileOutcome RenameToNew(const std::string& name);
  /// Flushes the folder: otherwise a power cut may undo the renaming.
  void FlushFolder() const;
  /// Passes the open and locked file to the caller. Call it after the file was renamed.
  Descriptor Release() { return std::move(file_); }

 private:
  bool TryName(const std::string& name, mode_t mode);

  int folder_;
  Descriptor file_;
  std::string name_;  ///< empty if there is nothing to delete
};

}  // namespace morvane
