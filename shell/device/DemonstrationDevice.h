#pragma once

/// A device for trying everything out. It has some forty invented applications, those that accounts restrict
/// from the start, services that the picker never offers, and an outbox for mails.

#include <string>
#include <vector>

namespace wardlock::shell {

/// Adds to the device root what it lacks of the demonstration; existing files stay as they are. Returns one
/// sentence for each thing that could not be created.
std::vector<std::string> furnishDemonstration();

} // namespace wardlock::shell
