#include "results/benchmark.h"

#include "core/line_writer.h"
#include "core/numeric_helpers.h"

namespace solvane {

namespace {

// Building types that stand for two kinds of building: the file's figures
// are the first kind's, these the second's (kBtu per sq.ft., CBECS 2012).
struct SecondKind {
    int type;
    const char* name;
    double site, source;
};
constexpr SecondKind kSecondKinds[] = {
    {3, "Branch bank", 87, 252},    {16, "Doctor's office", 44, 117}, {33, "Mobile home", 80, 151},
    {34, "Shopping mall", 94, 237}, {35, "University", 131, 263},
};
constexpr const char* kFirstKindNames[] = {"Main bank", "Clinic", "Single family home",
                                           "Retail store", "K-12 school"};

}  // namespace

float SurveyValue(double kbtuPerSqft, bool si) {
    return RoundOff(kbtuPerSqft * (si ? 11.36 : 1.0), 0);
}

std::string BenchmarkText(const BenchmarkInput& in) {
    const std::string unit = in.si ? "MJ/sq.m." : "kBtu/sq.ft.";
    const std::string kwhUnit = in.si ? "kWh/sq.m." : "kWh/sq./ft.";
    const float kwh = RoundOff(in.SiteEUI * (in.si ? 0.278 : 0.293), 1);
    const float site = SurveyValue(in.CbecsSiteEUI, in.si);
    const float source = SurveyValue(in.CbecsSourceEUI, in.si);
    const std::string type = NumText(in.BuildingType);

    const SecondKind* second = nullptr;
    const char* firstName = nullptr;
    for (std::size_t i = 0; i < std::size(kSecondKinds); ++i)
        if (kSecondKinds[i].type == in.BuildingType)
            second = &kSecondKinds[i], firstName = kFirstKindNames[i];

    std::string t;
    const auto line = [&t](const std::string& s) { t += s + std::string(CrLf); };
    line("Your " + in.BuildingTypeName + " performance is:");
    line("**Site Line EUI = " + NumText(in.SiteEUI) + "  " + unit + " (or " + NumText(kwh) + " " +
         kwhUnit + ")");
    line("**Source Line EUI = " + NumText(in.SourceEUI) + " " + unit);
    line("");
    line("Typical EUI values from the 2012 CBECS survey were:");
    line("**For " + std::string(second ? firstName : in.BuildingTypeName) + " Buildings (Type " +
         type + "):");
    line("  Site Line EUI = " + NumText(site) + " " + unit + " or " +
         "  Source Line EUI = " + NumText(source) + " " + unit);
    double comparison = site;
    if (second) {
        const float site2 = SurveyValue(second->site, in.si);
        line("**For " + std::string(second->name) + " Buildings (Type " + type + "):");
        line("  Site Line EUI = " + NumText(site2) + " " + unit +
             " or Source Line EUI = " + NumText(SurveyValue(second->source, in.si)) + " " + unit);
        comparison = site2;  // a type's second kind is what it is measured against
    }
    line("");
    if (in.SiteEUI < comparison) {
        const float percent = RoundOff(100 * (comparison - in.SiteEUI) / comparison, 0);
        line("Congratulations!");
        line("** Your Site Line Consumption is " + NumText(percent) + " % less than CBECS.");
        t += "  (though this may not meet the Green Building Target EUI shown below for Climate "
             "Zone " +
             in.ClimateZone + ")";
    } else {
        line("NOTE: Site Line EUI above the CBECS group!");
        t += "[Consider some improvements or check for simple errors, possibly large skylights or "
             "very high occupancy.]";
    }
    return t;
}

}  // namespace solvane
