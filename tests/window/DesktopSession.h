#pragma once

#include <gtest/gtest.h>

#include <QImage>

#include "tests/window/AccessibleObject.h"
#include "tests/window/Session.h"

namespace morvane {

/// The status line at start, which a screen reader may speak or come too late for.
inline const std::string kGreeting = "Morvane, maps for role-playing games, painted tile by tile";

/// A display and a bus of accessibility of their own, and for each test the real program on them.
class DesktopSession : public testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite() { session_.reset(); }
  void SetUp() override;
  void TearDown() override;

  /// The window or dialog of that title once the keys go to it.
  static AccessibleObject Opened(const std::string& title);
  static std::string Focus(const char* window = "Morvane") {
    return FocusIn(WindowOf(window)).Line();
  }
  static bool AwaitFocus(const std::string& line) {
    return Await([&line] { return Focus() == line; });
  }
  /// Opens a menu until its first entry has the focus: a busy desktop may close it again.
  static void OpenMenu(const char* keys, const std::string& firstEntry);
  /// One round of the Tab key, each stop as it is spoken. Fails where a stop can't be seen.
  static std::vector<std::string> Round(const char* window);

  /// What was spoken without the focus moving, behind the greeting.
  std::vector<std::string> notices;

 private:
  /// The display once it has come to rest.
  static QImage Picture();
  static void Hear(AtspiEvent* event, void* desk);

  inline static std::unique_ptr<Session> session_;
  AtspiEventListener* listener_ = nullptr;
};

}  // namespace morvane
