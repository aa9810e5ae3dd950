#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "root/SettingsListController.h"
#include "settings/DefaultSettings.h"
#include "specifiers/SelectedIndex.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ValueText.h"
#include "tests/support/doubles/UnsyncedFileSystem.h"

#include <map>
#include <random>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;
using Record = std::map<std::string, Value>;

Record recordOf(const Dictionary& dictionary) {
    Record record;
    for (const auto& [key, value] : dictionary)
        record.emplace(key, value);
    return record;
}

/// A plain model of the accounts, independent of the product.
class PlainAccounts {
public:
    std::vector<Record> records;

    bool isOn(std::size_t account, const std::string& key) const {
        const auto found = records[account].find(key);
        return found != records[account].end() && found->second == Value(true);
    }
    void store(std::size_t account, const std::string& key, const Value& value) {
        if (key == "kAccountEnabled" && value == Value(true))
            switchFirstOff();
        records[account].insert_or_assign(key, value);
    }
    void remove(std::size_t account) {
        records.erase(records.begin() + static_cast<std::ptrdiff_t>(account));
        if (records.empty())
            records.push_back(recordOf(accountNamed("Default")));
    }
    Array list() const {
        platform::MutableArray list;
        for (const Record& record : records) {
            platform::MutableDictionary dictionary;
            for (const auto& [key, value] : record)
                dictionary.set(key, value);
            list.append(Value(dictionary.copy()));
        }
        return list.copy();
    }

private:
    void switchFirstOff() {
        for (std::size_t account = 0; account < records.size(); ++account) {
            if (isOn(account, "kAccountEnabled")) {
                records[account].insert_or_assign("kAccountEnabled", Value(false));
                return;
            }
        }
    }
};

class AccountSequence : public PageFixture {
protected:
    AccountSequence() { platform::FileSystem::setCurrent(&files); }
    ~AccountSequence() override {
        platform::FileSystem::setCurrent(nullptr);
        SelectedIndex = 0;
    }

    /// From the same beginning each time; everything after it follows from the seed.
    void begin(unsigned seed) {
        random.seed(seed);
        changeElsewhere(1);
        root = std::make_shared<SettingsListController>();
        navigation = platform::UINavigationController::initWithRootViewController(root);
    }
    void step() {
        if (!page())
            return open();
        switch (random() % 12) {
        case 0:
            navigation->popViewControllerAnimated(false);
            break;
        case 1:
            chooseInDeletionAlert(random() % 2 == 0);
            break;
        case 2:
            changeElsewhere(account + 1);
            break;
        case 3:
            rename();
            break;
        case 4:
        case 5:
            flip("kAccountEnabled");
            break;
        default:
            flip(switches()[random() % switches().size()]);
        }
    }
    void compare() {
        ASSERT_TRUE(accounts() == model.list()) << text(accounts()) << "\ninstead of\n" << text(model.list());
        ASSERT_EQ(*document().find("foreign"), Value(7));
        if (!page())
            return;
        for (const std::string& key :
             {std::string("kAccountEnabled"), switches()[random() % switches().size()]})
            ASSERT_EQ(shownOn(key), model.isOn(account, key)) << key;
    }

private:
    std::shared_ptr<AppsController> page() {
        return std::dynamic_pointer_cast<AppsController>(navigation->topViewController());
    }
    std::vector<std::string> switches() {
        std::vector<std::string> keys;
        for (const auto& row : page()->specifiers())
            if (row->cellType() == platform::PSCellType::Switch)
                keys.push_back(row->identifier());
        return keys;
    }
    bool shownOn(const std::string& key) {
        const auto value = rowOfKey(*page(), key)->performGetter();
        return value && platform::boolValue(&*value);
    }
    void open() {
        ASSERT_EQ(SelectedIndex, 0);
        ASSERT_EQ(root->sections().sections().at(1).rows.size(), model.records.size());
        account = random() % model.records.size();
        root->tableViewDidSelectRowAtIndexPath({1, account});
        ASSERT_TRUE(page());
    }
    void flip(const std::string& key) {
        const Value value(!shownOn(key));
        rowOfKey(*page(), key)->performSetter(&value);
        model.store(account, key, value);
        expectOneChange(key, value);
    }
    void rename() {
        const Value typed(random() % 3 == 0 ? "" : "Name " + std::to_string(random() % 5));
        rowOfKey(*page(), "kAccountName")->performSetter(&typed);
        const Value stored = typed == Value("") ? Value("Blank") : typed;
        model.store(account, "kAccountName", stored);
        expectOneChange("kAccountName", stored);
    }
    void chooseInDeletionAlert(bool confirmed) {
        tap(*page(), "Delete Account");
        const auto alert =
            std::dynamic_pointer_cast<platform::UIAlertController>(page()->presentedViewController());
        ASSERT_TRUE(alert);
        alert->choose(alert->actions().at(confirmed ? 1 : 0));
        ASSERT_EQ(page() == nullptr, confirmed);
        if (!confirmed)
            return expectNoChange();
        model.remove(account);
        expectOneChange("kAccounts", Value(accounts()));
    }
    /// Another process writes so many accounts at least; some lack keys, some are enabled.
    void changeElsewhere(std::size_t fewest) {
        model.records.clear();
        const std::size_t count = fewest + random() % 3;
        for (std::size_t i = 0; i < count; ++i) {
            model.records.push_back(recordOf(accountNamed("Made " + std::to_string(i), random() % 3 == 0)));
            if (random() % 2)
                model.records.back().erase(random() % 2 ? "kAccountEnabled" : "kRestrictCC");
        }
        writeDocument({{"kEnabled", true}, {"foreign", 7}, {"kAccounts", model.list()}});
    }

    UnsyncedFileSystem files{platform::FileSystem::current()};
    std::mt19937 random;
    PlainAccounts model;
    std::size_t account = 0;
    std::shared_ptr<SettingsListController> root;
    std::shared_ptr<platform::UINavigationController> navigation;
};

TEST_F(AccountSequence, LeavesDocumentAndPageAsAPlainModelDoes) {
    constexpr unsigned sequences = 12;
    constexpr int steps = 40;
    for (unsigned seed = 0; seed < sequences; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        begin(seed);
        for (int i = 0; i < steps && !HasFailure(); ++i) {
            SCOPED_TRACE("step " + std::to_string(i));
            step();
            ASSERT_NO_FATAL_FAILURE(compare());
        }
    }
}

} // namespace
} // namespace wardlock::test
