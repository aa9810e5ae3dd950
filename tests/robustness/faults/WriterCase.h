#pragma once

#include "tests/robustness/faults/Writers.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::test {

/// What replaces the document before the act: a symbolic link to another user's file in another
/// folder, nothing, or bytes that are not a document.
enum class Before { Linked, Missing, Damaged };

/// A writer, what it finds and what it makes of it.
struct WriterCase {
    Writer writer;
    Before before = Before::Linked;
    std::string documentBefore;
    std::string documentAfter;

    /// What these bytes (or no file) are, in words: "the old document", "the new document", or neither. A
    /// failed expectation then prints what it found, and not two whole documents.
    std::string what(const std::optional<std::string>& found) const;
    std::string name() const;
};

/// Every writer over a linked document, and one of them over the other things.
const std::vector<WriterCase>& writerCases();

/// A further change to the document as this process reads it now: it is written, and keeps what is there.
void expectNextChangeKeepsTheRest();

void PrintTo(const WriterCase& given, std::ostream* out);

} // namespace wardlock::test
