#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <memory>

namespace start_bench {

using Clock = std::chrono::steady_clock;

/// A window that came up, and when.
struct Appearance {
  xcb_window_t window = 0;
  int width = 0;
  int height = 0;
  Clock::time_point painted;  ///< mapped, and its first picture on the screen
};

/// Watches the screen of the display that DISPLAY names. No other client may draw on it.
class WindowWatch {
 public:
  /// Exits with a message where there is no such display.
  WindowWatch();

  /// Waits until a window comes up that is at least so wide, and until it is painted.
  Appearance NextWindow(int leastWidth);

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  bool IsPainted(xcb_window_t window, int width, int row);

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
};

}  // namespace start_bench
