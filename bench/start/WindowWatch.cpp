#include "bench/start/WindowWatch.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace start_bench {
namespace {

constexpr std::chrono::microseconds kPause(200);
constexpr std::chrono::seconds kTimeout(20);

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

[[noreturn]] void Stop(const char* reason) {
  std::cerr << "start_bench: " << reason << '\n';
  std::exit(EXIT_FAILURE);
}

}  // namespace

WindowWatch::WindowWatch() : connection_(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(connection_.get()) != 0) Stop("there is no display");
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
  const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), root, XCB_CW_EVENT_MASK, &events);
  xcb_flush(connection_.get());
}

Clock::time_point WindowWatch::NextWindow(int leastWidth) {
  const Clock::time_point latest = Clock::now() + kTimeout;
  xcb_window_t found = 0;
  Owned<xcb_get_geometry_reply_t> foundPlace;
  while (Clock::now() < latest) {
    if (foundPlace && IsPainted(found, *foundPlace)) return Clock::now();
    const Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
    if (!event) std::this_thread::sleep_for(kPause);
    if (!event || (event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
    const auto window = reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
    Owned<xcb_get_geometry_reply_t> place(xcb_get_geometry_reply(
        connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
    if (!place || place->width < leastWidth) continue;
    found = window;
    foundPlace = std::move(place);
  }
  Stop("no window appears");
}

bool WindowWatch::IsPainted(xcb_window_t window, const xcb_get_geometry_reply_t& place) {
  // Qt's windows have no background, so the screen stays black until they are painted.
  const auto row = static_cast<std::int16_t>(place.height - 8);
  const Owned<xcb_get_image_reply_t> image(
      xcb_get_image_reply(connection_.get(),
                          xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0,
                                        row, place.width, 1, 0xFFFFFF),
                          nullptr));
  if (!image) return false;
  const std::uint8_t* data = xcb_get_image_data(image.get());
  return std::any_of(data, data + xcb_get_image_data_length(image.get()),
                     [](std::uint8_t byte) { return byte != 0; });
}

}  // namespace start_bench
