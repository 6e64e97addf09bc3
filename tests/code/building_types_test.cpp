#include "code/building_types.h"

#include <gtest/gtest.h>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "propertydb/envelope_defaults.h"
#include "tests/propertydb/program_folder.h"

namespace solvane {
namespace {

struct TableFixture : ::testing::Test {
    TableFixture() { LoadBuildingTypeTable(m, folder.Paths()); }
    testing::ProgramFolder folder;
    ProjectModel m;
};

TEST_F(TableFixture, FortyRowsWithTheirNumberedRoles) {
    const BuildingTypeTable& t = m.btypes;
    ASSERT_EQ(t.TypeCount, 40);
    EXPECT_EQ(t.BTypeName[3], "Bank");
    EXPECT_EQ(t.BTypeName[16], "Health-Care Clinic");
    EXPECT_EQ(t.BTypeName[24], "Multifamily");
    EXPECT_EQ(t.BTypeName[26], "Office");
    EXPECT_EQ(t.BTypeName[33], "Residential, Single Family");
    EXPECT_EQ(t.BTypeName[34], "Retail");
    EXPECT_EQ(t.BTypeName[35], "School/University");
    EXPECT_EQ(t.BTypeName[39], "Warehouse");
    for (int i = 1; i <= 40; ++i) {
        const auto& c = t.BTypeColumn[i];
        EXPECT_EQ(t.BTypeRowNumber[i], i);
        // Column 1 is the envelope class the program derives from the number.
        EXPECT_EQ(c[1], BuildingClass(i)) << i;
        EXPECT_GE(c[2], 1);
        EXPECT_LE(c[2], 12);
        EXPECT_EQ(t.BTypeProfileGroup[i], c[2]);
        EXPECT_GE(c[3], 1);
        EXPECT_LE(c[3], 7);
        EXPECT_GT(c[6], 0) << i;  // the area per person divides by it
        EXPECT_GE(c[12], 1);
        EXPECT_LE(c[12], 9);
        EXPECT_GE(c[19], 1);
        EXPECT_LE(c[19], 15);
        EXPECT_EQ(t.BTypeSizerText[i], "40");
        EXPECT_GT(t.BTypeEUILow[i], 0);
        EXPECT_GT(t.BTypeEUIHigh[i], t.BTypeEUILow[i]);
    }
    // Skylights of at least 1 % of the roof.
    for (int i : {2, 5, 6, 12, 13, 15, 20, 21, 26, 31, 34, 38, 39, 40})
        EXPECT_EQ(t.BTypeSkylightMin[i], 1) << i;
    EXPECT_EQ(t.BTypeSkylightMin[3], 0);
    // Daylighting on by default in the fifteen types that require it.
    int daylit = 0;
    for (int i = 1; i <= 40; ++i) daylit += t.BTypeColumn[i][7] == 1;
    EXPECT_EQ(daylit, 15);
    for (int i : {2, 5, 6, 12, 13, 15, 20, 21, 26, 34, 36, 37, 38, 39, 40})
        EXPECT_EQ(t.BTypeColumn[i][7], 1) << i;
    // The window sizer table and the alternate texts of types 26 and 34.
    EXPECT_EQ(t.SizerTableA[1], 5);
    EXPECT_EQ(t.SizerTableC[3], 6);
    EXPECT_EQ(t.BTypeSizerAlternate[26], "40");
    EXPECT_EQ(t.BTypeSizerAlternate[34], "40");
}

TEST_F(TableFixture, FiguresMatchThePublishedTables) {
    int rows = 0;
    for (const auto& c : testing::FixtureRows("building_types_published.csv")) {
        ASSERT_EQ(c.size(), 13u);
        const int i = std::stoi(c[0]);
        const auto& col = m.btypes.BTypeColumn[i];
        EXPECT_EQ(m.btypes.BTypeName[i], c[1]);
        EXPECT_FLOAT_EQ(col[2], std::stof(c[3]));
        EXPECT_FLOAT_EQ(col[6], std::stof(c[4])) << i;
        EXPECT_FLOAT_EQ(col[10], std::stof(c[5])) << i;
        EXPECT_FLOAT_EQ(col[11], std::stof(c[6])) << i;
        EXPECT_FLOAT_EQ(col[13], std::stof(c[7])) << i;
        EXPECT_FLOAT_EQ(col[14], std::stof(c[8])) << i;
        EXPECT_FLOAT_EQ(col[15], std::stof(c[9])) << i;
        EXPECT_FLOAT_EQ(col[19], std::stof(c[10])) << i;
        EXPECT_FLOAT_EQ(m.btypes.BTypeEUILow[i], std::stof(c[11])) << i;
        EXPECT_FLOAT_EQ(m.btypes.BTypeEUIHigh[i], std::stof(c[12])) << i;
        ++rows;
    }
    EXPECT_EQ(rows, 40);
    // Office: 90.1-2010 0.9, 90.1-2019 0.64, 189.1-2017 0.69 W/sq.ft.
    EXPECT_FLOAT_EQ(m.btypes.BTypeColumn[26][13], 0.9f);
    EXPECT_FLOAT_EQ(m.btypes.BTypeColumn[26][14], 0.64f);
    EXPECT_FLOAT_EQ(m.btypes.BTypeColumn[26][15], 0.69f);
}

TEST_F(TableFixture, OutdoorAirAddsTheAreaRateBelowADensityOf100) {
    // Office: 5 cfm/person x 5 per 1000 + 0.06 cfm/sq.ft.
    EXPECT_FLOAT_EQ(m.btypes.BTypeOA[26], 0.085f);
    // Motion picture theater, 150 per 1000: the people rate alone.
    EXPECT_FLOAT_EQ(m.btypes.BTypeOA[23], 0.75f);
}

TEST_F(TableFixture, BenchmarkPairsAndSubKinds) {
    m.session.Units = 1;
    const Benchmark office = ComputeBenchmark(m, 26);
    EXPECT_FLOAT_EQ(office.first, m.btypes.BTypeEUILow[26]);
    EXPECT_TRUE(office.firstCaption.empty());
    const Benchmark bank = ComputeBenchmark(m, 3);
    EXPECT_FLOAT_EQ(bank.first, 87);
    EXPECT_FLOAT_EQ(bank.second, 252);
    EXPECT_EQ(bank.firstCaption, "Main bank");
    EXPECT_EQ(ComputeBenchmark(m, 16).secondCaption, "Doctor's office");
    EXPECT_EQ(ComputeBenchmark(m, 33).firstCaption, "Single family home");
    EXPECT_EQ(ComputeBenchmark(m, 34).secondCaption, "Shopping mall");
    EXPECT_FLOAT_EQ(ComputeBenchmark(m, 35).second, 263);
    m.session.Units = 2;
    EXPECT_FLOAT_EQ(ComputeBenchmark(m, 3).first, 988);  // 87 x 11.36 = 988.32
}

TEST(BuildingTypes, MissingTableIsAnError) {
    ProjectModel m;
    EXPECT_THROW(LoadBuildingTypeTable(m, ProgramPaths("/nonexistent/solvane")), ReadError);
}

TEST_F(TableFixture, ProfileGroupBeyondItsFieldIsAnErrorAtItsLine) {
    // The third type's profile group (its second column) made 1e10.
    std::string text = *ReadTextFile(folder.Paths().Resolve(kBuildingTypeFile));
    std::size_t line = 0;
    for (int n = 0; n < 5; ++n) line = text.find('\n', line) + 1;
    const std::size_t column2 = text.find(',', text.find(',', line) + 1) + 1;
    text.replace(column2, text.find(',', column2) - column2, "1e10");
    ProjectModel read;
    try {
        LoadBuildingTypeTable(read, text, "BType2020-Defaults.txt");
        ADD_FAILURE() << "read";
    } catch (const ReadError& e) {
        EXPECT_EQ(e.Line(), 6);
        EXPECT_NE(std::string(e.what()).find("number out of range: 1E+10"), std::string::npos)
            << e.what();
    }
}

}  // namespace
}  // namespace solvane
