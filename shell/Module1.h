#pragma once

namespace morvane {

/// Runs the program. Returns the exit code.
int RunMorvane(int argc, char** argv);

}  // namespace morvane
