#pragma once

#include "cli/fullscreen/Key.h"
#include "cli/fullscreen/TerminalTraits.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::cli {

/// Prepares keyboard and mouse of the terminal that was taken. Precondition: a CursesTerminal exists.
void setKeys();

/// Reads keys from the terminal that was taken. Characters and pasted text may come in pieces.
class KeyReader {
public:
    /// Returns the next key that has come; none when the rest has not come yet. Waits for nothing but the
    /// rest of a key's sequence, 50 ms at most.
    std::optional<Key> next();

    /// Waits for the terminal's replies to CursesTerminal::askForGround(), and returns the keys that came
    /// meanwhile. A reply that comes later, or in pieces, is taken by next(), and is never a key; only where
    /// the first one breaks off after its first byte, that byte is Escape.
    std::vector<Key> awaitReplies(std::chrono::milliseconds longest);
    bool awaitsReply() const { return awaitsReply_; }
    /// Returns what the terminal replied; Unknown before.
    Ground ground() const { return ground_; }

private:
    /// Returns the key of bytes that begin as a reply does, once they cannot be one.
    std::optional<Key> takeReply(int code);
    std::optional<Key> keyOfNoReply();
    /// Returns the key of a code of the library or byte; none where it is a part of one, or of no use.
    std::optional<Key> keyOf(int code);
    std::optional<Key> keyOfByte(int byte);
    std::optional<Key> afterEscape();
    void takePasted(int code);

    /// The first bytes of a character.
    std::string bytes_;
    std::string pasted_;
    bool pasting_ = false;
    bool awaitsReply_ = false;
    /// Whether the first reply has come, so that the last one is sure to come.
    bool isKindDue_ = false;
    /// The first bytes of a reply, from Escape on.
    std::string reply_;
    /// Whether that Escape was returned as a key already.
    bool escaped_ = false;
    Ground ground_ = Ground::Unknown;
};

} // namespace wardlock::cli
