#include "studies/sweep_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {
namespace {

namespace fs = std::filesystem;

struct TempDir {
    fs::path dir = fs::temp_directory_path() / ("solvane_sweepfile_" + std::to_string(::getpid()));
    TempDir() {
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    ~TempDir() { fs::remove_all(dir); }
};

SweepRow Row(int region, int ordinal, const std::string& station, double eui) {
    SweepRow r;
    r.region = region, r.ordinal = ordinal, r.station = station, r.state = "Alberta";
    r.wmo = "712850", r.climateZone = "7", r.latitude = "54.3", r.longitude = "-113";
    r.summerDryBulb = "85.6", r.summerWetBulb = "60.3", r.winterDryBulb = "-37";
    r.units = "IP", r.status = "ok";
    r.figures.assign(std::size(kSweepFigures), "");
    r.figures[0] = std::to_string(eui);
    return r;
}

TEST(SweepCsv, QuotesWhatNeedsItAndReadsItBack) {
    TempDir t;
    SweepRow odd = Row(5, 12, "Saint-Denis, \"Gillot\"", 61.5);
    odd.status = "simulation not completed";
    WriteSweepCsv(t.dir / "a.csv", {Row(2, 3, "Abee AgDM", 93.5), odd});
    const SweepFile read = ReadSweepCsv(t.dir / "a.csv");
    ASSERT_EQ(read.rows.size(), 2u);
    EXPECT_EQ(read.droppedLines, 0);
    EXPECT_EQ(read.rows[1].station, "Saint-Denis, \"Gillot\"");
    EXPECT_EQ(SweepCsvLine(read.rows[1]), SweepCsvLine(odd));
    EXPECT_EQ(SplitCsvLine("a,\"b,c\",\"d\"\"e\",\r"),
              (std::vector<std::string>{"a", "b,c", "d\"e", ""}));
    // Lines end CR LF.
    EXPECT_NE(ReadTextFile(t.dir / "a.csv")->find("\r\n2,3,"), std::string::npos);
}

TEST(SweepJson, WritesTheFiguresAsJsonNumbersAndBlanksAsNull) {
    TempDir t;
    SweepRow r = Row(2, 3, "Abee AgDM", 0);
    r.figures[0] = ".5", r.figures[1] = "-.25", r.figures[2] = "";
    r.winterDryBulb = "-37";
    WriteSweepJson(t.dir / "a.json", {r});
    const std::string json = *ReadTextFile(t.dir / "a.json");
    EXPECT_NE(json.find("\"siteEUI\": 0.5, \"sourceEUI\": -0.25, \"endUse.HEATING\": null"),
              std::string::npos)
        << json;
    EXPECT_NE(json.find("\"winterDryBulb\": -37}"), std::string::npos);
    EXPECT_EQ(json.find(": ."), std::string::npos);
}

TEST(SweepCsv, WritesInStationOrderWithTheLastRowOfAStation) {
    TempDir t;
    WriteSweepCsv(t.dir / "a.csv",
                  {Row(5, 2, "B", 1), Row(2, 9, "A", 2), Row(5, 2, "B", 3), Row(2, 10, "C", 4)});
    const auto rows = ReadSweepCsv(t.dir / "a.csv").rows;
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Key(), "2:9");
    EXPECT_EQ(rows[1].Key(), "2:10");
    EXPECT_EQ(rows[2].Key(), "5:2");
    EXPECT_EQ(NumVal(rows[2].figures[0]), 3);
}

TEST(SweepCsv, RefusesAFileThatIsNotASweepNamingIt) {
    TempDir t;
    WriteFileAtomic(t.dir / "other.csv", "name,value\r\na,1\r\n");
    try {
        ReadSweepCsv(t.dir / "other.csv");
        FAIL();
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("other.csv, line 1"), std::string::npos);
    }
}

TEST(SweepWriter, ContinuesAStoppedFileWithoutItsTornLastLine) {
    TempDir t;
    const fs::path file = t.dir / "sweep.csv";
    {
        SweepWriter w(file);
        EXPECT_TRUE(w.Done().empty());
        w.Append(Row(2, 1, "A", 1));
        w.Append(Row(2, 2, "B", 2));
    }
    // A sweep stopped in the middle of its third row.
    {
        std::ofstream out(file, std::ios::app | std::ios::binary);
        out << "2,3,Albert Hall AgCM,Alb";
    }
    EXPECT_EQ(ReadSweepCsv(file).droppedLines, 1);
    {
        SweepWriter w(file);
        EXPECT_EQ(w.Done().size(), 2u);
        EXPECT_TRUE(w.Done().count("2:2"));
        EXPECT_FALSE(w.Done().count("2:3"));
        w.Append(Row(2, 3, "C", 3));
    }
    const SweepFile after = ReadSweepCsv(file);
    EXPECT_EQ(after.droppedLines, 0);
    ASSERT_EQ(after.rows.size(), 3u);
    EXPECT_EQ(after.rows[2].station, "C");
}

TEST(MergeSweepParts, GivesEveryStationOnceInStationOrder) {
    TempDir t;
    WriteSweepCsv(t.dir / "part-2.csv", {Row(3, 1, "C", 3), Row(3, 2, "D", 4)});
    WriteSweepCsv(t.dir / "part-1.csv", {Row(2, 1, "A", 1), Row(2, 2, "B", 2)});
    // A job run twice (a retried array task) gives the same rows again.
    WriteSweepCsv(t.dir / "part-1b.csv", {Row(2, 2, "B", 2)});
    const auto merged =
        MergeSweepParts({t.dir / "part-2.csv", t.dir / "part-1.csv", t.dir / "part-1b.csv"});
    ASSERT_EQ(merged.size(), 4u);
    WriteSweepCsv(t.dir / "merged.csv", merged);
    WriteSweepCsv(t.dir / "whole.csv",
                  {Row(2, 1, "A", 1), Row(2, 2, "B", 2), Row(3, 1, "C", 3), Row(3, 2, "D", 4)});
    EXPECT_EQ(ReadTextFile(t.dir / "merged.csv"), ReadTextFile(t.dir / "whole.csv"));
}

TEST(MergeSweepParts, RefusesTwoPartsThatDisagreeOnAStation) {
    TempDir t;
    WriteSweepCsv(t.dir / "p1.csv", {Row(2, 1, "A", 1)});
    WriteSweepCsv(t.dir / "p2.csv", {Row(2, 1, "A", 7)});
    EXPECT_THROW(MergeSweepParts({t.dir / "p1.csv", t.dir / "p2.csv"}), std::runtime_error);
}

}  // namespace
}  // namespace solvane
