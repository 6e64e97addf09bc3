// Number and month printing shared by the engine's report sections.
#pragma once

#include <string>

namespace solvane::engine {

inline constexpr const char* kMonthName[12] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                               "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// A number right-aligned in `width` columns with `decimals` decimals; a
// negative zero prints as zero.
std::string Fixed(double v, int width, int decimals);

}  // namespace solvane::engine
