#include "engine/control_file.h"

#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

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

}  // namespace

RunControl ReadControlFile(std::string_view content, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(content);
    if (lines.size() < 9)
        throw ReadError(fileName, static_cast<int>(lines.size()) + 1,
                        "run control file ends early: nine lines expected");
    RunControl c;
    c.runType = static_cast<int>(NumVal(FirstWord(lines[0], 12)));
    c.weatherType = static_cast<int>(NumVal(FirstWord(lines[1], 12)));
    c.firstDayOfYear = static_cast<int>(NumVal(FirstWord(lines[2], 12)));
    if (c.firstDayOfYear < 1 || c.firstDayOfYear > 7)
        throw ReadError(fileName, 3, "first day of the year must be 1 to 7");
    c.beginDay = static_cast<int>(NumVal(FirstWord(lines[3], 12)));
    c.endDay = static_cast<int>(NumVal(FirstWord(lines[4], 12)));
    if (c.beginDay < 1 || c.beginDay > 366)
        throw ReadError(fileName, 4, "run begin day out of range");
    if (c.endDay < c.beginDay || c.endDay > 366)
        throw ReadError(fileName, 5, "run end day out of range");
    c.hourlyOutput = NumVal(FirstWord(lines[5], 12)) == 1;
    c.codeNum = static_cast<int>(NumVal(FirstWord(lines[6], 12)));
    std::string skip = After(lines[7], 12);
    std::size_t i = 0;
    while (i < skip.size()) {
        while (i < skip.size() && skip[i] == ' ') ++i;
        std::size_t j = i;
        while (j < skip.size() && skip[j] != ' ') ++j;
        if (j > i) {
            const int m = static_cast<int>(NumVal(skip.substr(i, j - i)));
            if (m < 1 || m > 12) throw ReadError(fileName, 8, "skipped month must be 1 to 12");
            c.skipMonth[m - 1] = true;
        }
        i = j;
    }
    const std::string comfort = lines[8];
    c.comfortLower = NumVal(comfort.size() > 12 ? comfort.substr(12, 10) : std::string());
    c.comfortUpper = NumVal(After(comfort, 22));
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
