// Every bundled sample run through `solvane-cli run --json`: the summary holds
// its figures, and they agree with one another and with the project.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <filesystem>
#include <string>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

// The command's standard output and exit status.
std::pair<std::string, int> RunCli(const std::string& project) {
    const std::string command = "'" SOLVANE_CLI "' --home '" SOLVANE_PROGRAM_DIR "' run '" +
                                project + "' --repeat-weather --json 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return {"", -1};
    std::string out;
    char buf[4096];
    for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, pipe)) > 0;) out.append(buf, n);
    const int status = pclose(pipe);
    return {out, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

// The floor area of the project's zones, from the file's own lines.
double ZoneFloorArea(const std::string& text) {
    double area = 0;
    for (const auto& line : SplitLines(text))
        if (line.rfind("Flr. Area ", 0) == 0) area += NumVal(line.substr(10));
    return area;
}

class CliJsonTest : public ::testing::TestWithParam<std::string> {};

TEST_P(CliJsonTest, FiguresArePresentAndConsistent) {
    const fs::path project = fs::path(SOLVANE_PROGRAM_DIR) / "sample" / GetParam();
    const auto text = ReadTextFile(project);
    ASSERT_TRUE(text) << project;
    const bool si = SplitLines(*text).at(0).ends_with("SI");

    const auto [out, status] = RunCli(project.string());
    ASSERT_EQ(status, 0) << out;
    QJsonParseError error;
    const QJsonObject s = QJsonDocument::fromJson(QByteArray::fromStdString(out), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << out;
    EXPECT_EQ(s["schema"].toString(), "solvane-run-summary/1");
    EXPECT_EQ(s["units"].toString(), si ? "SI" : "IP");
    EXPECT_EQ(s["run"]["weatherSeed"].toString(), ".83766422");

    // The end uses add up to the total, each one of them a figure.
    const QJsonObject energy = s["siteEnergy"].toObject();
    EXPECT_EQ(energy["unit"].toString(), si ? "GJ" : "MBtu");
    const QJsonObject uses = energy["byEndUse"].toObject();
    ASSERT_GE(uses.size(), 6);
    double sum = 0;
    for (const char* name : {"HEATING", "COOLING", "LIGHTS", "EQUIP", "FANS", "DHW"}) {
        const QString use = name;
        ASSERT_TRUE(uses[use].isDouble()) << use.toStdString();
        EXPECT_GE(uses[use].toDouble(), 0) << use.toStdString();
        sum += uses[use].toDouble();
    }
    const double total = energy["total"].toDouble();
    EXPECT_GT(total, 0);
    EXPECT_NEAR(sum, total, 0.01 * uses.size());
    EXPECT_GT(uses["LIGHTS"].toDouble(), 0);

    // Site EUI is the total over the zones' floor area: kBtu per sq.ft. of
    // MBtu, MJ per sq.m. of GJ.
    const QJsonObject eui = s["eui"].toObject();
    EXPECT_EQ(eui["unit"].toString(), si ? "MJ/m2" : "kBtu/ft2");
    const double area = ZoneFloorArea(*text);
    ASSERT_GT(area, 0);
    EXPECT_NEAR(eui["site"].toDouble(), total * 1000 / area, 0.01 * eui["site"].toDouble() + 0.1);
    EXPECT_GT(eui["source"].toDouble(), eui["site"].toDouble());

    // Peak and annual loads are reported, in the report's units.
    const QJsonObject peak = s["peakLoads"].toObject();
    EXPECT_EQ(peak["unit"].toString(), si ? "kW" : "kBtuh");
    ASSERT_TRUE(peak["cooling"].isDouble());
    ASSERT_TRUE(peak["heating"].isDouble());
    EXPECT_GT(peak["cooling"].toDouble() + peak["heating"].toDouble(), 0);
    const QJsonObject annual = s["annualLoads"].toObject();
    ASSERT_TRUE(annual["heating"].isDouble());
    ASSERT_TRUE(annual["cooling"].isDouble());
    // A building with a heating load uses heating energy.
    if (annual["heating"].toDouble() > 0) {
        EXPECT_GT(uses["HEATING"].toDouble(), 0);
    }
    // What the summary lacks is named, never estimated.
    if (s["annualCost"].isNull()) {
        EXPECT_FALSE(s["notAvailable"].toArray().isEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, CliJsonTest,
                         ::testing::Values("Hotel [four storeys, I-P].inp",
                                           "Primary School [SI].inp", "Retail Store [I-P].inp",
                                           "Single-Family House [two levels, I-P].inp",
                                           "Small Office [two levels, I-P].inp",
                                           "Warehouse [SI].inp"));

}  // namespace
}  // namespace solvane
