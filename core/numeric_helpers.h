// Rounding, number <-> text rules, field masks and the small shared prompts.
// Every number the program shows or writes goes through these routines, so
// that all files and screens agree to the character.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace solvane {

struct Prompt;

// Angle constants, kept as 32-bit floats like every derived angle.
inline constexpr float kPi = 3.1415927f;
inline constexpr float DegToRad = kPi / 180.0f;
inline constexpr float Rad90 = DegToRad * 90.0f;
inline constexpr float Rad180 = DegToRad * 180.0f;
inline constexpr float Rad270 = DegToRad * 270.0f;

// ---- text -> number ---------------------------------------------------------

// Numeric prefix parse: leading blanks skipped, blanks inside the number
// ignored, stops at the first character that cannot continue a number.
// Text with no number gives 0. Never fails.
double NumVal(std::string_view text);

// True when the whole text (blanks around it allowed) is one number.
bool IsNumericText(std::string_view text);

// ---- rounding -----------------------------------------------------------------

// Rounds in double precision to `digits` decimals with ties to the even digit,
// then narrows to a 32-bit float.
float RoundOff(double value, int digits);

// The text form: text that is not a number shows the "ERROR Trap" prompt once
// and gives 0.
float RoundOff(std::string_view value, int digits, Prompt& prompt);

// One decimal by adding 0.5 to ten times the value and truncating.
double RoundOneDecimal(double value);

// Truncation towards zero to an integer.
long TruncToInt(double value);

// Conversion into a 16-bit field: ties to even; throws std::overflow_error
// ("Overflow") outside -32768..32767.
std::int16_t ToInt16(double value);

// ---- comparisons --------------------------------------------------------------

// A value that may be a number or a text, as the model's loosely typed fields are.
using NumOrText = std::variant<double, std::string>;

// The smaller / larger of two numbers; when equal, the second argument.
double MinOf(double a, double b);
double MaxOf(double a, double b);
// With texts involved, a text counts as greater than any number; two texts
// compare as text.
NumOrText MinOf(const NumOrText& a, const NumOrText& b);
NumOrText MaxOf(const NumOrText& a, const NumOrText& b);

// Bearing of (x, y) in radians, clockwise from the positive y axis.
float Azimuth(double x, double y);

// Day of the year, 1 to 366.
int DayNumber(int year, int month, int day);
bool IsLeapYear(int year);

// ---- number -> text -----------------------------------------------------------

// Shortest text: ".5", "-3", "1.5E+07", "1E-05"; 7 significant digits for a
// float, 15 for a double.
std::string NumText(float value);
std::string NumText(double value);
std::string NumText(int value);

// File printing: the same digits with one leading blank when not negative and
// one trailing blank (" 12 ", "-3 ", " .5 ").
std::string PrintNum(float value);
std::string PrintNum(double value);
std::string PrintNum(int value);

// Text form: the shortest text with one leading blank when not negative and
// nothing after it (" .5", "-3", " 12"); what a number becomes in a text field.
std::string StrForm(float value);
std::string StrForm(double value);
std::string StrForm(int value);

// Field masks: n "@" right-align in n characters (longer text is not cut);
// "&" masks give the text as it stands.
std::string FormatField(std::string_view text, std::string_view mask);

// ---- shared prompts ---------------------------------------------------------------

void AskNumeric(Prompt& prompt);
void WarnSharedProfile(Prompt& prompt);

}  // namespace solvane
