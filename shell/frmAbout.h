#pragma once

#include <QDialog>

#include "platform/Platform.h"

namespace morvane {

/// The About box, with one flagstone that isn't like the others.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  frmAbout(Platform& platform, QWidget* owner);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddPictures(Platform& platform);
};

}  // namespace morvane
