#pragma once

#include <string>

#include "document/Platform.h"

namespace morvane {

/// Opens a regular file. Folders, pipes and devices are refused without being opened.
OpenedFile OpenRegularFile(const std::string& path);

/// Writes a temporary file in the target's folder, flushes it and renames it over the target, which
/// is the old file or the new one at any time. Symbolic links are followed; owner, group and mode
/// are kept. Folders, pipes, devices and read-only files are refused. If the file has other hard
/// links, those keep the old content.
Failure ReplaceFile(const std::string& path, ByteSource& content);

/// Writes a new file in the same way. Never replaces an existing one.
NewFileOutcome WriteNewFile(const std::string& path, ByteSource& content);

}  // namespace morvane
