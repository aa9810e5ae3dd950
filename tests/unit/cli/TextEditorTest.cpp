#include "cli/fullscreen/TextEditor.h"

#include <gtest/gtest.h>

namespace wardlock::cli {
namespace {

using Outcome = TextEditor::Outcome;

Key character(const char* text) {
    return {.kind = KeyKind::Character, .text = text};
}

Key key(KeyKind kind) {
    return {.kind = kind};
}

Key control(char letter) {
    return {.kind = KeyKind::Control, .character = static_cast<char32_t>(letter)};
}

TEST(TextEditor, InsertsAtTheCaret) {
    TextEditor editor("ac");
    EXPECT_EQ(editor.handle(key(KeyKind::Left)), Outcome::Moved);
    EXPECT_EQ(editor.handle(character("b")), Outcome::Changed);
    EXPECT_EQ(editor.text(), "abc");
    EXPECT_EQ(editor.caret(), 2U);
}

TEST(TextEditor, MovesAndErasesACharacterWithItsMarks) {
    TextEditor editor("xe\u0301中");
    editor.handle(key(KeyKind::Left));
    editor.handle(key(KeyKind::Left));
    EXPECT_EQ(editor.caret(), 1U);
    EXPECT_EQ(editor.handle(key(KeyKind::Delete)), Outcome::Changed);
    EXPECT_EQ(editor.text(), "x中");
    EXPECT_EQ(editor.handle(key(KeyKind::Delete)), Outcome::Changed);
    EXPECT_EQ(editor.handle(key(KeyKind::Delete)), Outcome::Moved);
    EXPECT_EQ(editor.handle(key(KeyKind::Backspace)), Outcome::Changed);
    EXPECT_EQ(editor.text(), "");
}

TEST(TextEditor, MovesAndErasesWords) {
    TextEditor editor("one two  three");
    editor.handle(key(KeyKind::WordLeft));
    EXPECT_EQ(editor.caret(), 9U);
    editor.handle(control('w'));
    EXPECT_EQ(editor.text(), "one three");
    editor.handle(key(KeyKind::Home));
    editor.handle(key(KeyKind::WordRight));
    EXPECT_EQ(editor.caret(), 3U);
    editor.handle(control('k'));
    EXPECT_EQ(editor.text(), "one");
    editor.handle(control('u'));
    EXPECT_EQ(editor.text(), "");
}

TEST(TextEditor, KeepsOneLineWhateverIsPasted) {
    TextEditor editor;
    editor.handle({.kind = KeyKind::Paste, .text = "a\nb\n"});
    EXPECT_EQ(editor.text(), "a b");
    EXPECT_EQ(editor.handle(key(KeyKind::Enter)), Outcome::Ignored);
}

TEST(TextEditor, KeepsToItsLineInATextOfMany) {
    TextEditor editor("one\ntwo", TextEditor::Lines::Many);
    editor.moveTo(1);
    editor.handle(key(KeyKind::End));
    EXPECT_EQ(editor.caret(), 3U);
    editor.handle(key(KeyKind::Enter));
    EXPECT_EQ(editor.text(), "one\n\ntwo");
    editor.handle(key(KeyKind::End));
    EXPECT_EQ(editor.caret(), 4U);
    editor.handle(key(KeyKind::Right));
    editor.handle(key(KeyKind::End));
    editor.handle(key(KeyKind::Home));
    EXPECT_EQ(editor.caret(), 5U);
}

TEST(TextEditor, PutsTheCaretBetweenCharacters) {
    TextEditor editor("中a");
    editor.moveTo(1);
    EXPECT_EQ(editor.caret(), 0U);
    editor.moveTo(100);
    EXPECT_EQ(editor.caret(), 4U);
}

} // namespace
} // namespace wardlock::cli
