#include <gtest/gtest.h>

#include <filesystem>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {
namespace {

TEST(ItemReader, QuotedAndUnquotedItems) {
    ItemReader r("\"Office, small\", 12.5 ,abc  \r\n  7 8,\"q\"\r\nlast line, kept\r\n", "t.txt");
    EXPECT_EQ(r.NextText(), "Office, small");
    EXPECT_EQ(r.NextNumber(), 12.5);
    EXPECT_EQ(r.NextText(), "abc");
    EXPECT_EQ(r.LineNumber(), 2);
    EXPECT_EQ(r.NextNumber(), 7);  // a blank ends a number
    EXPECT_EQ(r.NextNumber(), 8);
    EXPECT_EQ(r.NextText(), "q");
    EXPECT_EQ(r.NextLine(), "last line, kept");
    EXPECT_TRUE(r.AtEnd());
}

TEST(ItemReader, EmptyItemsAndBareLineEnds) {
    ItemReader r("a,,b\n\nc", "t.txt");
    EXPECT_EQ(r.NextText(), "a");
    EXPECT_EQ(r.NextText(), "");
    EXPECT_EQ(r.NextText(), "b");
    EXPECT_EQ(r.NextText(), "");
    EXPECT_EQ(r.NextText(), "c");
    EXPECT_TRUE(r.AtEnd());
}

TEST(ItemReader, ReadingPastTheEndNamesFileAndLine) {
    ItemReader r("1\r\n2\r\n", "data.txt");
    r.NextInt();
    r.NextInt();
    try {
        r.NextInt();
        FAIL() << "expected a read error";
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), "data.txt");
        EXPECT_EQ(e.Line(), 3);
        EXPECT_NE(std::string(e.what()).find("data.txt, line 3"), std::string::npos);
    }
}

TEST(ItemReader, IntegerOutOfRangeIsAReadError) {
    ItemReader r("99999\r\n", "x.txt");
    EXPECT_THROW(r.NextInt(), ReadError);
}

TEST(LineWriter, ColumnsZonesAndLineEnds) {
    LineWriter w;
    w.Text("SOLVANE").Column(11).Text(".837664224").Column(21).Num(4).Text(" IP").EndLine();
    EXPECT_EQ(w.Str(), "SOLVANE   .837664224 4  IP\r\n");
    LineWriter z;
    z.Text("a").NextZone().Text("b").NextZone().EndLine();
    EXPECT_EQ(z.Str(), "a             b             \r\n");
    LineWriter past;
    past.Text("0123456789").Column(5).Text("x");
    EXPECT_EQ(past.Str(), "0123456789\r\n    x");
}

TEST(LineWriter, ReportRulesAndFooter) {
    LineWriter w;
    PrintRule(w, 1);
    PrintDoubleRule(w);
    int page = 0;
    PrintPageFooter(w, page);
    const auto lines = SplitLines(w.Str());
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "    " + std::string(126, '-'));
    EXPECT_EQ(lines[1], std::string(132, '='));
    EXPECT_EQ(lines[2], std::string(114, ' ') + "... PAGE  1 ...");
    EXPECT_EQ(lines[3], "");
    EXPECT_EQ(page, 1);
}

TEST(TextFile, AtomicWriteReplacesWholeAndFailsCleanly) {
    const auto dir =
        std::filesystem::temp_directory_path() /
        ("solvane_tf_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    std::filesystem::create_directories(dir);
    const auto file = dir / "p.inp";
    ASSERT_TRUE(WriteFileAtomic(file, "old\r\n"));
    ASSERT_TRUE(WriteFileAtomic(file, "new\r\n"));
    EXPECT_EQ(*ReadTextFile(file), "new\r\n");
    std::string why;
    EXPECT_FALSE(WriteFileAtomic(dir / "missing" / "p.inp", "x", &why));
    EXPECT_EQ(why, "No such file or directory");
    EXPECT_EQ(WriteFailureText(dir / "missing" / "p.inp", why),
              (dir / "missing" / "p.inp").string() + " could not be written: " + why);
    // A folder in the way of the rename: the old folder stays, no temporary is left.
    std::filesystem::create_directories(dir / "taken" / "inside");
    EXPECT_FALSE(WriteFileAtomic(dir / "taken", "x", &why));
    EXPECT_FALSE(why.empty());
    std::filesystem::remove_all(dir / "taken");
    EXPECT_EQ(*ReadTextFile(file), "new\r\n");
    // A folder is no text file, though it opens as a stream.
    EXPECT_FALSE(ReadTextFile(dir).has_value());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir),
                            std::filesystem::directory_iterator()),
              1);
    std::filesystem::remove_all(dir);
}

TEST(UnitFactors, ElevationRoundsOneWayAndTruncatesTheOther) {
    EXPECT_EQ(UnitFactor::ElevationFeetToMetres(1000), 305);  // 304.8 + .5 truncated
    EXPECT_EQ(UnitFactor::ElevationMetresToFeet(305), 1000);  // 1000.656 truncated
    EXPECT_DOUBLE_EQ(UnitFactor::FahrenheitToCelsius(212), 100);
    EXPECT_DOUBLE_EQ(UnitFactor::CelsiusToFahrenheit(-40), -40);
}

}  // namespace
}  // namespace solvane
