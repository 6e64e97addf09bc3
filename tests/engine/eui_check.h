// Site EUI of the bundled sample buildings in three climates (eui_check.cpp).
#pragma once

#include <string>
#include <vector>

#include "bestest_cases.h"

namespace solvane::engine::testing {

struct EuiSample {
    std::string file, type, surveyType;
    double median = 0, p25 = 0, p75 = 0;  // kBtu/ft2 site; 0: no survey figure
};
struct EuiClimate {
    std::string name, weatherFrom;  // the sample whose weather block it is
};
struct EuiResult {
    double siteEui = 0, floorFt2 = 0, electricShare = 0;
    int unmetHours = 0;
};

const std::vector<EuiSample>& EuiSamples();
const std::vector<EuiClimate>& EuiClimates();
EuiResult RunEui(const EuiSample& sample, const EuiClimate& climate);

}  // namespace solvane::engine::testing
