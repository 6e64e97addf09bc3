#include "results/chart_scale.h"

#include <algorithm>
#include <cmath>

#include "core/numeric_helpers.h"

namespace solvane {

double ChartScale(std::span<const double> values) {
    if (values.empty()) return 0.1;
    double max = -1000, min = 9999;
    for (double v : values) {
        max = std::max(max, v);
        min = std::min(min, v);
    }
    const double m = std::max(max, -min);
    const std::string s = NumText(m);
    const auto point = s.find('.');
    const std::string whole = s.substr(0, point);
    const int digits = static_cast<int>(
        std::count_if(whole.begin(), whole.end(), [](char c) { return c != ' '; }));
    const auto first = s.find_first_not_of(' ');
    double lead = first == std::string::npos ? 0 : NumVal(s.substr(first, 1));
    if (lead == 0) lead = 1;
    const double step = std::pow(10.0, digits - 1);
    double scale = m == std::trunc(m / step) ? m : (lead + 1) * step;
    // Below one the text has no digit before the point and the rule gives 0.2
    // whatever the value; such a scale would cut the bars, so take the next
    // step of the leading significant digit instead.
    if (scale < m) {
        const double e = std::pow(10.0, std::floor(std::log10(m)));
        scale = (std::floor(m / e) + 1) * e;
    }
    if (scale < 0.1) scale = 0.1;
    return scale;
}

}  // namespace solvane
