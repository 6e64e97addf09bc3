#include "engine/control_file.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "engine/weather_data.h"

namespace solvane::engine {
namespace {

std::string After(const std::string& line, std::size_t col) {
    return line.size() > col ? line.substr(col) : std::string();
}

// The first blank-delimited word from a column: numbers in print zones stand
// apart, and a number parse would run blanks together.
std::string FirstWord(const std::string& line, std::size_t col) {
    const std::string rest = After(line, col);
    const std::size_t a = rest.find_first_not_of(' ');
    if (a == std::string::npos) return {};
    const std::size_t b = rest.find(' ', a);
    return rest.substr(a, b == std::string::npos ? std::string::npos : b - a);
}

// A whole number from a line's value, within [lo, hi]; anything else (a word,
// a fraction, 1e99) is refused with the line and the field named.
int WholeNumber(const std::string& word, int lo, int hi, const std::string& fileName, int line,
                const char* field) {
    const double v = NumVal(word);
    if (word.empty() || !IsNumericText(word) || v != std::floor(v) || v < lo || v > hi)
        throw ReadError(fileName, line,
                        std::string(field) + " \"" + word + "\" must be a whole number from " +
                            std::to_string(lo) + " to " + std::to_string(hi));
    return static_cast<int>(v);
}

double Temperature(const std::string& word, const std::string& fileName, const char* field) {
    const double v = NumVal(word);
    if (word.empty() || !IsNumericText(word) || !std::isfinite(v) || std::abs(v) > 200)
        throw ReadError(fileName, 9, std::string(field) + " \"" + word + "\" is not a temperature");
    return v;
}

}  // namespace

RunControl ReadControlFile(std::string_view content, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(content);
    if (lines.size() < 9)
        throw ReadError(fileName, static_cast<int>(lines.size()) + 1,
                        "run control file ends early: nine lines expected");
    RunControl c;
    c.runType = WholeNumber(FirstWord(lines[0], 12), 0, 4, fileName, 1, "run type");
    if (c.runType == 2) throw ReadError(fileName, 1, "run type \"2\" is not one of 0, 1, 3 and 4");
    c.weatherType = WholeNumber(FirstWord(lines[1], 12), 0, 4, fileName, 2, "weather type");
    c.firstDayOfYear = WholeNumber(FirstWord(lines[2], 12), 1, 7, fileName, 3, "first day");
    c.beginDay = WholeNumber(FirstWord(lines[3], 12), 1, 366, fileName, 4, "run begin day");
    c.endDay = WholeNumber(FirstWord(lines[4], 12), 1, 366, fileName, 5, "run end day");
    if (c.endDay < c.beginDay)
        throw ReadError(fileName, 5,
                        "run end day " + std::to_string(c.endDay) + " comes before run begin day " +
                            std::to_string(c.beginDay));
    c.hourlyOutput = WholeNumber(FirstWord(lines[5], 12), 0, 1, fileName, 6, "hourly output") == 1;
    c.codeNum = WholeNumber(FirstWord(lines[6], 12), 0, 3, fileName, 7, "code number");
    const std::string skip = After(lines[7], 12);
    std::size_t i = 0;
    while (i < skip.size()) {
        while (i < skip.size() && skip[i] == ' ') ++i;
        std::size_t j = i;
        while (j < skip.size() && skip[j] != ' ') ++j;
        if (j > i) {
            const int m = WholeNumber(skip.substr(i, j - i), 1, 12, fileName, 8, "skipped month");
            c.skipMonth[m - 1] = true;
        }
        i = j;
    }
    // Some day of the period must be left to simulate (a 365-day year: day
    // 366 falls in December).
    bool anyDay = false;
    for (int day = c.beginDay; day <= c.endDay && !anyDay; ++day)
        anyDay = !c.skipMonth[MonthOfDay(std::min(day, 365) - 1)];
    if (!anyDay)
        throw ReadError(fileName, 8,
                        "every month of the run period is skipped: nothing to simulate");
    const std::string& comfort = lines[8];
    c.comfortLower =
        Temperature(FirstWord(comfort.substr(0, std::min<std::size_t>(comfort.size(), 22)), 12),
                    fileName, "comfort lower limit");
    c.comfortUpper = Temperature(FirstWord(comfort, 22), fileName, "comfort upper limit");
    if (!(c.comfortLower < c.comfortUpper))
        throw ReadError(fileName, 9,
                        "comfort lower limit " + NumText(c.comfortLower) +
                            " is not below the upper limit " + NumText(c.comfortUpper));
    return c;
}

EngineHead ReadEngineHeadLine(std::string_view line) {
    EngineHead h;
    std::string l(line);
    while (!l.empty() && (l.back() == ' ' || l.back() == '\r')) l.pop_back();
    if (l.size() > 13) {
        std::string seed = l.substr(13, std::min<std::size_t>(10, l.size() - 13));
        const std::size_t end = seed.find(' ');
        h.weatherSeed = seed.substr(0, end);
    }
    h.si = l.size() >= 2 && l.substr(l.size() - 2) == "SI";
    return h;
}

}  // namespace solvane::engine
