#pragma once

#include "platform/values/Value.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// A writer of the preferences document, as a script (docs/automation.md). It has the commands that lead up
/// to the write, the one act that writes, and the commands that make another write afterwards.
///
/// A command is not a page: it has no lines, but `words`.
struct Writer {
    std::string name;
    std::vector<std::string> opening;
    std::string act;
    std::vector<std::string> again;
    /// What the act does to the document, or what the earlier command has done to it.
    void (*change)(platform::MutableDictionary& document);
    /// The words of the command; "DOCUMENT" stands for the document's path on this machine.
    std::vector<std::string> words = {};
    /// What the command reads from standard input.
    std::string input = {};
    /// Whether the write is announced: by all but `plist set`.
    bool announces = true;
    /// Whether it needs the installed applications, and so the real disk.
    bool needsApplications = false;
    /// The words of a command that ran before, and made the change that this writer takes back.
    std::vector<std::string> earlier = {};

    bool isCommand() const { return act.empty(); }
    /// The document that the act finds, and the one that it leaves.
    std::string documentBefore() const;
    std::string documentAfter() const;
    /// The document that the earlier command found, or the act itself.
    std::string firstDocument() const;
};

/// All of them.
const std::vector<Writer>& writers();

/// The words of a command, for the document at the path.
std::vector<std::string> wordsFor(const Writer& writer, const std::string& path);

/// The Info.plist of the one installed application, and its device path.
std::string applicationInfo();
inline constexpr const char* applicationInfoPath = "/Applications/Chess.app/Info.plist";

} // namespace wardlock::test
