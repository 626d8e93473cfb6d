#pragma once

#include <QObject>
#include <string>

namespace morvane {

/// Lets the user drop one file on a widget. The pointer shows that anything else is refused.
class FileDrop : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the widget.
  explicit FileDrop(QWidget* target);

 signals:
  /// A file was dropped, by its absolute path.
  void Dropped(const std::string& path);

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;
};

}  // namespace morvane
