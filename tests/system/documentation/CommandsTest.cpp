#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/system/documentation/Console.h"
#include "tests/system/documentation/Untested.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// A reader: a home of their own with a clone of the source in it, built as ./run leaves it.
class Reader : public BusFixture {
protected:
    Reader() {
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
            environment.unset(variable);
        fs::create_directories(clone() + "/build");
        for (const auto& entry : fs::directory_iterator(sourceFolder()))
            if (entry.path().filename() != "build" && entry.path().filename() != ".git")
                fs::create_symlink(entry.path(), fs::path(clone()) / entry.path().filename());
        for (const char* preset : {"release", "dev"})
            fs::create_symlink(buildFolder(), clone() + "/build/" + preset);
        fs::create_directory(folder() / "scratch");
    }

    static std::string home() { return std::getenv("HOME"); }
    static std::string clone() { return home() + "/wardlock"; }

    /// The output as in any user's home.
    static std::string anybodys(std::string output) {
        for (auto at = output.find(home()); at != std::string::npos; at = output.find(home(), at))
            output.replace(at, home().size(), "/home/parent");
        return output;
    }
};

/// What a test does of a page's steps.
std::vector<Step> testedStepsOf(const Page& page) {
    std::vector<Step> steps = stepsOf(page);
    std::erase_if(steps, [](const Step& step) { return isUntested(step.command); });
    return steps;
}

std::vector<std::string> pagesWithTestedSteps() {
    std::vector<std::string> pages = pagesOfTheDocumentation();
    std::erase_if(pages, [](const std::string& path) { return testedStepsOf(Page(path)).empty(); });
    return pages;
}

class Commands : public Reader, public ::testing::WithParamInterface<std::string> {};

TEST_P(Commands, PrintWhatThePageShows) {
    const Page page(GetParam());
    const std::vector<Step> steps = testedStepsOf(page);
    // The README shows how to get the programs; the other pages begin where it has ended.
    if (page.path() != "README.md")
        environment.set("PATH", programFolder() + ':' + std::getenv("PATH"));
    const auto results = perform(steps, clone(), folder() / "scratch");
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const std::string output = anybodys(results[at].output);
        EXPECT_EQ(results[at].exitCode, 0)
            << page.place(steps[at].line) << ": $ " << steps[at].command << '\n'
            << output;
        EXPECT_TRUE(isAsShown(steps[at].output, output))
            << page.place(steps[at].line) << ": $ " << steps[at].command << "\nprints\n"
            << output;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryPage, Commands, ::testing::ValuesIn(pagesWithTestedSteps()),
                         [](const auto& info) { return nameOf(info.param); });

} // namespace
} // namespace wardlock::test
