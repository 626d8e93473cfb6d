#pragma once

namespace morvane {

/// The start-up procedure and the life of the program. Returns the exit code.
int RunMorvane(int argc, char** argv);

}  // namespace morvane
