#pragma once

#include "platform/values/Value.h"

#include <string_view>

namespace wardlock::test {

/// User infos that both ends of a test build for themselves:
///   change     what the pages post
///   kinds      every kind of value, with its extremes
///   odd        keys and strings that are not D-Bus text, at several levels
///   deep       120 levels of both containers, each with a few values of other kinds
///   deepest    as many levels as a document may have
///   too-deep   one level more
///   far-too-deep  a million levels more
///   wide       a dictionary of two thousand entries
///   large      data of eight million bytes
///   too-large  data that no bus carries in one message
/// Any other name: {"sample": the name}.
platform::Dictionary sampleUserInfo(std::string_view name);

} // namespace wardlock::test
