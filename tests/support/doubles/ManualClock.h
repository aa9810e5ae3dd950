#pragma once

#include "shell/input/ManualClock.h"

namespace doubles {

/// The clock of scripts as the process's clock while it lives.
class ManualClock : public wardlock::shell::ManualClock {
public:
    ManualClock() { setCurrent(this); }
    ~ManualClock() override { setCurrent(nullptr); }
};

} // namespace doubles
