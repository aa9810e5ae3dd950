// A program of which one runs for each device root. Prints "running", "raised another" or "alone", and as the
// running one, for each later start, "raised TOKEN". With a token as its argument, the desktop has passed it;
// with
// "--activated", the bus has started it.

#include "platform/runtime/MainLoop.h"
#include "platform/services/RunningProgram.h"

#include <chrono>
#include <cstdio>
#include <string>

namespace {

void print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const std::string argument = argc > 1 ? argv[1] : "";
    const bool byBus = argument == "--activated";
    const auto start = platform::startProgram(
        "Test", byBus ? platform::StartedBy::Bus : platform::StartedBy::User, byBus ? "" : argument,
        [](const std::string& token) { print("raised " + token); });
    print(start.raisedOther ? "raised another" : start.running ? "running" : "alone");
    while (start.running)
        platform::MainLoop::shared().runUntil([] { return false; }, std::chrono::hours(1));
    return 0;
}
