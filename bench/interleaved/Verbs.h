#pragma once

#include <string>

namespace wardlock::bench {

/// Each measures an operation and its comparison in turn, and prints a line each. FILE is the path of a
/// document, which is not changed.

/// The root page's list over the memory double of the files, and parsing the document alone.
void measurePage(const std::string& file);
/// The same with every row and its value read.
void measureShownPage(const std::string& file);
/// A tap on a switch of the first account's page, until it returns: stored, synced and announced. Its
/// comparison writes the same bytes with the same syncs.
void measureTap(const std::string& file);
/// updateFile and its floor; changes copies of FILE beside it. `mode` is "none", "fdatasync" or "full".
void measureReadModifyWrite(const std::string& file, const std::string& mode);
/// updateFile with 200 versions beside the document, and without any.
void measureVersions(const std::string& file, const std::string& mode);
/// A notification to another process and a bare signal.
void measureNotify();

} // namespace wardlock::bench
