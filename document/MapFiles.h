#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// Names the current file in the window's caption.
void SetTitle(Document& document);

/// Opens a map by its absolute path; one that can't be opened is told, and nothing changes.
void OpenMap(Document& document, const std::string& path);

/// File > Open.
void mnuFileOpen_Click(Document& document);

/// File > Save; asks for a name where there is no current file.
void mnuFileSave_Click(Document& document);

/// File > Save As.
void mnuFileSaveAs_Click(Document& document);

/// The question at exit. Returns whether the window stays.
bool AskToSave(Document& document);

}  // namespace morvane
