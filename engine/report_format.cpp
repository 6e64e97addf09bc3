#include "engine/report_format.h"

#include <cstdio>

#include "core/numeric_helpers.h"

namespace solvane::engine {

std::string Fixed(double v, int width, int decimals) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
    std::string s(buf);
    if (s == "-0" || s.rfind("-0.", 0) == 0) {
        bool zero = true;
        for (char ch : s) zero &= (ch == '-' || ch == '0' || ch == '.');
        if (zero) s.erase(0, 1);
    }
    return FormatField(s, std::string(static_cast<std::size_t>(width), '@'));
}

}  // namespace solvane::engine
