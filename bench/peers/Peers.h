#pragma once

#include <string>

namespace wardlock::bench {

/// Each measures one operation, prints its line, and answers the exit code.
int measureLibplist(const std::string& operation, const std::string& file, const std::string& mode);
int measureContainers(const std::string& operation, const std::string& file);
int measureFloor(const std::string& operation, const std::string& file, const std::string& mode);
int measureBareSignal(const std::string& operation);

/// Replaces the file by the bytes in one step, with nothing kept and nothing checked.
void replaceFile(const std::string& path, const std::string& bytes, bool sync);

} // namespace wardlock::bench
