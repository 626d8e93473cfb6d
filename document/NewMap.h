#pragma once

#include "document/Document.h"

namespace morvane {

/// File > New: paints background and grid from the settings, after a question.
void mnuFileNew_Click(Document& document);

}  // namespace morvane
