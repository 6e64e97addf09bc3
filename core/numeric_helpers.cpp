#include "core/numeric_helpers.h"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "ui/prompt.h"

namespace solvane {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

double NumVal(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (IsBlank(text[i]) || text[i] == '\n' || text[i] == '\r')) ++i;
    // Gather the characters that make the number, passing over inner blanks.
    std::string number;
    bool seenDigit = false, seenPoint = false, inExponent = false, exponentDigit = false;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (IsBlank(c)) continue;
        if ((c == '+' || c == '-') && number.empty()) {
            number += c;
        } else if (IsDigit(c)) {
            number += c;
            (inExponent ? exponentDigit : seenDigit) = true;
        } else if (c == '.' && !seenPoint && !inExponent) {
            number += c;
            seenPoint = true;
        } else if ((c == 'E' || c == 'e' || c == 'D' || c == 'd') && !inExponent && seenDigit) {
            number += 'E';
            inExponent = true;
        } else if ((c == '+' || c == '-') && inExponent && number.back() == 'E') {
            number += c;
        } else {
            break;
        }
    }
    if (!seenDigit) return 0.0;
    if (inExponent && !exponentDigit) {
        while (!number.empty() && number.back() != 'E') number.pop_back();
        if (!number.empty()) number.pop_back();
    }
    return std::strtod(number.c_str(), nullptr);
}

bool IsNumericText(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && IsBlank(text[b])) ++b;
    while (e > b && IsBlank(text[e - 1])) --e;
    if (b == e) return false;
    std::size_t i = b;
    if (text[i] == '+' || text[i] == '-') ++i;
    bool digits = false;
    while (i < e && IsDigit(text[i])) ++i, digits = true;
    if (i < e && text[i] == '.') {
        ++i;
        while (i < e && IsDigit(text[i])) ++i, digits = true;
    }
    if (!digits) return false;
    if (i < e && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
        ++i;
        if (i < e && (text[i] == '+' || text[i] == '-')) ++i;
        bool expDigits = false;
        while (i < e && IsDigit(text[i])) ++i, expDigits = true;
        if (!expDigits) return false;
    }
    return i == e;
}

float RoundOff(double value, int digits) {
    const double scale = std::pow(10.0, digits);
    const int mode = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value * scale) / scale;
    std::fesetround(mode);
    return static_cast<float>(rounded);
}

float RoundOff(std::string_view value, int digits, Prompt& prompt) {
    if (!IsNumericText(value)) {
        std::string text = "Argument ";
        text += '"';
        text += value;
        text += '"';
        text +=
            " is a character string rather than a numeric value -- cannot execute the roundoff "
            "function. This error may be coming from the weather data variables. This error will "
            "not cause the program to stop, so your project will stay in tact; however, if the "
            "cause is actually from the weather data, your climate variables will be in error. "
            "You can temporarily try a different city and continue to work on this project. "
            "Please report this error, with the steps that led to it, so that it can be "
            "corrected.";
        prompt.Ask(text, "ERROR Trap; Character variable found when expecting numeric value.",
                   Buttons::Ok, Icon::Critical);
        return 0.0f;
    }
    return RoundOff(NumVal(value), digits);
}

double RoundOneDecimal(double value) {
    return std::trunc(value * 10.0 + 0.5) / 10.0;
}

long TruncToInt(double value) {
    return static_cast<long>(std::trunc(value));
}

std::int16_t ToInt16(double value) {
    const double r = std::nearbyint(value);
    if (!(r >= -32768.0 && r <= 32767.0)) throw std::overflow_error("Overflow");
    return static_cast<std::int16_t>(r);
}

double MinOf(double a, double b) {
    return a < b ? a : b;
}
double MaxOf(double a, double b) {
    return a > b ? a : b;
}

namespace {
// Strict "less than" between loosely typed values: text is greater than any number.
bool Less(const NumOrText& a, const NumOrText& b) {
    const bool aText = std::holds_alternative<std::string>(a);
    const bool bText = std::holds_alternative<std::string>(b);
    if (aText && bText) return std::get<std::string>(a) < std::get<std::string>(b);
    if (aText) return false;
    if (bText) return true;
    return std::get<double>(a) < std::get<double>(b);
}
}  // namespace

NumOrText MinOf(const NumOrText& a, const NumOrText& b) {
    return Less(a, b) ? a : b;
}
NumOrText MaxOf(const NumOrText& a, const NumOrText& b) {
    return Less(b, a) ? a : b;
}

float Azimuth(double x, double y) {
    const float a = static_cast<float>(std::atan(std::fabs(x / y)));
    if (x >= 0 && y >= 0) return a;
    if (x >= 0 && y <= 0) return kPi - a;
    if (x <= 0 && y <= 0) return kPi + a;
    return 2 * kPi - a;
}

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DayNumber(int year, int month, int day) {
    static constexpr int kBefore[13] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    if (month < 1 || month > 12) return 0;
    return kBefore[month] + day + (month > 2 && IsLeapYear(year) ? 1 : 0);
}

