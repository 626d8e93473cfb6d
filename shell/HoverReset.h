#pragma once

#include <QObject>

class QWidget;

namespace morvane {

/// Reports pointer moves over controls where the outline on the map has to be hidden.
class HoverReset : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Watches a control with its children.
  void Watch(QWidget* control);
  /// Watches a control alone, without its children.
  void WatchWithoutChildren(QWidget* control);

 signals:
  void Moved();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace morvane
