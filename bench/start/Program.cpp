#include "bench/start/Program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>

namespace start_bench {
namespace {

std::filesystem::path NewFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "start-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) std::abort();
  return name;
}

}  // namespace

Program::Program(const std::string& path)
    : folder_(NewFolder()), started_(Clock::now()), process_(fork()) {
  if (process_ != 0) return;
  const char* display = std::getenv("DISPLAY");
  std::array<std::string, 7> variables = {"HOME=" + folder_.string(),
                                          std::string("DISPLAY=") + (display ? display : ""),
                                          "QT_QPA_PLATFORM=xcb",
                                          "CUPS_SERVER=localhost:1",
                                          "LANG=C.UTF-8",
                                          "PATH=/usr/bin:/bin",
                                          "XDG_RUNTIME_DIR=" + folder_.string()};
  std::array<char*, 8> environment{};
  for (std::size_t i = 0; i < variables.size(); ++i) environment[i] = variables[i].data();
  std::string program = path;
  std::array<char*, 2> arguments = {program.data(), nullptr};
  if (chdir(folder_.c_str()) == 0) execve(path.c_str(), arguments.data(), environment.data());
  _exit(127);
}

Program::~Program() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
  std::filesystem::remove_all(folder_);
}

long Program::Resident() const {
  const std::string key = "VmRSS:";
  std::ifstream lines("/proc/" + std::to_string(process_) + "/status");
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(key)) return std::stol(line.substr(key.size()));
  }
  return 0;
}

}  // namespace start_bench
