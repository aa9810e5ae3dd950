#include "tests/support/ViewListPage.h"

#include "tests/support/doubles/PicturingDisplay.h"

#include <gtest/gtest.h>

namespace wardlock::test {

void expectTitle(platform::PSListController& page, const std::string& title) {
    EXPECT_EQ(page.navigationTitle(), title);
    EXPECT_EQ(page.title(), title);
    page.viewWillAppear(false);
    EXPECT_EQ(page.navigationItem().title(), title);
}

std::vector<std::string> picturesOfAppearing(platform::PSListController& page) {
    const auto before = std::make_shared<platform::UIView>(platform::CGRect{{0, 0}, {320, 480}});
    page.setView(before);
    doubles::PicturingDisplay display([&] {
        return page.navigationItem().title() + (page.hasSpecifiers() ? ", list ready" : ", no list") +
               (page.view() == before ? ", view of before" : ", new view");
    });
    page.viewWillAppear(true);
    return display.pictures;
}

} // namespace wardlock::test
