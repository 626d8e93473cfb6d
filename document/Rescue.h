#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// Saves the map under a new name, which says when that was, in the first folder that takes it.
/// Returns the path, or an empty text if no folder does.
std::string WriteRescueCopy(Document& document);

/// Marks the map as it is now as one that needs no further rescue copy.
void SettleMap(Document& document);

/// Writes a rescue copy of a map that would be lost: one that isn't blank, differs from its file,
/// and isn't SettledMap. False if no folder takes it.
bool RescueForSession(Document& document);

/// The same at the end of the process: the next run has to report the copy.
bool RescueUnsavedMap(Document& document);

/// Keeps the maps that earlier runs left behind as rescue copies. To be called before the first
/// snapshot is taken.
void RescueLeftovers(Document& document);

/// Tells the user where the maps of runs that didn't end properly were saved, once.
void ReportRescueCopies(Document& document);

}  // namespace morvane
