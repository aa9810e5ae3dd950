#pragma once

#include <glib.h>

#include <memory>

namespace platform::applist {

struct KeyFileRelease {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};
struct TextRelease {
    void operator()(char* text) const { g_free(text); }
};
struct TextsRelease {
    void operator()(char** texts) const { g_strfreev(texts); }
};

/// Owns what GLib returns to be freed.
using KeyFilePointer = std::unique_ptr<GKeyFile, KeyFileRelease>;
using TextPointer = std::unique_ptr<char, TextRelease>;
using TextsPointer = std::unique_ptr<char*, TextsRelease>;

} // namespace platform::applist
