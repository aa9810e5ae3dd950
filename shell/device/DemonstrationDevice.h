#pragma once

/// A device to try everything out on: some forty invented applications beside those that accounts restrict
/// from the start and services that the picker never offers, and an outbox for mails.

#include <string>
#include <vector>

namespace wardlock::shell {

/// Adds to the device root what it lacks of the demonstration; what stands there stays as it is. Answers one
/// sentence for each thing that could not be made.
std::vector<std::string> furnishDemonstration();

} // namespace wardlock::shell
