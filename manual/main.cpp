// Prints one file of the manual: wardlock-manual page|bash|zsh PROGRAM. Run by the build.

#include "manual/Pages.h"

#include <cstdio>
#include <string>
#include <string_view>

int main(int count, char** words) {
    using namespace wardlock::manual;
    if (count != 3)
        return std::fputs("Usage: wardlock-manual page|bash|zsh PROGRAM\n", stderr), 2;
    const std::string_view kind = words[1];
    const Program program =
        std::string_view(words[2]) == "wardlock-settings" ? windowDescription() : commandDescription();
    const std::string text = kind == "page"   ? manualPage(program)
                             : kind == "bash" ? bashCompletion(program)
                                              : zshCompletion(program);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? 0
                                                                                                       : 1;
}
