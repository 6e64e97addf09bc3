#include "results/chart_scale.h"

#include <gtest/gtest.h>

#include <vector>

namespace solvane {
namespace {

double Scale(std::vector<double> v) {
    return ChartScale(v);
}

TEST(ChartScale, RoundsUpOnTheLeadingDigit) {
    EXPECT_DOUBLE_EQ(Scale({12.5, 345.6, 3}), 400);
    EXPECT_DOUBLE_EQ(Scale({70}), 80);
    EXPECT_DOUBLE_EQ(Scale({7}), 7);  // a one-digit whole value is its own scale
    EXPECT_DOUBLE_EQ(Scale({999.9}), 1000);
    EXPECT_NEAR(Scale({0.35}), 0.4, 1e-12);  // ".35": the leading digit counts from the point
}

TEST(ChartScale, NegativeValuesAndZero) {
    EXPECT_DOUBLE_EQ(Scale({-250, 40}), 300);  // a heating credit sets the scale
    EXPECT_DOUBLE_EQ(Scale({0, 0, 0}), 0.1);
    EXPECT_DOUBLE_EQ(Scale({0.01}), 0.2);  // the rule's fixed step below one
    EXPECT_DOUBLE_EQ(Scale({}), 0.1);
}

}  // namespace
}  // namespace solvane
