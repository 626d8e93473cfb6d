#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "tests/faults/Monkey.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace morvane {
namespace {

constexpr double kMegabyte = 1 << 20;

double HeapMegabytes() {
#ifdef __SANITIZE_ADDRESS__
  return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / kMegabyte;
#else
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd) / kMegabyte;
#endif
}

double ResidentMegabytes() {
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  return static_cast<double>(pages * sysconf(_SC_PAGESIZE)) / kMegabyte;
}

int FromEnvironment(const char* name, int otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::atoi(value);
}

TEST(Monkey, LeavesTheWindowTheCoreAndThePlainModelAgreed) {
  qputenv("CUPS_SERVER", "localhost:1");
  const int seed = FromEnvironment("MORVANE_MONKEY_SEED", 1);
  const int events = FromEnvironment("MORVANE_MONKEY_EVENTS", 5000);
  SCOPED_TRACE("MORVANE_MONKEY_SEED=" + std::to_string(seed));
  Monkey monkey(static_cast<unsigned>(seed));
  std::vector<double> heap;
  int windows = 1;
  for (int i = 1; i <= events; ++i) {
    monkey.DoAnything();
    if (!monkey.WindowIsOpen()) {
      monkey.Restart();
      ++windows;
    }
    ASSERT_EQ(monkey.Fault(i % 5 == 0), "") << "after event " << i << ":" << monkey.Trail();
    if (i != events / 10 && i != events / 2 && i != events) continue;
    heap.push_back(monkey.MeasureAtRest(&HeapMegabytes));
    std::cout << "event " << i << ", window " << windows << ": heap " << heap.back() << " MB, "
              << "resident " << ResidentMegabytes() << " MB\n"
              << std::flush;
  }
  for (const char* event : {"press",
                            "stroke",
                            "hover",
                            "text",
                            "pick",
                            "custom tile",
                            "broken tile",
                            "mode",
                            "turn",
                            "resize",
                            "new map",
                            "opened",
                            "not opened",
                            "saved",
                            "mnuEditUndo",
                            "mnuToolsOptions",
                            "mnuHelpAbout",
                            "mnuFilePrint",
                            "mnuFilePageSetup",
                            "mnuFileExit"}) {
    EXPECT_GT(monkey.heard[event], 0) << event << " never came about";
  }
  constexpr double kCaches = 4;  // MB: letters and styles that Qt keeps
  EXPECT_LT(heap.back() - heap.front(), kCaches);
}

}  // namespace
}  // namespace morvane
