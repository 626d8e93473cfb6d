#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Remembers, in a private folder, a rescue copy that the next run has to report.
void WriteRescueNote(const std::string& path);

/// The rescue copies that were noted; forgets them.
std::vector<std::string> TakeRescueNotes();

}  // namespace morvane
