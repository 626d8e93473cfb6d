#pragma once

#include <string>

#include "document/Platform.h"

class QWidget;

namespace morvane {

enum class FileDialogMode { Open, Save };

/// The message box; it answers to its buttons' letters.
Answer ShowMessage(QWidget* owner, const std::string& text, BoxStyle style,
                   const std::string& title);

/// The file dialog, beginning in a folder; empty after a cancel.
std::string AskForFile(QWidget* owner, const FileDialog& dialog, FileDialogMode mode,
                       const std::string& folder);

/// The folder dialog; empty after a cancel.
std::string AskForFolder(QWidget* owner, const std::string& title);

/// The colour dialog; the colour 0xBBGGRR stays as it is after a cancel.
void AskForColor(QWidget* owner, std::uint32_t& color);

}  // namespace morvane
