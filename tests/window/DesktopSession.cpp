#include "tests/window/DesktopSession.h"

namespace morvane {
namespace {

/// Pixels of a place that differ so much that everybody sees it.
int Changes(const QImage& before, const QImage& after, const AtspiRect& place) {
  constexpr int kPlain = 100;
  int changes = 0;
  const QRect part = QRect(place.x, place.y, place.width, place.height) & before.rect();
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      const QRgb one = before.pixel(x, y);
      const QRgb other = after.pixel(x, y);
      if (std::abs(qRed(one) - qRed(other)) > kPlain ||
          std::abs(qGreen(one) - qGreen(other)) > kPlain ||
          std::abs(qBlue(one) - qBlue(other)) > kPlain) {
        ++changes;
      }
    }
  }
  return changes;
}

}  // namespace

void DesktopSession::SetUpTestSuite() {
  session_ = std::make_unique<Session>();
  qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  session_->OpenDisplay();
  qputenv("DBUS_SESSION_BUS_ADDRESS",
          session_->AddressOf("dbus-daemon", {"--session", "--nofork", "--print-address",
                                              "--address=unix:runtime=yes"}));
  ASSERT_EQ(atspi_init(), 0) << "There is no bus of accessibility";
  QImage tile(20, 20, QImage::Format_RGB32);
  tile.fill(Qt::red);
  ASSERT_TRUE(tile.save(session_->folder.filePath("tile.png")));
}

void DesktopSession::SetUp() {
  listener_ = atspi_event_listener_new(&DesktopSession::Hear, this, nullptr);
  ASSERT_TRUE(atspi_event_listener_register(listener_, "object:state-changed:showing", nullptr));
  session_->Start(MORVANE_PROGRAM, {});
  ASSERT_TRUE(AwaitFocus("canvas Map = 615 x 483 pixels")) << Focus();
}

void DesktopSession::TearDown() {
  atspi_event_listener_deregister(listener_, "object:state-changed:showing", nullptr);
  g_object_unref(listener_);
  session_->processes.front().kill();
  session_->processes.front().waitForFinished();
  session_->processes.pop_front();
}

AccessibleObject DesktopSession::Opened(const std::string& title) {
  EXPECT_TRUE(Await([&title] {
    const AccessibleObject window = WindowOf(title);
    return window && window.Is(ATSPI_STATE_ACTIVE) && FocusIn(window);
  })) << title;
  return WindowOf(title);
}

void DesktopSession::OpenMenu(const char* keys, const std::string& firstEntry) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    Key({keys});
    if (AwaitFocus(firstEntry)) return;
    Key({"Escape"});
  }
  ADD_FAILURE() << firstEntry << " never has the focus, but " << Focus();
}

std::vector<std::string> DesktopSession::Round(const char* window) {
  constexpr size_t kMostStops = 30;
  constexpr int kSeen = 40;
  std::vector<std::string> stops;
  AccessibleObject stop = FocusIn(Opened(window));
  std::string last = stop.Line();
  QImage before = Picture();
  while (stops.size() < kMostStops) {
    Key({"Tab"});
    if (!Await([&] { return Focus(window) != last; })) break;
    const QImage after = Picture();
    if (!stops.empty()) {
      EXPECT_GE(Changes(before, after, stop.Place()), kSeen) << last << " has no mark";
    }
    stop = FocusIn(WindowOf(window));
    last = stop.Line();
    before = after;
    if (!stops.empty() && last == stops.front()) return stops;
    stops.push_back(last);
  }
  ADD_FAILURE() << "The round never closes; it ends with " << last;
  return stops;
}

QImage DesktopSession::Picture() {
  const QString file = session_->folder.filePath("display.png");
  QImage last, now;
  EXPECT_TRUE(Await([&] {
    last = now;
    QProcess::execute("gm", {"import", "-window", "root", file});
    now.load(file);
    return !now.isNull() && now == last;
  }));
  return now;
}

void DesktopSession::Hear(AtspiEvent* event, void* desk) {
  const AccessibleObject source(static_cast<AtspiAccessible*>(g_object_ref(event->source)));
  if (event->detail1 != 0 && source.Role() == ATSPI_ROLE_NOTIFICATION) {
    const std::string notice = source.Name();
    if (notice != kGreeting) static_cast<DesktopSession*>(desk)->notices.push_back(notice);
  }
  g_boxed_free(ATSPI_TYPE_EVENT, event);
}

}  // namespace morvane
