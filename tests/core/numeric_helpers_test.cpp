#include "core/numeric_helpers.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

TEST(NumVal, TakesTheNumericPrefix) {
    EXPECT_EQ(NumVal("12 34"), 1234);
    EXPECT_EQ(NumVal("12.5kW"), 12.5);
    EXPECT_EQ(NumVal("   -3.25"), -3.25);
    EXPECT_EQ(NumVal("abc"), 0);
    EXPECT_EQ(NumVal(""), 0);
    EXPECT_EQ(NumVal(" .5"), 0.5);
    EXPECT_EQ(NumVal("1.5E+07"), 1.5e7);
    EXPECT_EQ(NumVal("2E"), 2);
    EXPECT_EQ(NumVal("3-4"), 3);
    EXPECT_EQ(NumVal("1.2.3"), 1.2);
    EXPECT_EQ(NumVal("CP15"), 0);
    EXPECT_EQ(NumVal("- 5"), -5);
}

TEST(RoundOff, TiesGoToTheEvenDigit) {
    EXPECT_EQ(RoundOff(2.5, 0), 2.0f);
    EXPECT_EQ(RoundOff(3.5, 0), 4.0f);
    EXPECT_EQ(RoundOff(-2.5, 0), -2.0f);
    EXPECT_EQ(RoundOff(1.25, 1), 1.2f);
    EXPECT_EQ(RoundOff(12.3456, 2), 12.35f);
}

TEST(RoundOff, NarrowsToAFloatOfSevenDigits) {
    // A double result with more digits than a float holds comes out as the float's text.
    EXPECT_EQ(NumText(RoundOff(1234.56789, 4)), "1234.568");
    EXPECT_EQ(NumText(RoundOff(0.1, 1)), ".1");
}

TEST(RoundOff, TextThatIsNoNumberPromptsOnceAndGivesZero) {
    ScriptedPrompt prompt;
    EXPECT_EQ(RoundOff("abc", 2, prompt), 0.0f);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title,
              "ERROR Trap; Character variable found when expecting numeric value.");
    EXPECT_EQ(prompt.asked[0].text.rfind("Argument \"abc\" is a character string", 0), 0u);
    EXPECT_EQ(RoundOff(" 2.345 ", 2, prompt), 2.35f);
    EXPECT_EQ(prompt.asked.size(), 1u);
}

TEST(NumberText, PlainFormIsShortest) {
    EXPECT_EQ(NumText(0.5f), ".5");
    EXPECT_EQ(NumText(-3.0f), "-3");
    EXPECT_EQ(NumText(0.0f), "0");
    EXPECT_EQ(NumText(-0.25), "-.25");
    EXPECT_EQ(NumText(12.0f), "12");
    EXPECT_EQ(NumText(1e-5f), "1E-05");
    EXPECT_EQ(NumText(0.0001f), ".0001");
    EXPECT_EQ(NumText(1.5e7f), "1.5E+07");
    EXPECT_EQ(NumText(1234567.0f), "1234567");
    EXPECT_EQ(NumText(12345678.0f), "1.234568E+07");
    EXPECT_EQ(NumText(12345678.0), "12345678");
    EXPECT_EQ(NumText(1e15), "1E+15");
    EXPECT_EQ(NumText(-2.5e-9), "-2.5E-09");
}

TEST(NumberText, SevenDigitsForAFloatFifteenForADouble) {
    EXPECT_EQ(NumText(0.1f), ".1");
    EXPECT_EQ(NumText(static_cast<double>(0.1f)), ".100000001490116");
    EXPECT_EQ(NumText(1.0 / 3.0), ".333333333333333");
    EXPECT_EQ(NumText(1.0f / 3.0f), ".3333333");
    EXPECT_EQ(NumText(2.0 / 3.0), ".666666666666667");
}

TEST(NumberText, FilePrintingAddsTheBlanks) {
    EXPECT_EQ(PrintNum(12), " 12 ");
    EXPECT_EQ(PrintNum(-3), "-3 ");
    EXPECT_EQ(PrintNum(0), " 0 ");
    EXPECT_EQ(PrintNum(0.5f), " .5 ");
    EXPECT_EQ(PrintNum(-0.0), " 0 ");
    EXPECT_EQ(PrintNum(1e-5f), " 1E-05 ");
}

