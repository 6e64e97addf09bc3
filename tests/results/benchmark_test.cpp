#include "results/benchmark.h"

#include <gtest/gtest.h>

#include "core/text_file.h"

namespace solvane {
namespace {

BenchmarkInput Clinic(double siteEui) {
    BenchmarkInput in;
    in.SiteEUI = siteEui;
    in.SourceEUI = 100;
    in.BuildingType = 16;
    in.BuildingTypeName = "Health-Care Clinic";
    in.CbecsSiteEUI = 60;
    in.CbecsSourceEUI = 150;
    in.ClimateZone = "4A";
    return in;
}

TEST(Benchmark, SecondKindIsTheComparison) {
    // Type 16 is measured against the doctor's office figure, 44.
    const auto lines = SplitLines(BenchmarkText(Clinic(40)));
    EXPECT_EQ(lines[0], "Your Health-Care Clinic performance is:");
    EXPECT_EQ(lines[1], "**Site Line EUI = 40  kBtu/sq.ft. (or 11.7 kWh/sq./ft.)");
    EXPECT_EQ(lines[5], "**For Clinic Buildings (Type 16):");
    EXPECT_EQ(lines[7], "**For Doctor's office Buildings (Type 16):");
    EXPECT_EQ(lines[8], "  Site Line EUI = 44 kBtu/sq.ft. or Source Line EUI = 117 kBtu/sq.ft.");
    EXPECT_EQ(lines[10], "Congratulations!");
    EXPECT_EQ(lines[11], "** Your Site Line Consumption is 9 % less than CBECS.");
    EXPECT_NE(lines[12].find("Climate Zone 4A)"), std::string::npos);
}

TEST(Benchmark, EqualIsAboveAndSiScales) {
    EXPECT_NE(BenchmarkText(Clinic(44)).find("NOTE: Site Line EUI above the CBECS group!"),
              std::string::npos);
    BenchmarkInput office;
    office.si = true;
    office.SiteEUI = 500;
    office.BuildingType = 25;
    office.BuildingTypeName = "Office";
    office.CbecsSiteEUI = 100;
    office.CbecsSourceEUI = 200;
    const auto lines = SplitLines(BenchmarkText(office));
    EXPECT_EQ(lines[1], "**Site Line EUI = 500  MJ/sq.m. (or 139 kWh/sq.m.)");
    EXPECT_EQ(lines[6], "  Site Line EUI = 1136 MJ/sq.m. or   Source Line EUI = 2272 MJ/sq.m.");
    EXPECT_EQ(lines[8], "Congratulations!");
    EXPECT_EQ(lines[9], "** Your Site Line Consumption is 56 % less than CBECS.");
}

}  // namespace
}  // namespace solvane
