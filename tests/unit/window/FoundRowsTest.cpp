#include "shell/search/RowIndex.h"
#include "tests/unit/window/WindowFixture.h"
#include "window/models/RowsModel.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class FoundRows : public WindowFixture {};

TEST_F(FoundRows, CanBeReadWhileAnotherSearchReplacesThem) {
    openWardlock();
    window::RowsModel rows(host().settings().application().screen().page());
    const auto found = [](const char* label) {
        shell::FoundRow row;
        row.label = label;
        return row;
    };
    rows.setFilter(platform::SearchWords("zzz"), {found("one"), found("two"), found("three")});
    ASSERT_EQ(rows.rowCount(), 4);
    int read = 0;
    QObject::connect(&rows, &QAbstractItemModel::rowsRemoved, [&] {
        for (int place = 0; place < rows.rowCount(); ++place, ++read)
            rows.data(rows.index(place), window::RowsModel::EntryRole);
    });
    rows.setFilter(platform::SearchWords("zzz"), {found("three")});
    EXPECT_EQ(read, 2);
    const QVariant last = rows.data(rows.index(1), window::RowsModel::EntryRole);
    EXPECT_EQ(last.value<window::RowEntry>().label, QStringLiteral("three"));
}

} // namespace wardlock::test
