// The free-format item reader every data file of the program is read with:
// items are separated by commas or line ends, text items may stand in double
// quotes, and whole lines can be taken as they stand. Errors name the file
// and the line.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace solvane {

class ReadError : public std::runtime_error {
  public:
    ReadError(std::string file, int line, const std::string& what);
    const std::string& File() const { return file_; }
    int Line() const { return line_; }

  private:
    std::string file_;
    int line_;
};

class ItemReader {
  public:
    // `content` is the whole file; `fileName` is used in error messages only.
    ItemReader(std::string content, std::string fileName);

    // True when every character has been read.
    bool AtEnd() const;
    // Next item as text: quoted items lose their quotes and keep everything
    // inside them; unquoted items are trimmed of surrounding blanks.
    std::string NextText();
    // Next item as a number: the numeric prefix of the item, 0 when none.
    double NextNumber();
    int NextInt();
    // The rest of the current line as it stands (without its line end).
    std::string NextLine();

    int LineNumber() const { return line_; }
    const std::string& FileName() const { return fileName_; }
    [[noreturn]] void Fail(const std::string& what) const;

  private:
    std::string RawItem(bool& quoted);
    void SkipBlanks();

    std::string content_;
    std::string fileName_;
    std::size_t pos_ = 0;
    int line_ = 1;
};

}  // namespace solvane
