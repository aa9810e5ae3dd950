#include "platform/base/Export.h"

extern "C" WARDLOCK_API int reply();

int reply() {
    return 42;
}
