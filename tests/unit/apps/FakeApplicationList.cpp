#include "tests/unit/apps/FakeApplicationList.h"

#include <map>

namespace wardlock::test {
namespace {

/// Both the class and its one list.
class List : public platform::ALApplicationListClass {
public:
    class Shared : public platform::ALApplicationList {
    public:
        platform::Dictionary applications() override {
            ++listings;
            return names;
        }
        std::shared_ptr<platform::UIImage> iconOfSize(int size, std::string_view identifier) override {
            iconSizes.push_back(size);
            const auto found = icons.find(identifier);
            return found == icons.end() ? nullptr : found->second;
        }

        platform::Dictionary names;
        std::map<std::string, std::shared_ptr<platform::UIImage>, std::less<>> icons;
        int listings = 0;
        std::vector<int> iconSizes;
    };

    platform::ALApplicationList& sharedApplicationList() override { return *shared; }

    std::shared_ptr<Shared> shared = std::make_shared<Shared>();
};

std::shared_ptr<List> current;

platform::Object& classMethods() {
    return *current;
}

constexpr platform::Class listClass("ALApplicationList", nullptr, &classMethods);
constexpr const platform::Class* classes[] = {&listClass};

} // namespace

FakeApplicationList::FakeApplicationList() {
    current = std::make_shared<List>();
    platform::registerClasses(classes);
}

FakeApplicationList::~FakeApplicationList() {
    platform::withdrawClasses(classes);
    current = nullptr;
}

void FakeApplicationList::setApplications(platform::Dictionary applications) {
    current->shared->names = std::move(applications);
}

std::shared_ptr<platform::UIImage> FakeApplicationList::setIcon(std::string_view identifier) {
    auto icon = std::make_shared<platform::UIImage>(std::string(identifier) + ".png", "");
    current->shared->icons[std::string(identifier)] = icon;
    return icon;
}

int FakeApplicationList::listings() const {
    return current->shared->listings;
}

std::vector<int> FakeApplicationList::iconSizes() const {
    return current->shared->iconSizes;
}

} // namespace wardlock::test
