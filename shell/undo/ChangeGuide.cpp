#include "shell/undo/ChangeGuide.h"

#include "settings/Constants.h"
#include "settings/Keys.h"
#include "settings/SettingLabels.h"

#include <algorithm>
#include <utility>

namespace wardlock::shell {

using platform::NSIndexPath;

namespace {

/// Positions of pages on the stack.
constexpr std::size_t listPlace = 1;
constexpr std::size_t accountPlace = 2;
constexpr std::size_t pickerPlace = 3;
/// Back to the first page from the lowest, then down to the lowest again.
constexpr std::size_t mostSteps = 6;

/// Returns whether the change that was taken back, or made again, has enabled an account.
bool isEnabling(const Change& change, ChangedPlace::Direction direction) {
    const auto& value = direction == ChangedPlace::Direction::Back ? change.old : change.now;
    return change.key == kAccountEnabled && value && platform::boolValue(&*value);
}

bool isOfEnabling(const Change& change) {
    return change.kind == Change::Kind::AccountValue && change.key == kAccountEnabled;
}

ChangedPlace placeOf(const Change& change) {
    switch (change.kind) {
    case Change::Kind::AccountValue:
        return {change.after, change.key};
    case Change::Kind::AccountAdded:
        return {change.after, ""};
    case Change::Kind::AccountDeleted:
        return {};
    case Change::Kind::TopLevelValue:
        break;
    }
    return {std::nullopt, change.key};
}

/// Returns the row of a key, else the one with its label, else the first one below its label as a header.
std::optional<NSIndexPath> rowOf(Page& page, std::string_view key, std::string_view label) {
    if (!page.isList())
        return std::nullopt;
    const auto sections = page.listController()->sections().sections();
    std::optional<NSIndexPath> labelled;
    std::optional<NSIndexPath> below;
    for (std::size_t section = 0; section < sections.size(); ++section)
        for (std::size_t row = 0; row < sections[section].rows.size(); ++row) {
            const auto& specifier = *sections[section].rows[row];
            if (specifier.identifier() == key)
                return NSIndexPath{section, row};
            if (!labelled && specifier.name() == label)
                labelled = NSIndexPath{section, row};
            if (!below && sections[section].header() == label)
                below = NSIndexPath{section, row};
        }
    return labelled ? labelled : below;
}

std::string_view documentLabel(std::string_view key) {
    const auto found = std::ranges::find(documentLabels(), key, &SettingLabel::key);
    return found == documentLabels().end() ? key : found->label;
}

} // namespace

ChangedPlace ChangedPlace::of(const std::vector<Change>& changes, Direction direction) {
    if (changes.empty())
        return {};
    const auto enabled =
        std::ranges::find_if(changes, [&](const Change& change) { return isEnabling(change, direction); });
    if (enabled != changes.end() && std::ranges::all_of(changes, isOfEnabling))
        return placeOf(*enabled);
    const auto added = std::ranges::find(changes, Change::Kind::AccountAdded, &Change::kind);
    if (added != changes.end())
        return placeOf(*added);
    return changes.size() == 1 ? placeOf(changes.front()) : ChangedPlace{};
}

void ChangeGuide::proceed() {
    if (!way_ || boundary_.isInside() || screen_.isInTransition())
        return;
    // Taken first: leaving the boundary comes here again.
    const Way way = *std::exchange(way_, std::nullopt);
    const bool isOutside = screen_.pages().size() <= listPlace;
    if (screen_.obstacle() || way.steps == mostSteps || (isOutside && way.hasOpened))
        return;
    boundary_.enter([&] {
        if (takeStep(way.place) == Step::Another)
            way_ = Way{way.place, way.steps + 1, way.hasOpened || isOutside};
    });
}

ChangeGuide::Step ChangeGuide::takeStep(const ChangedPlace& place) {
    const auto& pages = screen_.pages();
    if (pages.size() <= listPlace)
        return openBundle();
    // The pages of another bundle have no list of accounts.
    if (!account_.rowOf(0))
        return Step::Last;
    if (!place.isInAccount())
        return showOnList(place);
    if (pages.size() == accountPlace)
        return tap(account_.rowOf(*place.account));
    if (account_.position() != place.account)
        return goBackTo(listPlace) ? Step::Another : Step::Last;
    return showOnAccountPage(place);
}

ChangeGuide::Step ChangeGuide::openBundle() {
    return tap(rowOf(*screen_.page(), BundleIdentifier, BundleIdentifier));
}

ChangeGuide::Step ChangeGuide::showOnList(const ChangedPlace& place) {
    if (goBackTo(listPlace))
        return Step::Another;
    if (place.account)
        showRow(listPlace, account_.rowOf(*place.account));
    else if (!place.key.empty())
        showRow(listPlace, rowOf(*screen_.page(), place.key, documentLabel(place.key)));
    return Step::Last;
}

ChangeGuide::Step ChangeGuide::showOnAccountPage(const ChangedPlace& place) {
    Page& page = *screen_.pages()[accountPlace];
    const auto row = rowOf(page, place.key, accountLabel(place.key));
    const auto specifier = row ? page.specifier(*row) : nullptr;
    if (specifier && specifier->cellType() == platform::PSCellType::Link)
        return showPicker(*row);
    if (goBackTo(accountPlace))
        return Step::Another;
    showRow(accountPlace, row);
    return Step::Last;
}

ChangeGuide::Step ChangeGuide::showPicker(NSIndexPath row) {
    const auto& pages = screen_.pages();
    if (pages.size() == pickerPlace) {
        tap(row);
        return Step::Last;
    }
    const auto* opened = pages[pickerPlace]->listController();
    if (opened && opened->specifier() == pages[accountPlace]->specifier(row))
        return Step::Last;
    return goBackTo(accountPlace) ? Step::Another : Step::Last;
}

ChangeGuide::Step ChangeGuide::tap(const std::optional<NSIndexPath>& row) {
    return row && input_.tapRow(*row) ? Step::Another : Step::Last;
}

bool ChangeGuide::goBackTo(std::size_t page) {
    const auto& pages = screen_.pages();
    if (pages.size() == page + 1)
        return false;
    screen_.navigation().popToViewController(pages[page]->controller(), true);
    return true;
}

void ChangeGuide::showRow(std::size_t page, const std::optional<NSIndexPath>& row) {
    if (row)
        changes_.found(screen_.pages()[page], *row);
}

} // namespace wardlock::shell
