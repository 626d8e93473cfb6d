#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "document/Platform.h"

namespace morvane {

/// An open file descriptor, or none (-1). The destructor closes it.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_ = -1;
};

/// The content of an open file.
class FileSource : public ByteSource {
 public:
  /// Messages about failures begin with the prefix.
  FileSource(Descriptor file, std::size_t size, std::string prefix = {})
      : file_(std::move(file)), size_(size), prefix_(std::move(prefix)) {}

  std::size_t Size() const override { return size_; }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override;

 private:
  Descriptor file_;
  std::size_t size_;
  std::string prefix_;
};

/// Whether this is a regular file that belongs to this user and has no other hard links, so that it
/// can't have been put there by another user.
bool IsOurs(const struct stat& file);

/// Whether the name in the folder still refers to the open file, and not to one that replaced it.
bool IsNameOf(int folder, const std::string& name, int file);

/// Locks an open file. Returns false only if it is locked by another open file, perhaps of another
/// process: on volumes that don't support locks, files stay unlocked.
bool TryLock(int file);

/// Opens a file of this user for reading and writing, and locks it. The result is not open if there
/// is no such file, if it isn't ours, or if another process has locked it.
Descriptor OpenAndLockOurs(int folder, const std::string& name);

/// Renames a file without ever replacing another. Relative paths start at the given folders.
NewFileOutcome RenameToNew(int folder, const std::string& name, int newFolder,
                           const std::string& newName);

/// The system's message for the current errno.
Failure ErrnoMessage();

/// Fills the buffer from the given offset of the file.
Failure ReadAt(int file, std::size_t place, std::span<std::uint8_t> buffer);

/// Writes all bytes at the given offset. On failure returns false and sets errno.
bool WriteAt(int file, std::size_t place, std::span<const std::uint8_t> bytes);

}  // namespace morvane
