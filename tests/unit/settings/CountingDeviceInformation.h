#pragma once

#include "platform/services/DeviceInformation.h"

#include <deque>
#include <string>
#include <vector>

namespace wardlock::test {

/// Stands in for the device while it lives: answers in turn what the test lined up, the last answer again and
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
    T next(std::deque<T>& answers) {
        const T answer = answers.front();
        if (answers.size() > 1)
            answers.pop_front();
        return answer;
    }
};

} // namespace wardlock::test
