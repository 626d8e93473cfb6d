#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// Shows the current file in the window's title.
void SetTitle(Document& document);

/// Opens a map by its absolute path. If that fails, it reports why and changes nothing.
void OpenMap(Document& document, const std::string& path);

/// File > Open.
void mnuFileOpen_Click(Document& document);

/// File > Save; asks for a name if there is no current file.
void mnuFileSave_Click(Document& document);

/// File > Save As.
void mnuFileSaveAs_Click(Document& document);

/// Asks the exit question, and on Yes saves the map, as a rescue copy if it can't be saved as a
/// file. Returns whether the exit is cancelled.
bool AskToSave(Document& document);

}  // namespace morvane
