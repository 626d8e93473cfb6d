#include "platform/JpegWarnings.h"

#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <atomic>
#include <utility>

namespace morvane {
namespace {

constexpr const char* kDecoder = "qt.gui.imageio.jpeg";

/// The decoder's warnings about lost pixels. Its other warnings also occur with intact files.
constexpr std::array kDamage = {"premature end of data segment", "bad Huffman code",
                                "bad arithmetic code", "instead of RST"};

thread_local bool hasFoundDamage = false;

QtMessageHandler nextHandler = nullptr;
QLoggingCategory::CategoryFilter nextFilter = nullptr;
std::atomic<bool> isLogWanted = true;

void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (qstrcmp(context.category, kDecoder) == 0) {
    const auto reports = [&text](const char* damage) { return text.contains(damage); };
    hasFoundDamage |= std::any_of(kDamage.begin(), kDamage.end(), reports);
    if (!isLogWanted) return;
  }
  nextHandler(type, context, text);
}

/// Keeps the decoder's warnings enabled even if they are not wanted on the terminal.
void Filter(QLoggingCategory* category) {
  nextFilter(category);
  if (qstrcmp(category->categoryName(), kDecoder) != 0) return;
  isLogWanted = category->isWarningEnabled();
  category->setEnabled(QtWarningMsg, true);
}

/// Removes the previous handlers first: ours call them, and the filter is called while it is being
/// installed.
bool Listen() {
  nextHandler = qInstallMessageHandler(nullptr);
  qInstallMessageHandler(&HandleMessage);
  nextFilter = QLoggingCategory::installFilter(nullptr);
  QLoggingCategory::installFilter(&Filter);
  return true;
}

}  // namespace

void WatchJpegWarnings() {
  [[maybe_unused]] static const bool isListening = Listen();
}

bool TakeJpegDamage() {
  WatchJpegWarnings();
  return std::exchange(hasFoundDamage, false);
}

}  // namespace morvane