TEST(NumberText, TextFormHasOnlyTheLeadingBlank) {
    EXPECT_EQ(StrForm(0.5f), " .5");
    EXPECT_EQ(StrForm(-3), "-3");
    EXPECT_EQ(StrForm(12), " 12");
    EXPECT_EQ(StrForm(-0.25), "-.25");
    EXPECT_EQ(StrForm(0.0f), " 0");
}

TEST(FormatField, Masks) {
    EXPECT_EQ(FormatField("12345", "@@@"), "12345");
    EXPECT_EQ(FormatField("12", "@@@@"), "  12");
    EXPECT_EQ(FormatField("", "@@"), "  ");
    EXPECT_EQ(FormatField(" ab", "&&&&&&&&&&&"), " ab");
    EXPECT_EQ(FormatField("7", "0000"), "0007");
    EXPECT_EQ(FormatField("3.14159", "####.##"), "3.14");
    EXPECT_EQ(FormatField("0.5", "####.##"), ".5");
    EXPECT_EQ(FormatField("12", "####.##"), "12.");
}

TEST(Roundings, TheOtherThree) {
    EXPECT_DOUBLE_EQ(RoundOneDecimal(2.25), 2.3);
    EXPECT_DOUBLE_EQ(RoundOneDecimal(2.24), 2.2);
    EXPECT_EQ(TruncToInt(5280.9), 5280);
    EXPECT_EQ(TruncToInt(-1.7), -1);
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(3.5), 4);
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_THROW(ToInt16(32767.6), std::overflow_error);
    EXPECT_THROW(ToInt16(-40000), std::overflow_error);
}

TEST(MinMax, EqualGivesTheSecondAndTextIsGreater) {
    EXPECT_EQ(MinOf(1.0, 2.0), 1.0);
    EXPECT_EQ(MaxOf(1.0, 2.0), 2.0);
    NumOrText a = 2.0, b = std::string("x");
    EXPECT_EQ(std::get<std::string>(MaxOf(a, b)), "x");
    EXPECT_EQ(std::get<double>(MinOf(b, a)), 2.0);
    NumOrText t1 = std::string("a"), t2 = std::string("a");
    // Equal values give the second argument; observable through identity of text.
    EXPECT_EQ(std::get<std::string>(MaxOf(t1, t2)), "a");
}

TEST(Azimuth, BranchesInOrder) {
    EXPECT_FLOAT_EQ(Azimuth(0, 1), 0.0f);
    EXPECT_FLOAT_EQ(Azimuth(-1, -1), kPi + kPi / 4);
    EXPECT_FLOAT_EQ(Azimuth(1, 1), kPi / 4);
    EXPECT_FLOAT_EQ(Azimuth(1, -1), kPi - kPi / 4);
    EXPECT_FLOAT_EQ(Azimuth(-1, 1), 2 * kPi - kPi / 4);
    // On the negative y axis x = 0 takes the second branch.
    EXPECT_FLOAT_EQ(Azimuth(0, -1), kPi);
}

TEST(DayNumber, CountsFromTheYearBefore) {
    EXPECT_EQ(DayNumber(2023, 1, 1), 1);
    EXPECT_EQ(DayNumber(2023, 12, 31), 365);
    EXPECT_EQ(DayNumber(2024, 12, 31), 366);
    EXPECT_EQ(DayNumber(2024, 3, 1), 61);
    EXPECT_EQ(DayNumber(1900, 3, 1), 60);
}

TEST(SharedPrompts, TextsAndIcons) {
    ScriptedPrompt prompt;
    AskNumeric(prompt);
    WarnSharedProfile(prompt);
    ASSERT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[0].title, "Error");
    EXPECT_EQ(prompt.asked[0].text, "You should use numerical value.");
    EXPECT_EQ(prompt.asked[0].icon, Icon::Exclamation);
    EXPECT_EQ(prompt.asked[1].title, "Warning");
    EXPECT_EQ(prompt.beeps, 1);
}

}  // namespace
}  // namespace solvane
