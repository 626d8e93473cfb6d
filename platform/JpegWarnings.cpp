#include "platform/JpegWarnings.h"

#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

namespace morvane {
namespace {

constexpr const char* kDecoder = "qt.gui.imageio.jpeg";

/// The decoder's warnings about lost pixels. Its other warnings also occur with intact files.
constexpr std::array kDamage = {"premature end of data segment", "bad Huffman code",
                                "bad arithmetic code", "instead of RST"};

thread_local JpegWarnings* listener = nullptr;

QtMessageHandler nextHandler = nullptr;
QLoggingCategory::CategoryFilter nextFilter = nullptr;
std::atomic<bool> isLogWanted = true;

void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (listener != nullptr && qstrcmp(context.category, kDecoder) == 0) {
    listener->Receive(qPrintable(text));
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

/// Each handler is removed before ours is installed, so that the previous one is known by the first
/// call.
bool Listen() {
  nextHandler = qInstallMessageHandler(nullptr);
  qInstallMessageHandler(&HandleMessage);
  nextFilter = QLoggingCategory::installFilter(nullptr);
  QLoggingCategory::installFilter(&Filter);
  return true;
}

}  // namespace

void JpegWarnings::Install() {
  [[maybe_unused]] static const bool isListening = Listen();
}

JpegWarnings::JpegWarnings() {
  Install();
  listener = this;
}

JpegWarnings::~JpegWarnings() {
  listener = nullptr;
}

void JpegWarnings::Receive(const char* line) {
  hasFoundDamage_ =
      hasFoundDamage_ || std::any_of(kDamage.begin(), kDamage.end(), [line](const char* damage) {
        return std::strstr(line, damage) != nullptr;
      });
}

}  // namespace morvane
