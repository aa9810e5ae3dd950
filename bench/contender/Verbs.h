#pragma once

#include <string>

namespace wardlock::bench {

/// Operations on a document's bytes and file. FILE is an absolute path of this machine. Each prints one line
/// per measurement.
void measureParse(const std::string& file);
void measureLoad(const std::string& file);
void measureSerialise(const std::string& file);
void measurePeakMemory(const std::string& file);
void measureSave(const std::string& file, const std::string& out, const std::string& mode);
/// Changes FILE.
void measureReadModifyWrite(const std::string& file, const std::string& mode);
/// Looks up one boolean of the enabled account, and one of a record that is loaded already.
void measureLookUp(const std::string& file);

/// Lists the applications of the desktop, with the AppList library of this build.
void measureApplicationList();
/// Sorts the lines of FILE by name, with prepared keys.
void measureSort(const std::string& file);

/// Operations between two processes; each starts its own second one.
void measureNotify();
/// Changes a copy of FILE beside it.
void measurePropagate(const std::string& file, const std::string& mode);
void listenForChanges(const std::string& key);

} // namespace wardlock::bench
