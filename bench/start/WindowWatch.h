#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <memory>

namespace start_bench {

using Clock = std::chrono::steady_clock;

/// Watches the screen of the display that DISPLAY names. No other client may draw on it.
class WindowWatch {
 public:
  /// Exits with a message if there is no such display.
  WindowWatch();

  /// Waits until a window of at least this width has appeared and is painted.
  Clock::time_point NextWindow(int leastWidth);

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  bool IsPainted(xcb_window_t window, const xcb_get_geometry_reply_t& place);

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
};

}  // namespace start_bench
