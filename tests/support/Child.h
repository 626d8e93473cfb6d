#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "shell/widgets/FocusStyle.h"
#include "tests/support/FormFixture.h"

namespace morvane {

/// The exit code of a child that couldn't prepare its test.
constexpr int kCannot = 77;

/// Runs a check in a child process, whose exit code is 0 if every expectation holds. A child that
/// hangs or throws is killed.
inline pid_t StartChild(const std::function<void()>& check) noexcept {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  alarm(60);
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

/// In a child: gives up root, which ignores the modes of files.
inline void BecomeOrdinaryUser() {
  constexpr id_t kNobody = 65534;
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(kCannot);
}

/// In a child: the application as the program sets it up.
struct Application {
  Application() {
    QApplication::setStyle(new FocusStyle);
    // So that Qt's dialogs write nothing into the home folder.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
  }
  int count = 0;
  QApplication application{count, nullptr};
};

/// In a child: the editor in its window, started in a new folder below TMPDIR.
struct Session : Application, FormFixture {
  void TestBody() override {}
};

}  // namespace morvane
