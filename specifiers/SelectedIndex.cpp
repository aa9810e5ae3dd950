#include "specifiers/SelectedIndex.h"

namespace wardlock {

extern "C" {
std::intptr_t SelectedIndex = 0;
}

} // namespace wardlock
