#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "bench/start/WindowWatch.h"

namespace start_bench {

/// A program that runs in an empty folder during the lifetime of this object.
class Program {
 public:
  explicit Program(const std::string& path);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  Clock::time_point Started() const { return started_; }
  /// Its resident memory in kB.
  long Resident() const;

 private:
  std::filesystem::path folder_;
  Clock::time_point started_;
  pid_t process_;
};

}  // namespace start_bench
