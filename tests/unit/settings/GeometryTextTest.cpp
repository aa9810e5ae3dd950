#include "settings/GeometryText.h"

#include <gtest/gtest.h>

using namespace wardlock;

TEST(GeometryText, WritesAFrameAsOriginThenSize) {
    EXPECT_EQ(frameToString({{1, 2}, {3, 4}}), "{1.000000, 2.000000, 3.000000, 4.000000}");
}

TEST(GeometryText, WritesASizeAsWidthThenHeight) {
    EXPECT_EQ(sizeToString({320, 568.5}), "{320.000000, 568.500000}");
}

TEST(GeometryText, WritesAPointAsXThenY) {
    EXPECT_EQ(pointToString({-0.25, 1e9}), "{-0.250000, 1000000000.000000}");
}
