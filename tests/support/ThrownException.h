#pragma once

#include "platform/values/NSException.h"

#include <string>

namespace wardlock::test {

/// The name of the exception that `call` throws; empty when it throws none.
template <class Call>
std::string thrown(Call call) {
    try {
        call();
    } catch (const platform::NSException& exception) {
        return exception.name();
    }
    return {};
}

} // namespace wardlock::test
