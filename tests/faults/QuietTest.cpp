#include <array>
#include <csignal>

#include "tests/faults/Child.h"

namespace morvane {
namespace {

TEST(Quiet, NothingIsPrintedWithoutASession) {
  const StartFolder folder;
  const pid_t program = fork();
  if (program == 0) {
    if (std::freopen("printed", "w", stdout) == nullptr || dup2(1, 2) < 0) _exit(kCannot);
    execle(MORVANE_PROGRAM, "morvane", nullptr,
           std::array<const char*, 2>{"QT_QPA_PLATFORM=offscreen", nullptr}.data());
    _exit(kCannot);
  }
  EXPECT_TRUE(QTest::qWaitFor([] { return QFile::exists("mvtmp.~mp"); }, 30'000));
  QTest::qWait(1000);  // it is silent to the end
  kill(program, SIGTERM);
  EXPECT_EQ(WaitFor(program), 128 + SIGTERM);
  QFile printed("printed");
  ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
  EXPECT_EQ(printed.readAll().toStdString(), "");
}

}  // namespace
}  // namespace morvane
