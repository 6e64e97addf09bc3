// The building's energy use intensity against the 2012 CBECS survey figures
// for its building type: the text of the benchmark screen `EUI`.
#pragma once

#include <string>

namespace solvane {

struct BenchmarkInput {
    double SiteEUI = 0, SourceEUI = 0;  // from the results report, in its units
    bool si = false;                    // the report's units
    int BuildingType = 0;               // 1..40
    std::string BuildingTypeName;
    double CbecsSiteEUI = 0, CbecsSourceEUI = 0;  // kBtu per sq.ft., the type's survey figures
    std::string ClimateZone;
};

// The benchmark text, lines joined by CR LF.
std::string BenchmarkText(const BenchmarkInput& in);

// The survey value shown for a kBtu-per-sq.ft. figure: x 11.36 in SI, whole.
float SurveyValue(double kbtuPerSqft, bool si);

}  // namespace solvane
