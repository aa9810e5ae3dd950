#include "platform/ui/UITableView.h"

#include "platform/ui/UISwitch.h"

#include <gtest/gtest.h>

#include <vector>

namespace platform {
namespace {

class Source : public Object, public UITableViewDataSource {
public:
    std::size_t tableViewNumberOfRowsInSection(UITableView&, std::size_t) override { return 3; }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath) override {
        if (auto cell = table.dequeueReusableCellWithIdentifier("cell"))
            return cell;
        ++made;
        return UITableViewCell::initWithStyle(UITableViewCellStyle::Value1, "cell");
    }
    int made = 0;
};

TEST(UITableView, ReusesAReturnedCell) {
    const auto table = std::make_shared<UITableView>(CGRectZero, UITableViewStyle::Grouped);
    const auto source = std::make_shared<Source>();
    table->setDataSource(source);
    const auto first = table->takeCell({0, 0});
    table->giveBack(first);
    EXPECT_EQ(table->takeCell({0, 1}), first);
    EXPECT_NE(table->takeCell({0, 2}), first);
    EXPECT_EQ(source->made, 2);
}

TEST(UITableView, HasNoSectionsWithoutADataSource) {
    UITableView table(CGRectZero, UITableViewStyle::Grouped);
    EXPECT_EQ(table.numberOfSections(), 0U);
    EXPECT_EQ(table.takeCell({0, 0}), nullptr);
}

TEST(UITableViewCell, IsTheSuperviewOfItsAccessory) {
    const auto cell = UITableViewCell::initWithStyle(UITableViewCellStyle::Value1, "cell");
    const auto accessory = std::make_shared<UISwitch>(CGRectZero);
    cell->setAccessoryView(accessory);
    EXPECT_EQ(accessory->superview(), cell);
}

class Target : public Object {
public:
    void changed(UIControl& sender) { states.push_back(dynamic_cast<UISwitch&>(sender).isOn()); }
    std::vector<bool> states;
};

TEST(UISwitch, NotifiesItsTargetAfterATapAndNotWhenItIsSet) {
    const auto control = std::make_shared<UISwitch>(CGRectZero);
    const auto target = std::make_shared<Target>();
    control->addTarget(target, UIControl::Action::of<&Target::changed>("changed"),
                       UIControlEventValueChanged);
    control->setOn(true, false);
    EXPECT_TRUE(target->states.empty());
    control->toggle();
    EXPECT_EQ(target->states, std::vector{false});
}

TEST(UISwitch, DropsATargetThatIsGone) {
    const auto control = std::make_shared<UISwitch>(CGRectZero);
    control->addTarget(std::make_shared<Target>(), UIControl::Action::of<&Target::changed>("changed"),
                       UIControlEventValueChanged);
    control->toggle();
    EXPECT_TRUE(control->isOn());
}

} // namespace
} // namespace platform
