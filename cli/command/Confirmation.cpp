#include "cli/command/Confirmation.h"

#include "cli/io/LineReader.h"
#include "cli/io/Output.h"

#include <string>
#include <unistd.h>

namespace wardlock::cli {

bool confirms(std::string_view question) {
    Output::prompt(std::string(question) + " [y/N] ");
    LineReader lines(STDIN_FILENO, [](int) { return true; });
    const std::string answer = lines.next().value_or("");
    return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes";
}

} // namespace wardlock::cli
