#pragma once

#include <array>
#include <ctime>
#include <memory>
#include <string>

#include "document/Platform.h"
#include "platform/ChunkBuffer.h"
#include "platform/SystemFiles.h"

namespace morvane {

/// The name of the snapshot in the current directory, and its prefix in a private folder.
inline constexpr const char* kSnapshotName = "mvtmp.~mp";

/// The one snapshot of this process, in a file that is kept open and locked.
///
/// The file is "mvtmp.~mp" in the directory that is current at the first write. If that directory
/// is read-only, or the name is taken by another process or file, it is in a private folder. The
/// file outlives this object unless Delete is called: the next run finds what a killed run has
/// left.
class SnapshotFile {
 public:
  Failure Write(ByteSource& content);
  /// The snapshot, to be read before the next one is written.
  OpenedFile Read() const;
  /// Whether the file is unmodified since it was written.
  bool IsUntouched() const;
  void Delete();

 private:
  /// A file and its folder, both kept open.
  class LockedFile {
   public:
    Failure OpenInCurrentDirectory();
    Failure OpenInPrivateFolder(const std::string& folder);
    bool IsOpen() const { return file_.IsOpen(); }
    int Number() const { return file_.Number(); }
    std::string Path() const { return folderPath_ + '/' + name_; }
    Failure Write(ByteSource& content, const ChunkBuffer& chunk);
    void Delete();

   private:
    /// The header of a map file, which contains its format and size.
    using Header = std::array<std::uint8_t, 54>;

    Failure Open(int flags);
    Failure Overwrite(ByteSource& content, const ChunkBuffer& chunk);
    Failure Replace(ByteSource& content, const ChunkBuffer& chunk);
    /// The system's message for the current errno, after the path.
    Failure Reason() const;

    std::string folderPath_;
    Descriptor folder_;
    std::string name_ = kSnapshotName;
    Descriptor file_;
    Header header_{};  ///< of the current content
    bool isPrivate_ = false;
  };

  /// Replaces the file by a new one in a private folder, whose disk may have space. Returns whether
  /// that succeeded.
  bool WriteToPrivateFolder(ByteSource& content);

  LockedFile file_;
  std::size_t size_ = 0;  ///< of the snapshot; 0 if there is none
  timespec changed_{};    ///< status change time of the file after the write
  ChunkBuffer chunk_;
};

}  // namespace morvane
