#pragma once

#include <array>

namespace wardlock::test {

/// The parts of an account's page that take taps, from top to bottom.
inline constexpr std::array accountRows = {"switch:Enabled",
                                           "field:Account Name",
                                           "row:Apps",
                                           "switch:Disable Lockscreen Passcode",
                                           "switch:Hide Icons",
                                           "switch:Editing",
                                           "switch:Dragging",
                                           "switch:Uninstall",
                                           "switch:Power Down",
                                           "switch:Siri",
                                           "switch:Control Center",
                                           "switch:Notification Center",
                                           "switch:App Switcher",
                                           "switch:App Switcher Contacts",
                                           "switch:Keyboard",
                                           "switch:Volume Buttons",
                                           "switch:Vibrate Switch",
                                           "switch:Camera",
                                           "switch:Video",
                                           "row:Delete Account"};

} // namespace wardlock::test
