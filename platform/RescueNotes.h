#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Records in a private folder a rescue copy that the next run has to report.
void WriteRescueNote(const std::string& path);

/// The rescue copies that have been noted.
std::vector<std::string> ReadRescueNotes();

/// Deletes the notes of these copies, and private folders that are empty then.
void DeleteRescueNotes(const std::vector<std::string>& paths);

}  // namespace morvane
