#pragma once

#include "document/Platform.h"
#include "shell/widgets/FixedDialog.h"

namespace morvane {

/// The About box, with one flagstone that isn't like the others.
class frmAbout : public FixedDialog {
  Q_OBJECT

 public:
  frmAbout(Platform& platform, QWidget* owner);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace morvane
