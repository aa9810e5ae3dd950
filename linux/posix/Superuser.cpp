#include "platform/services/Superuser.h"

#include <unistd.h>

namespace platform {

bool isSuperuser() {
    return geteuid() == 0;
}

} // namespace platform
