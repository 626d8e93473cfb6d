#pragma once

#include <array>
#include <ctime>
#include <memory>
#include <string>

#include "document/Platform.h"
#include "platform/ChunkBuffer.h"
#include "platform/SystemFiles.h"

namespace morvane {

/// The name of the snapshot in the current directory, and how it begins in a private folder.
inline constexpr const char* kSnapshotName = "mvtmp.~mp";

/// The one snapshot of this process, in a file that it holds open and locked.
///
/// It lives as "mvtmp.~mp" in the directory that is current at the first write. Where that can't be
/// had, because the directory can't be written, another process holds the name, or the name is
/// something else's, it lives in a private folder. It outlives this object, unless it is deleted:
/// the next run finds what a run that was killed has left.
class SnapshotFile {
 public:
  Failure Write(ByteSource& content);
  /// The snapshot, to be read before the next one is written.
  Result<std::unique_ptr<ByteSource>> Read() const;
  /// Whether nobody has touched the file since it was written.
  bool IsUntouched() const;
  void Delete();

 private:
  /// A file in a folder, both held open.
  class Place {
   public:
    Failure OpenInCurrentDirectory();
    Failure OpenInPrivateFolder(const std::string& folder);
    bool IsOpen() const { return file_.IsOpen(); }
    int File() const { return file_.Number(); }
    std::string Path() const { return folderPath_ + '/' + name_; }
    Failure Write(ByteSource& content, const ChunkBuffer& chunk);
    void Delete();

   private:
    /// The header of a map file: its form and its size.
    using Head = std::array<std::uint8_t, 54>;

    Failure Open(int flags);
    Failure Overwrite(ByteSource& content, const ChunkBuffer& chunk);
    Failure Replace(ByteSource& content, const ChunkBuffer& chunk);
    Failure Reason() const;

    std::string folderPath_;
    Descriptor folder_;
    std::string name_ = kSnapshotName;
    Descriptor file_;
    Head head_{};  ///< of what the file holds
    bool isPrivate_ = false;
  };

  bool WriteToPrivateFolder(ByteSource& content);

  Place place_;
  std::size_t size_ = 0;  ///< of the snapshot; 0 where there is none
  timespec changed_{};    ///< when it was written, by the clock of the disk
  ChunkBuffer chunk_;
};

}  // namespace morvane
