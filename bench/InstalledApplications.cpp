#include "bench/InstalledApplications.h"

#include "platform/runtime/Class.h"
#include "platform/services/ALApplicationList.h"

#include <array>
#include <memory>
#include <random>

namespace wardlock::bench {

namespace {

class List final : public platform::ALApplicationList {
public:
    platform::Dictionary applications() override { return names; }
    std::shared_ptr<platform::UIImage> iconOfSize(int, std::string_view) override { return nullptr; }

    platform::Dictionary names;
};

class ListClass final : public platform::ALApplicationListClass {
public:
    platform::ALApplicationList& sharedApplicationList() override { return *list; }

    std::shared_ptr<List> list = std::make_shared<List>();
};

ListClass& listClass() {
    static const auto methods = std::make_shared<ListClass>();
    return *methods;
}

platform::Object& classMethods() {
    return listClass();
}

constexpr platform::Class offered("ALApplicationList", nullptr, &classMethods);
constexpr const platform::Class* classes[] = {&offered};

} // namespace

std::vector<std::string> sampleNames(std::size_t count) {
    constexpr std::array first{"Atlas", "bramble", "Cinder", "DOODLE", "Ellipse", "fjord", "Über", "Почта"};
    constexpr std::array second{"Chess", "notes", "PRO", "Reader", "timer", "Walk", "map", "Player"};
    std::mt19937 random(1);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(std::string(first[random() % first.size()]) + ' ' + second[random() % second.size()] +
                        ' ' + std::to_string(random() % count));
    return names;
}

std::string sampleIdentifier(std::size_t number) {
    return "org.example.application" + std::to_string(number);
}

InstalledApplications::InstalledApplications(std::size_t count) {
    platform::MutableDictionary names;
    std::size_t number = 0;
    for (const std::string& name : sampleNames(count))
        names.set(sampleIdentifier(number++), platform::Value(name));
    listClass().list->names = names.copy();
    platform::registerClasses(classes);
}

InstalledApplications::~InstalledApplications() {
    platform::withdrawClasses(classes);
}

} // namespace wardlock::bench
