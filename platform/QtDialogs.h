#pragma once

#include <string>

#include "document/Platform.h"

class QWidget;

namespace morvane {

enum class FileDialogMode { Open, Save };

/// Shows a message box. Its buttons have access keys.
Answer ShowMessage(QWidget* owner, const std::string& text, BoxStyle style,
                   const std::string& title);

/// Shows the file dialog in a folder. Returns the path; empty after a cancel.
std::string AskForFile(QWidget* owner, const FileDialog& dialog, FileDialogMode mode,
                       const std::string& folder);

/// Shows the folder dialog. Returns the path; empty after a cancel.
std::string AskForFolder(QWidget* owner, const std::string& title);

/// Shows the colour dialog. A cancel leaves the colour 0xBBGGRR unchanged.
void AskForColor(QWidget* owner, std::uint32_t& color);

}  // namespace morvane
