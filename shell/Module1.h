#pragma once

namespace morvane {

/// Sets the style and the other properties of the application object, which must exist.
void SetUpApplication();

/// Runs the program. Returns the exit code.
int RunMorvane(int argc, char** argv);

}  // namespace morvane
