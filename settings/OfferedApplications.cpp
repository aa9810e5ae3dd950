#include "settings/OfferedApplications.h"

#include "settings/ApplicationOrder.h"

namespace wardlock {

using Comparison = platform::NameCollator::Comparison;

platform::MutableArray offeredApplications(const platform::Dictionary& names,
                                           const platform::Array& restricted) {
    ApplicationOrder candidates(names);
    candidates.addAll();
    candidates.remove(hiddenDisplayIdentifiers());
    candidates.sort(Comparison::LocalizedCaseInsensitive);
    candidates.remove(restricted);

    ApplicationOrder top(names);
    top.add(restricted);
    top.sort(Comparison::CaseInsensitive);
    candidates.sort(Comparison::CaseInsensitive);
    platform::MutableArray rows;
    top.appendTo(rows);
    candidates.appendTo(rows);
    return rows;
}

} // namespace wardlock
