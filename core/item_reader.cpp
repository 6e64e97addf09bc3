#include "core/item_reader.h"

#include "core/numeric_helpers.h"

namespace solvane {

namespace {
std::string ErrorText(const std::string& file, int line, const std::string& what) {
    return file + ", line " + std::to_string(line) + ": " + what;
}
}  // namespace

ReadError::ReadError(std::string file, int line, const std::string& what)
    : std::runtime_error(ErrorText(file, line, what)), file_(std::move(file)), line_(line) {}

ItemReader::ItemReader(std::string content, std::string fileName)
    : content_(std::move(content)), fileName_(std::move(fileName)) {}

bool ItemReader::AtEnd() const {
    return pos_ >= content_.size();
}

void ItemReader::Fail(const std::string& what) const {
    throw ReadError(fileName_, line_, what);
}

void ItemReader::SkipBlanks() {
    while (pos_ < content_.size() && (content_[pos_] == ' ' || content_[pos_] == '\t')) ++pos_;
}

namespace {
bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}
}  // namespace

// Reads one item up to its delimiter and consumes the delimiter: a comma, or
// a line end (CR LF, LF or CR). Unquoted numbers also end at a blank.
std::string ItemReader::RawItem(bool& quoted) {
    if (AtEnd()) Fail("Input past end of file");
    SkipBlanks();
    std::string item;
    quoted = pos_ < content_.size() && content_[pos_] == '"';
    if (quoted) {
        ++pos_;
        while (pos_ < content_.size() && content_[pos_] != '"') {
            if (content_[pos_] == '\n') ++line_;
            item += content_[pos_++];
        }
        if (pos_ < content_.size()) ++pos_;  // closing quote
        // Anything between the closing quote and the delimiter is passed over.
        while (pos_ < content_.size() && content_[pos_] != ',' && !IsLineEnd(content_[pos_]))
            ++pos_;
    } else {
        while (pos_ < content_.size() && content_[pos_] != ',' && !IsLineEnd(content_[pos_]))
            item += content_[pos_++];
        while (!item.empty() && (item.back() == ' ' || item.back() == '\t')) item.pop_back();
    }
    if (pos_ < content_.size()) {
        if (content_[pos_] == ',') {
            ++pos_;
        } else if (content_[pos_] == '\r') {
            ++pos_;
            if (pos_ < content_.size() && content_[pos_] == '\n') ++pos_;
            ++line_;
        } else if (content_[pos_] == '\n') {
            ++pos_;
            ++line_;
        }
    }
    return item;
}

std::string ItemReader::NextText() {
    bool quoted = false;
    return RawItem(quoted);
}

double ItemReader::NextNumber() {
    if (AtEnd()) Fail("Input past end of file");
    SkipBlanks();
    if (pos_ < content_.size() && content_[pos_] == '"') return NumVal(NextText());
    // A number ends at a blank as well as at a comma or line end.
    std::string item;
    while (pos_ < content_.size() && content_[pos_] != ',' && content_[pos_] != ' ' &&
           content_[pos_] != '\t' && !IsLineEnd(content_[pos_]))
        item += content_[pos_++];
    SkipBlanks();
    if (pos_ < content_.size()) {
        if (content_[pos_] == ',') {
            ++pos_;
        } else if (IsLineEnd(content_[pos_])) {
            const bool cr = content_[pos_] == '\r';
            ++pos_;
            if (cr && pos_ < content_.size() && content_[pos_] == '\n') ++pos_;
            ++line_;
        }
    }
    return NumVal(item);
}

int ItemReader::NextInt() {
    const double v = NextNumber();
    try {
        return ToInt16(v);
    } catch (const std::overflow_error&) {
        Fail("number out of range: " + NumText(v));
    }
}

std::string ItemReader::NextLine() {
    if (AtEnd()) Fail("Input past end of file");
    const std::size_t start = pos_;
    while (pos_ < content_.size() && !IsLineEnd(content_[pos_])) ++pos_;
    std::string line = content_.substr(start, pos_ - start);
    if (pos_ < content_.size()) {
        const bool cr = content_[pos_] == '\r';
        ++pos_;
        if (cr && pos_ < content_.size() && content_[pos_] == '\n') ++pos_;
    }
    ++line_;
    return line;
}

}  // namespace solvane
