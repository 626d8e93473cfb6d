#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "shell/Module1.h"
#include "tests/support/FormFixture.h"

namespace morvane {

/// Runs a check in a child process, whose exit code is 0 if every expectation holds. A child that
/// hangs or throws is killed.
inline pid_t StartChild(const std::function<void()>& check) noexcept {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  alarm(300);
  check();
  std::fflush(nullptr);
  _exit(testing::Test::HasFailure() ? 1 : 0);
}

/// The exit code of a process, or 128 and the signal that ended it.
inline int WaitFor(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// In a child: the application as the program sets it up.
struct Application {
  Application() { SetUpApplication(); }
  int count = 1;
  char name[8] = "morvane";
  char* arguments[2] = {name, nullptr};
  QApplication application{count, arguments};
};

/// In a child: the editor in its window, started in a new folder below TMPDIR.
struct EditorInChild : Application, FormFixture {};

}  // namespace morvane
