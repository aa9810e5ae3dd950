#pragma once

#include "platform/services/DeviceInformation.h"

#include <deque>
#include <string>
#include <vector>

namespace wardlock::test {

/// Replaces the device during its life: returns in turn what the test lined up, the last value again and
/// again, and writes down what it was asked.
class CountingDeviceInformation final : public platform::DeviceInformation {
public:
    CountingDeviceInformation() { setCurrent(this); }
    ~CountingDeviceInformation() override { setCurrent(nullptr); }

    long userInterfaceIdiom() override { return ask("idiom"), idiom; }
    platform::CGRect screenBounds() override { return ask("bounds"), next(bounds); }
    long statusBarOrientation() override { return ask("orientation"), next(orientations); }
    std::string systemVersion() override { return ask("version"), "12"; }
    std::string machine() override { return ask("machine"), "Phone1,1"; }

    long idiom = platform::UIUserInterfaceIdiomPhone;
    std::deque<platform::CGRect> bounds{{{}, {320, 568}}};
    std::deque<long> orientations{platform::UIInterfaceOrientationPortrait};
    std::vector<std::string> asked;

private:
    void ask(const char* what) { asked.emplace_back(what); }

    template <class T>
    T next(std::deque<T>& values) {
        const T value = values.front();
        if (values.size() > 1)
            values.pop_front();
        return value;
    }
};

} // namespace wardlock::test
