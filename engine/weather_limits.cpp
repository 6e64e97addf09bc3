#include "engine/weather_limits.h"

#include <cmath>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"

namespace solvane::engine {

bool IsMissing(const WeatherElement& e, double value) {
    return e.missing > 0 && value >= e.missing;
}

double CheckWeatherValue(double value, const WeatherElement& e, const std::string& fileName,
                         int line) {
    if (IsMissing(e, value)) return value;
    const bool inside = e.exclusive ? value > e.minimum && value < e.maximum
                                    : value >= e.minimum && value <= e.maximum;
    if (!inside || !std::isfinite(value)) {
        std::string limits = (e.exclusive ? "above " : "from ") + NumText(e.minimum) +
                             (e.exclusive ? " and below " : " to ") + NumText(e.maximum) + " " +
                             e.unit;
        if (e.missing > 0) limits += ", or " + NumText(e.missing) + " for missing";
        throw ReadError(
            fileName, line,
            std::string(e.name) + " " + NumText(value) + " is out of range (" + limits + ")");
    }
    return value;
}

double WeatherValue(std::string_view text, const WeatherElement& e, const std::string& fileName,
                    int line) {
    std::size_t a = 0, b = text.size();
    while (a < b && (text[a] == ' ' || text[a] == '\t')) ++a;
    while (b > a && (text[b - 1] == ' ' || text[b - 1] == '\t')) --b;
    const std::string_view t = text.substr(a, b - a);
    if (t.empty() || !IsNumericText(t))
        throw ReadError(fileName, line,
                        std::string(e.name) + " \"" + std::string(t) + "\" is not a number");
    return CheckWeatherValue(NumVal(t), e, fileName, line);
}

}  // namespace solvane::engine
