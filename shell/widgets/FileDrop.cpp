#include "shell/widgets/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <filesystem>
#include <system_error>

namespace morvane {
namespace {

/// The path of a single dragged file; empty for anything else.
std::string FileIn(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  // Not as text, since the name may not be UTF-8.
  const QByteArray encoded = urls.front().path(QUrl::FullyEncoded).toLatin1();
  std::string path = QByteArray::fromPercentEncoding(encoded).toStdString();
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) ? path : std::string();
}

}  // namespace

FileDrop::FileDrop(QWidget* target) : QObject(target) {
  target->setAcceptDrops(true);
  target->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* /*target*/, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  auto& drag = static_cast<QDropEvent&>(*event);
  const std::string path = FileIn(*drag.mimeData());
  drag.setDropAction(Qt::CopyAction);  // the file stays where it is
  drag.setAccepted(!path.empty());
  if (type == QEvent::Drop && !path.empty()) {
    // Deferred, since the source program waits until the drop is over.
    QMetaObject::invokeMethod(
        this, [this, path] { emit Dropped(path); }, Qt::QueuedConnection);
  }
  return true;
}

}  // namespace morvane
