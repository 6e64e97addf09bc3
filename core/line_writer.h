// Builds text files line by line the way the program's files are printed:
// text as it stands, numbers in file print form, column targets, 14-column
// print zones, and CR LF line ends.
#pragma once

#include <string>
#include <string_view>

namespace solvane {

inline constexpr std::string_view CrLf = "\r\n";
inline constexpr char QuoteChar = '"';

class LineWriter {
  public:
    LineWriter& Text(std::string_view text);
    LineWriter& Num(float value);
    LineWriter& Num(double value);
    LineWriter& Num(int value);
    // Moves to `column` (counting from 1), filling with blanks. When the line
    // is already past it, a new line is begun first.
    LineWriter& Column(int column);
    // Moves to the start of the next 14-column print zone.
    LineWriter& NextZone();
    LineWriter& EndLine();
    // Writes `text` and ends the line.
    LineWriter& Line(std::string_view text = {});

    int CurrentColumn() const { return static_cast<int>(line_.size()) + 1; }
    // The finished lines plus any unfinished one.
    std::string Str() const { return out_ + line_; }

  private:
    std::string out_;
    std::string line_;
};

// Report rule lines.
void PrintRule(LineWriter& out, int kind);  // column 5, 126 "-" (1) or "=" (2)
void PrintDoubleRule(LineWriter& out);      // 132 "="
// Adds one to the page counter and prints the footer line and a blank line.
void PrintPageFooter(LineWriter& out, int& pageCounter);

}  // namespace solvane
