#pragma once

#include <ctime>
#include <memory>
#include <string>

#include "platform/ChunkBuffer.h"
#include "platform/Platform.h"

namespace morvane {

/// The one snapshot of this process, in a file that it holds open and locked.
///
/// It lives as "mvtmp.~mp" in the directory that is current at the first write. Where that can't be
/// had, because the directory can't be written, another process holds the name, or the name is
/// something else's, it lives in a private temporary folder.
class SnapshotFile {
 public:
  SnapshotFile() = default;
  SnapshotFile(const SnapshotFile&) = delete;
  SnapshotFile& operator=(const SnapshotFile&) = delete;
  ~SnapshotFile();

  Failure Write(ByteSource& content);
  /// The snapshot, to be read before the next one is written.
  Result<std::unique_ptr<ByteSource>> Read() const;
  /// Whether nobody has touched the file since it was written.
  bool IsUntouched() const;
  void Delete();

 private:
  Failure OpenInCurrentDirectory();
  Failure OpenInPrivateFolder();
  Failure Open(const std::string& path);
  Failure Overwrite(ByteSource& content);

  int file_ = -1;
  std::string path_;
  bool isPrivate_ = false;  ///< then nothing bears its name any more
  std::size_t size_ = 0;    ///< of the snapshot; 0 where there is none
  timespec changed_{};      ///< when it was written, by the clock of the disk
  ChunkBuffer chunk_;
};

}  // namespace morvane
