#pragma once

#include "platform/foundation/Array.h"
#include "platform/foundation/Dictionary.h"
