#include "tests/unit/window/WindowFixture.h"

#include "platform/plist/PropertyListFile.h"
#include "platform/runtime/CFNotificationCenter.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "shell/device/Provision.h"
#include "tests/support/BuildPaths.h"

#include <QAccessible>

namespace wardlock::test {

using platform::Dictionary;
using platform::MutableArray;
using platform::MutableDictionary;
using platform::Value;

WindowFixture::WindowFixture() {
    // The desktop's applications do not belong to the test.
    environment.set("XDG_DATA_DIRS", folder() / "desktop");
    mapWebTo("~NOTFOUND");
    QAccessible::setActive(true);
}

WindowFixture::~WindowFixture() {
    host_.reset();
}

std::vector<std::string> WindowFixture::open(double transitionSeconds, QSize size) {
    const shell::Provision provision;
    host_ = std::make_unique<window::WindowHost>(clock, transitionSeconds);
    EXPECT_NE(host_->window(), nullptr);
    if (!keepsGuard_)
        host_->settings().application().turnOffGuard();
    host_->appearance().force(false);
    host_->appearance().forceTextScale(1);
    host_->settings().showProblems(provision.problems());
    window().resize(size);
    window().show();
    window().requestActivate();
    EXPECT_TRUE(until([&] { return window().isExposed() && window().isActive(); }));
    return provision.problems();
}

void WindowFixture::openWardlock() {
    open();
    scene().tap("row:Wardlock");
    scene().item("row:Passcode");
}

void WindowFixture::openAccount(int index) {
    openWardlock();
    const auto names = accountNames();
    scene().tap("row:" + QString::fromStdString(names.at(static_cast<std::size_t>(index))));
    scene().item("field:Account Name");
}

void WindowFixture::openFixtureBundle() {
    installFixtureBundle();
    open();
    scene().tap("row:Fixture");
    scene().item("row:Flavour");
}

void WindowFixture::mapWebTo(const std::string& address) {
    // Containers have no sandbox to offer and little shared memory in /dev/shm; the only pages are the test's
    // own.
    environment.set("QTWEBENGINE_DISABLE_SANDBOX", "1");
    environment.set("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu --disable-dev-shm-usage --no-proxy-server "
                                                  "--host-resolver-rules=\"MAP * " +
                                                      address + "\"");
}

void WindowFixture::installApplication(const std::string& identifier, const std::string& name) const {
    writeFile("/Applications/" + identifier + ".app/Info.plist",
              "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier +
                  "</string><key>CFBundleDisplayName</key><string>" + name + "</string></dict></plist>");
}

void WindowFixture::setAccounts(std::initializer_list<std::string_view> names) const {
    const Dictionary defaults = DefaultSettings();
    MutableArray accounts;
    for (const auto name : names) {
        MutableDictionary account(defaults.find(kAccounts)->array().at(0).dictionary());
        account.set(kAccountName, name);
        accounts.append(account.copy());
    }
    MutableDictionary document(defaults);
    document.set(kAccounts, accounts.copy());
    writeDocument(document.copy());
}

void WindowFixture::writeDocument(const Dictionary& document) const {
    ASSERT_TRUE(platform::writeToFileAtomically(document, documentPath));
}

Dictionary WindowFixture::document() const {
    const auto document = platform::dictionaryWithContentsOfFile(documentPath);
    EXPECT_TRUE(document) << "there is no document";
    return document.value_or(Dictionary());
}

Value WindowFixture::account(std::size_t index, std::string_view key) const {
    const Dictionary whole = document();
    const Value* value = whole.find(kAccounts)->array().at(index).dictionary().find(key);
    EXPECT_TRUE(value) << "the account has no " << key;
    return value ? *value : Value(false);
}

std::vector<std::string> WindowFixture::accountNames() const {
    std::vector<std::string> names;
    const Dictionary whole = document();
    for (const Value& account : whole.find(kAccounts)->array())
        names.emplace_back(account.dictionary().find(kAccountName)->string());
    return names;
}

void WindowFixture::setInAccount(std::size_t index, std::string_view key, Value value) const {
    MutableDictionary whole(document());
    MutableArray accounts(whole.find(kAccounts)->array());
    MutableDictionary account(accounts.at(index).dictionary());
    account.set(key, std::move(value));
    accounts.replace(index, account.copy());
    whole.set(kAccounts, accounts.copy());
    writeDocument(whole.copy());
}

std::unique_ptr<Process> WindowFixture::listen(int count) const {
    auto enforcer = std::make_unique<Process>(programFolder() + "/test-enforcer",
                                              std::vector<std::string>{std::to_string(count)});
    EXPECT_EQ(enforcer->readLine(), "ready");
    return enforcer;
}

void WindowFixture::announce() {
    using namespace platform;
    static int received = 0;
    // The centre keeps its observers, each once, and notifies them in the order of their registration: this
    // one after the window.
    CFNotificationCenterAddObserver(
        CFNotificationCenterGetDistributedCenter(), &received,
        [](CFNotificationCenter&, void*, std::string_view, const std::string*, const Dictionary*) {
            ++received;
        },
        "com.tavix.wardlock/update", nullptr, CFNotificationSuspensionBehavior::DeliverImmediately);
    const int before = received;
    post({"com.tavix.wardlock/update"});
    EXPECT_TRUE(until([&] { return received > before; }));
    scene().settle();
}

} // namespace wardlock::test
