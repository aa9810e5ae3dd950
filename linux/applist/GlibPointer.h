#pragma once

#include <gio/gio.h>

#include <memory>

namespace platform::applist {

struct ObjectRelease {
    void operator()(void* object) const { g_object_unref(object); }
};
struct KeyFileRelease {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
struct TextRelease {
    void operator()(char* text) const { g_free(text); }
};
struct TextsRelease {
    void operator()(char** texts) const { g_strfreev(texts); }
};

/// Owns a GObject, and what GLib hands out to be freed.
template <class T>
using ObjectPointer = std::unique_ptr<T, ObjectRelease>;
using KeyFilePointer = std::unique_ptr<GKeyFile, KeyFileRelease>;
using TextPointer = std::unique_ptr<char, TextRelease>;
using TextsPointer = std::unique_ptr<char*, TextsRelease>;

} // namespace platform::applist