namespace {

// Shortest text with `precision` significant digits; the exponent form is
// used from 10^precision up and below 10^-4.
std::string ShortestText(double value, int precision) {
    if (value == 0 || std::isnan(value)) return "0";
    if (std::isinf(value)) return value > 0 ? "1.#INF" : "-1.#INF";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", precision - 1, value);
    // buf: [-]d.ddddde[+-]xx
    std::string s(buf);
    const bool negative = s[0] == '-';
    if (negative) s.erase(0, 1);
    const std::size_t ePos = s.find('e');
    int exponent = std::atoi(s.c_str() + ePos + 1);
    std::string digits = s.substr(0, 1) + (ePos > 2 ? s.substr(2, ePos - 2) : std::string());
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();

    std::string out = negative ? "-" : "";
    if (exponent >= precision || exponent < -4) {
        out += digits[0];
        if (digits.size() > 1) out += "." + digits.substr(1);
        char ebuf[16];
        std::snprintf(ebuf, sizeof ebuf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        out += ebuf;
    } else if (exponent < 0) {
        out += "." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    } else {
        const std::size_t intDigits = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() <= intDigits) {
            out += digits + std::string(intDigits - digits.size(), '0');
        } else {
            out += digits.substr(0, intDigits) + "." + digits.substr(intDigits);
        }
    }
    return out;
}

std::string Printed(std::string plain) {
    if (plain[0] != '-') plain.insert(plain.begin(), ' ');
    plain += ' ';
    return plain;
}

}  // namespace

std::string NumText(float value) {
    return ShortestText(value, 7);
}
std::string NumText(double value) {
    return ShortestText(value, 15);
}
std::string NumText(int value) {
    return std::to_string(value);
}

std::string PrintNum(float value) {
    return Printed(NumText(value));
}
std::string PrintNum(double value) {
    return Printed(NumText(value));
}
std::string PrintNum(int value) {
    return Printed(NumText(value));
}

std::string StrForm(float value) {
    const std::string t = NumText(value);
    return t[0] == '-' ? t : " " + t;
}
std::string StrForm(double value) {
    const std::string t = NumText(value);
    return t[0] == '-' ? t : " " + t;
}
std::string StrForm(int value) {
    return value < 0 ? std::to_string(value) : " " + std::to_string(value);
}

namespace {

// Numeric masks built of "#" (optional digit), "0" (required digit) and ".".
std::string FormatNumericMask(std::string_view text, std::string_view mask) {
    const std::size_t point = mask.find('.');
    const std::string_view intMask = mask.substr(0, point);
    const std::string_view decMask =
        point == std::string_view::npos ? std::string_view() : mask.substr(point + 1);
    const int intMin = static_cast<int>(std::count(intMask.begin(), intMask.end(), '0'));
    const int decMax = static_cast<int>(decMask.size());
    const int decMin = static_cast<int>(std::count(decMask.begin(), decMask.end(), '0'));

    double v = NumVal(text);
    const bool negative = v < 0;
    const double scale = std::pow(10.0, decMax);
    v = std::floor(std::fabs(v) * scale + 0.5);  // half away from zero
    const double intPart = std::floor(v / scale);
    const long long decPart = static_cast<long long>(v - intPart * scale);

    std::string intText = intPart == 0 ? "" : std::to_string(static_cast<long long>(intPart));
    if (static_cast<int>(intText.size()) < intMin)
        intText.insert(0, static_cast<std::size_t>(intMin) - intText.size(), '0');
    std::string decText;
    if (decMax > 0) {
        decText = std::to_string(decPart);
        decText.insert(0, static_cast<std::size_t>(decMax) - decText.size(), '0');
        while (static_cast<int>(decText.size()) > decMin && decText.back() == '0')
            decText.pop_back();
    }
    std::string out = negative && (intPart != 0 || decPart != 0) ? "-" : "";
    out += intText;
    if (point != std::string_view::npos) out += "." + decText;
    return out;
}

}  // namespace

std::string FormatField(std::string_view text, std::string_view mask) {
    if (mask.empty()) return std::string(text);
    if (mask.find_first_not_of('@') == std::string_view::npos) {
        if (text.size() >= mask.size()) return std::string(text);
        return std::string(mask.size() - text.size(), ' ') + std::string(text);
    }
    if (mask.find_first_not_of('&') == std::string_view::npos) return std::string(text);
    return FormatNumericMask(text, mask);
}

void AskNumeric(Prompt& prompt) {
    prompt.Ask("You should use numerical value.", "Error", Buttons::Ok, Icon::Exclamation);
}

void WarnSharedProfile(Prompt& prompt) {
    prompt.Beep();
    prompt.Ask(
        "The profile / property has been used.  If you change its value, you will also change "
        "the value of the profile / property you have previously used.",
        "Warning", Buttons::Ok, Icon::Exclamation);
}

}  // namespace solvane
