#pragma once

#include "platform/files/Sync.h"

#include <string>

struct sd_bus;

namespace wardlock::bench {

/// Each measures one operation, prints its line, and returns the exit code.
int measureLibplist(const std::string& operation, const std::string& file, const std::string& mode);
int measureContainers(const std::string& operation, const std::string& file);
int measureFloor(const std::string& operation, const std::string& file, const std::string& mode);
int measureBareSignal(const std::string& operation);

/// Replaces the file by the bytes in one step. Keeps no attributes and no old version, and removes no
/// leftovers. The file is synced, and its folder too, as the product does under the same name.
void replaceFile(const std::string& path, const std::string& bytes, platform::Sync sync);
/// Reads into `buffer`, which keeps its capacity between calls; returns the length.
std::size_t readFile(const std::string& path, std::string& buffer);

/// Sends the content of a notification, with nothing around it.
class BareSignal {
public:
    BareSignal();
    ~BareSignal();
    BareSignal(const BareSignal&) = delete;
    BareSignal& operator=(const BareSignal&) = delete;

    void post(bool value);

private:
    sd_bus* bus_;
};

/// The argument that starts the second process of a measurement as a listener for them.
inline constexpr const char* listenForBareSignalsVerb = "listen-bare";
/// The second process; never returns.
[[noreturn]] void listenForBareSignals();

} // namespace wardlock::bench
