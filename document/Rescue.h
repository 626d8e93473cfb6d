#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// Saves the map in the first folder that accepts it, under a new name that contains the date and
/// time. Returns the path; empty if no folder accepts it.
std::string WriteRescueCopy(Document& document);

/// Records that the map as it is now needs no further rescue copy.
void SettleMap(Document& document);

/// Writes a rescue copy of a map that would be lost: one that isn't blank, differs from its file,
/// and isn't SettledMap. Returns false if no folder accepts it.
bool RescueForSession(Document& document);

/// The same when the process ends: the next run will report the copy.
bool RescueUnsavedMap(Document& document);

/// Keeps the maps that earlier runs left behind as rescue copies. To be called before the first
/// snapshot is taken.
void RescueLeftovers(Document& document);

/// Reports once where the maps of runs that didn't end properly were saved.
void ReportRescueCopies(Document& document);

}  // namespace morvane
