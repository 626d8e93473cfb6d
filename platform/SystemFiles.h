#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "document/Platform.h"

namespace morvane {

/// An open file or folder of the system, or none (-1). It is closed when this goes.
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

/// Whether a file is one that this user made for nothing else: a planted or linked one is not.
bool IsOurs(const struct stat& file);

/// Whether an entry of a folder is the very file that is open, not one that took its name since.
bool IsNameOf(int folder, const std::string& name, int file);

/// Opens a file of this user for reading and writing, and locks it for this process. Not open where
/// there is none, where it isn't ours, or where another process holds it.
Descriptor OpenAndLockOurs(int folder, const std::string& name);

/// Renames a file, and never replaces another one. Relative paths start at their folders.
NewFileOutcome RenameToNew(int folder, const std::string& name, int newFolder,
                           const std::string& newName);

/// Why the system just refused, in its own words.
Failure ErrnoMessage();

/// Fills the buffer from a place of the file on.
Failure ReadAt(int file, std::size_t place, std::span<std::uint8_t> buffer);

/// Writes all bytes. False and errno where the system refuses.
bool WriteAt(int file, std::size_t place, std::span<const std::uint8_t> bytes);

}  // namespace morvane
