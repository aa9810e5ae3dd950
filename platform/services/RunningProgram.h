#pragma once

/// One running program of a kind for each device root: a later start of it brings the first to the front.
/// Main thread only.

#include "platform/base/Export.h"

#include <functional>
#include <memory>
#include <string>

namespace platform {

/// That this process is the running program. A later start is received from the main loop for as long as the
/// object lives.
class RunningProgram {
public:
    virtual ~RunningProgram() = default;
};

struct ProgramStart {
    /// Another process was the running program already, and has been brought to the front.
    bool raisedOther = false;
    /// Null also where there is no bus, or none that replies in time: the program then runs all the same.
    std::unique_ptr<RunningProgram> running;
};

/// Who has started this process: a user or the desktop, or the bus for a caller of the program's name there.
enum class StartedBy { User, Bus };

/// Makes this process the running program of that kind for the device root, over the session bus. Where
/// another process is, it is asked to come to the front. `kind` consists of letters. `activationToken` is
/// what the desktop passed to this process so that it may take the focus; empty for none. `raise` is called
/// with the token of a later start. Waits for a few seconds at most.
///
/// The program of the default device root has the name by which the desktop starts one, too, and so has the
/// one that the bus has started.
WARDLOCK_API ProgramStart startProgram(const std::string& kind, StartedBy by,
                                       const std::string& activationToken,
                                       std::function<void(const std::string& activationToken)> raise);

} // namespace platform
