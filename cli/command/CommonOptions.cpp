#include "cli/command/CommonOptions.h"

#include "cli/io/PlainJson.h"
#include "cli/io/TypedJson.h"

#include <nlohmann/json.hpp>

namespace wardlock::cli {

bool wantsJson(const Arguments& arguments) {
    return arguments.has(jsonOption.name) || arguments.has(typedOption.name);
}

Json jsonOf(const Arguments& arguments, const platform::Value* value) {
    return arguments.has(typedOption.name) ? typedJson(value) : plainJson(value);
}

} // namespace wardlock::cli
