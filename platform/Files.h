#pragma once

#include <memory>
#include <string>

#include "document/Platform.h"

namespace morvane {

/// Opens a normal file. Folders, pipes and devices are refused before they are opened.
Result<std::unique_ptr<ByteSource>> OpenRegularFile(const std::string& path);

/// Writes a passing file in the target's folder, flushes it and renames it over the target:
/// whatever happens, the target is the old file or the new one. Symbolic links are followed; owner,
/// group and mode are kept. Folders, pipes, devices and files that may not be written are refused.
/// A file that has several names gets the new content under this one; the others keep the old
/// content.
Failure ReplaceFile(const std::string& path, ByteSource& content);

/// Writes a file in the same way under a name that must be new.
NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content);

}  // namespace morvane
