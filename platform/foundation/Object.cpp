#include "platform/foundation/Object.h"

namespace platform {

Object::~Object() = default;

} // namespace platform
