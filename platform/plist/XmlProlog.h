#pragma once

namespace platform {

/// What the platform writes in front of the value. Most documents begin with exactly this text, so readers
/// try it first.
inline constexpr char xmlProlog[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                    "<plist version=\"1.0\">\n";

} // namespace platform
