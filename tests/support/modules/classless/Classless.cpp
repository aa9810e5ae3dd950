#include "platform/base/Export.h"

extern "C" WARDLOCK_API int answer();

int answer() {
    return 42;
}
