#pragma once

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <thread>

namespace start_bench {

using Clock = std::chrono::steady_clock;

/// Watches for new windows on the display in the variable DISPLAY, which no other client may use.
class WindowWatch {
 public:
  /// Exits with a message if there is no such display.
  WindowWatch() {
    if (xcb_connection_has_error(display_.get()) != 0) Stop("there is no display");
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display_.get())).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display_.get(), root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(display_.get());
  }

  /// Waits until a window of at least this width has appeared and is painted.
  Clock::time_point NextWindow(int leastWidth) {
    constexpr std::chrono::microseconds kPause(200);
    constexpr std::chrono::seconds kTimeout(20);
    const Clock::time_point latest = Clock::now() + kTimeout;
    xcb_window_t window = 0;
    while (Clock::now() < latest) {
      if (window != 0 && IsPainted(window)) return Clock::now();
      const Owned<xcb_generic_event_t> event(xcb_poll_for_event(display_.get()));
      if (!event) std::this_thread::sleep_for(kPause);
      if (!event || (event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
      const auto shown = reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
      const auto place = PlaceOf(shown);
      if (place && place->width >= leastWidth) window = shown;
    }
    Stop("no window appears");
  }

 private:
  struct Free {
    void operator()(void* reply) const { std::free(reply); }
    void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
  };
  template <typename Type>
  using Owned = std::unique_ptr<Type, Free>;

  [[noreturn]] static void Stop(const char* reason) {
    std::cerr << "start_bench: " << reason << '\n';
    std::exit(EXIT_FAILURE);
  }

  Owned<xcb_get_geometry_reply_t> PlaceOf(xcb_window_t window) {
    const auto request = xcb_get_geometry(display_.get(), window);
    return Owned<xcb_get_geometry_reply_t>(
        xcb_get_geometry_reply(display_.get(), request, nullptr));
  }

  bool IsPainted(xcb_window_t window) {
    // Qt's windows have no background, so the screen stays black until they are painted.
    const auto place = PlaceOf(window);
    if (!place) return false;
    const auto row = static_cast<std::int16_t>(place->height - 8);
    const auto request = xcb_get_image(display_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, row,
                                       place->width, 1, 0xFFFFFF);
    const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(display_.get(), request, nullptr));
    if (!image) return false;
    const std::uint8_t* data = xcb_get_image_data(image.get());
    return std::any_of(data, data + xcb_get_image_data_length(image.get()),
                       [](std::uint8_t byte) { return byte != 0; });
  }

  Owned<xcb_connection_t> display_{xcb_connect(nullptr, nullptr)};
};

}  // namespace start_bench
