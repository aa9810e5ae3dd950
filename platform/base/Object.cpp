#include "platform/base/Object.h"

namespace platform {

Object::~Object() = default;

} // namespace platform
