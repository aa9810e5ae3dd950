#pragma once

#include <string>
#include <vector>

namespace wardlock::test {

/// The processes with the text in a word of their command line.
std::vector<int> processesNaming(const std::string& text);

/// The processes that serve the own bus of a folder. The product starts them to outlive their starter,
/// so a test ends them itself.
std::vector<int> busDaemonsOf(const std::string& folder);

/// Kills the process and waits for its end.
void endBusDaemon(int process);

} // namespace wardlock::test
