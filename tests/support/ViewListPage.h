// What every page with a view in place of rows is tested for.
#pragma once

#include "platform/preferences/PSListController.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// Expects the title in the page and, once it is about to appear, in its bar.
void expectTitle(platform::PSListController& page, const std::string& title);

/// Makes the page appear, and returns what its display showed during that, in order. Each picture has the
/// title in the bar, whether the list of rows was ready, and whether the view was the page's new one.
std::vector<std::string> picturesOfAppearing(platform::PSListController& page);

} // namespace wardlock::test
