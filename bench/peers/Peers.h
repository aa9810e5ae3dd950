#pragma once

#include "platform/files/Sync.h"

#include <string>

struct sd_bus;

namespace wardlock::bench {

/// Each measures one operation, prints its line, and answers the exit code.
int measureLibplist(const std::string& operation, const std::string& file, const std::string& mode);
int measureContainers(const std::string& operation, const std::string& file);
int measureFloor(const std::string& operation, const std::string& file, const std::string& mode);
int measureBareSignal(const std::string& operation);

/// Replaces the file by the bytes in one step, with nothing kept and nothing looked for. The file is synced,
/// and its folder too, as the product does under the same name.
void replaceFile(const std::string& path, const std::string& bytes, platform::Sync sync);
/// Reads into `buffer`, which keeps its room between calls; answers the length.
std::size_t readFile(const std::string& path, std::string& buffer);

/// Sends what a notification says, with nothing around it.
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

/// The word by which the second process of a measurement is told to listen for them.
inline constexpr const char* listenForBareSignalsVerb = "listen-bare";
/// The second process; never returns.
[[noreturn]] void listenForBareSignals();

} // namespace wardlock::bench
