#include "core/line_writer.h"

#include "core/numeric_helpers.h"

namespace solvane {

LineWriter& LineWriter::Text(std::string_view text) {
    line_ += text;
    return *this;
}

LineWriter& LineWriter::Num(float value) {
    return Text(PrintNum(value));
}
LineWriter& LineWriter::Num(double value) {
    return Text(PrintNum(value));
}
LineWriter& LineWriter::Num(int value) {
    return Text(PrintNum(value));
}

LineWriter& LineWriter::Column(int column) {
    if (column < 1) column = 1;
    if (CurrentColumn() > column) EndLine();
    line_.append(static_cast<std::size_t>(column - CurrentColumn()), ' ');
    return *this;
}

LineWriter& LineWriter::NextZone() {
    constexpr int kZone = 14;
    const int used = static_cast<int>(line_.size());
    line_.append(static_cast<std::size_t>(kZone - used % kZone), ' ');
    return *this;
}

LineWriter& LineWriter::EndLine() {
    out_ += line_;
    out_ += CrLf;
    line_.clear();
    return *this;
}

LineWriter& LineWriter::Line(std::string_view text) {
    return Text(text).EndLine();
}

void PrintRule(LineWriter& out, int kind) {
    out.Column(5).Text(std::string(126, kind == 2 ? '=' : '-')).EndLine();
}

void PrintDoubleRule(LineWriter& out) {
    out.Line(std::string(132, '='));
}

void PrintPageFooter(LineWriter& out, int& pageCounter) {
    ++pageCounter;
    out.Column(115).Text("... PAGE ").Num(pageCounter).Text("...").EndLine();
    out.EndLine();
}

}  // namespace solvane
