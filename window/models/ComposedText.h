#pragma once

namespace wardlock::window {

/// Makes the text that an input method is still composing a part of the field that has the keyboard focus.
/// To be called before the editing ends other than by the loss of the focus.
void commitComposedText();

} // namespace wardlock::window
