// A program of somebody else's that links the installed settings library.

#include <cstdio>
#include <settings/EnabledAccount.h>
#include <settings/Keys.h>
#include <settings/Settings.h>

int main() {
    std::puts(wardlock::boolForKey(wardlock::kEnabled) && !wardlock::AccountEnabled() ? "switched on"
                                                                                      : "wrong");
    return 0;
}
