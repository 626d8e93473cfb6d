#pragma once

#include "document/Document.h"

namespace morvane {

/// File > Print: the map at its natural size on one page.
void mnuFilePrint_Click(Document& document);

/// File > Print Setup.
void mnuFilePageSetup_Click(Document& document);

}  // namespace morvane
