#pragma once

#include <string>

namespace wardlock::bench {

/// Operations on a document's bytes and file. FILE is a path of this machine, absolute. Each prints a line a
/// measurement.
void measureParse(const std::string& file);
void measureLoad(const std::string& file);
void measureSerialise(const std::string& file);
void measurePeakMemory(const std::string& file);
void measureSave(const std::string& file, const std::string& out, const std::string& mode);
/// Changes FILE.
void measureReadModifyWrite(const std::string& file, const std::string& mode);
/// One boolean of the enabled account, and one of a record in hand.
void measureLookUp(const std::string& file);

/// The applications of the desktop, as the AppList library of this build lists them.
void measureApplicationList();
/// The lines of FILE by name, keys prepared.
void measureSort(const std::string& file);

/// Operations between two processes; each starts its own second one.
void measureNotify();
/// Changes a copy of FILE beside it.
void measurePropagate(const std::string& file, const std::string& mode);
void listenForChanges(const std::string& key);

} // namespace wardlock::bench
