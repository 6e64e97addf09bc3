// Character cuts on the fixed-column lines of the program's files, counting
// columns from 1 as the file formats do. Cuts past the end give what there is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace solvane::cuts {

// Up to `length` characters from column `column`.
inline std::string Mid(std::string_view s, std::size_t column,
                       std::size_t length = std::string_view::npos) {
    if (column < 1 || column > s.size()) return {};
    return std::string(s.substr(column - 1, length));
}
inline std::string Left(std::string_view s, std::size_t n) {
    return std::string(s.substr(0, n));
}
inline std::string Right(std::string_view s, std::size_t n) {
    return n >= s.size() ? std::string(s) : std::string(s.substr(s.size() - n));
}
// Everything after the ten-character label.
inline std::string Value(std::string_view line) {
    return Mid(line, 11);
}
inline bool IsBlankText(std::string_view s) {
    return s.find_first_not_of(' ') == std::string_view::npos;
}
inline std::string TrimRight(std::string_view s) {
    const auto e = s.find_last_not_of(' ');
    return e == std::string_view::npos ? std::string() : std::string(s.substr(0, e + 1));
}
inline std::string TrimLeft(std::string_view s) {
    const auto b = s.find_first_not_of(' ');
    return b == std::string_view::npos ? std::string() : std::string(s.substr(b));
}
// Blank-separated tokens; runs of blanks count as one separator.
inline std::vector<std::string> Tokens(std::string_view s,
                                       std::size_t maxTokens = std::string_view::npos) {
    std::vector<std::string> out;
    std::size_t i = 0;
    while (i < s.size() && out.size() < maxTokens) {
        while (i < s.size() && s[i] == ' ') ++i;
        if (i >= s.size()) break;
        const std::size_t b = i;
        while (i < s.size() && s[i] != ' ') ++i;
        out.emplace_back(s.substr(b, i - b));
    }
    return out;
}
// Left-justified in `width` characters; longer text stays whole.
inline std::string LeftJustify(std::string_view s, std::size_t width) {
    std::string out(s);
    if (out.size() < width) out.append(width - out.size(), ' ');
    return out;
}

}  // namespace solvane::cuts
