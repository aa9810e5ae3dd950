// After a deletion Settings offers to take it back.

#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

class UndoOffer : public UndoFixture {
protected:
    void deleteAnn() {
        startWith({"Ann", "Tom"});
        tap("Wardlock");
        deleteAccount("Ann");
    }
};

TEST_F(UndoOffer, NamesTheDeletedAccountForTenSeconds) {
    deleteAnn();
    EXPECT_EQ(offer(), "Ann was deleted");
    clock.step(9.9);
    EXPECT_EQ(offer(), "Ann was deleted");
    clock.step(0.2);
    EXPECT_EQ(offer(), "");
    undo();
    EXPECT_EQ(names(), (Names{"Ann", "Tom"}));
}

TEST_F(UndoOffer, EndsWithTheUndoing) {
    deleteAnn();
    undo();
    EXPECT_EQ(offer(), "");
    redo();
    EXPECT_EQ(names(), Names{"Tom"});
    EXPECT_EQ(offer(), "");
}

TEST_F(UndoOffer, EndsWithTheNextChangeWhichUndoWouldTakeBack) {
    deleteAnn();
    tap("Enabled");
    EXPECT_EQ(offer(), "");
}

TEST_F(UndoOffer, StaysWhileOthersChangeSomething) {
    deleteAnn();
    replaceElsewhere(withAccountValue(0, kRestrictVideo, true));
    EXPECT_EQ(offer(), "Ann was deleted");
    undo();
    EXPECT_EQ(names(), (Names{"Ann", "Tom"}));
    EXPECT_TRUE(isOn(1, kRestrictVideo));
}

TEST_F(UndoOffer, LastsItsOwnTenSecondsAfterAnEarlierOne) {
    startWith({"Ann", "Tom", "Eva"});
    tap("Wardlock");
    deleteAccount("Ann");
    clock.step(6);
    deleteAccount("Tom");
    EXPECT_EQ(offer(), "Tom was deleted");
    clock.step(6);
    EXPECT_EQ(offer(), "Tom was deleted");
    clock.step(4.1);
    EXPECT_EQ(offer(), "");
}

TEST_F(UndoOffer, IsNotMadeForANewAccount) {
    startWith({"Ann"});
    tap("Wardlock");
    createAccount("Tom");
    EXPECT_EQ(offer(), "");
}

TEST_F(UndoOffer, IsMadeForTheLastAccountToo) {
    startWith({"Ann"});
    const std::string before = readFile(documentPath);
    tap("Wardlock");
    deleteAccount("Ann");
    EXPECT_EQ(names(), Names{"Default"});
    EXPECT_EQ(offer(), "Ann was deleted");
    undo();
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(UndoOffer, HasTheNameOnOneLine) {
    startWith({"A\nnn", "Tom"});
    tap("Wardlock");
    deleteAccount("A\nnn");
    EXPECT_EQ(offer(), "A nn was deleted");
}

TEST_F(UndoOffer, IsNotMadeWhereNoVersionsAreKept) {
    writeFile(std::string(documentPath) + ".history", "");
    deleteAnn();
    EXPECT_EQ(names(), Names{"Tom"});
    EXPECT_EQ(offer(), "");
}

} // namespace
} // namespace wardlock::test
