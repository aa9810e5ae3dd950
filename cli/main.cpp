#include "cli/command/CommandLine.h"
#include "platform/services/ProcessStart.h"

#include <string_view>
#include <vector>

int main(int count, char** words) {
    using namespace wardlock::cli;
    platform::prepareProcess();
    const std::vector<std::string_view> given(words + (count > 0 ? 1 : 0), words + count);
    return static_cast<int>(runCommandLine(given));
}
