#include "platform/SystemFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace morvane {

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

bool IsOurs(const struct stat& file) {
  return S_ISREG(file.st_mode) && file.st_uid == geteuid() && file.st_nlink == 1;
}

bool IsNameOf(int folder, const std::string& name, int file) {
  struct stat held {};
  struct stat named {};
  return fstat(file, &held) == 0 &&
         fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

Failure SystemReason() {
  return std::strerror(errno);
}

Failure ReadAt(int file, std::size_t place, std::span<std::uint8_t> buffer) {
  while (!buffer.empty()) {
    const ssize_t read = pread(file, buffer.data(), buffer.size(), static_cast<off_t>(place));
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return SystemReason();
    if (read == 0) return "The file ends too early.";
    place += static_cast<std::size_t>(read);
    buffer = buffer.subspan(static_cast<std::size_t>(read));
  }
  return {};
}

bool WriteAt(int file, std::size_t place, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(place));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    place += static_cast<std::size_t>(written);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace morvane
