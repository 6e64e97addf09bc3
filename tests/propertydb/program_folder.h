// A throw-away program folder for tests: a copy of the repository's data
// folders under the system temp folder, removed again at the end. Shared by
// the code, property database and economics tests.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "core/program_paths.h"

namespace solvane::testing {

class ProgramFolder {
  public:
    ProgramFolder() {
        std::random_device rd;
        dir_ = std::filesystem::temp_directory_path() /
               ("solvane_data_" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(dir_);
        std::filesystem::copy(std::filesystem::path(SOLVANE_SOURCE_DIR) / "data", dir_,
                              std::filesystem::copy_options::recursive);
        std::filesystem::create_directories(dir_ / "temp");
        paths_ = ProgramPaths(dir_);
    }
    ~ProgramFolder() {
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    const ProgramPaths& Paths() const { return paths_; }
    const std::filesystem::path& Dir() const { return dir_; }
    // Replaces a data file with the given text.
    void Write(const std::string& relative, const std::string& text) const {
        std::ofstream out(paths_.Resolve(relative), std::ios::binary);
        out << text;
    }

  private:
    std::filesystem::path dir_;
    ProgramPaths paths_;
};

// Splits one CSV line; quoted fields may hold commas.
inline std::vector<std::string> SplitCsv(const std::string& line) {
    std::vector<std::string> out(1);
    bool quoted = false;
    for (char c : line) {
        if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            out.emplace_back();
        } else if (c != '\r') {
            out.back() += c;
        }
    }
    return out;
}

// The rows of a CSV file under tests/fixtures/standards, header first;
// comment lines (starting with "#") are left out.
inline std::vector<std::vector<std::string>> FixtureTable(const std::string& name) {
    std::ifstream in(std::string(SOLVANE_SOURCE_DIR) + "/tests/fixtures/standards/" + name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line[0] != '#') rows.push_back(SplitCsv(line));
    return rows;
}

// The data rows alone.
inline std::vector<std::vector<std::string>> FixtureRows(const std::string& name) {
    auto rows = FixtureTable(name);
    if (!rows.empty()) rows.erase(rows.begin());
    return rows;
}

// The data rows as records keyed by the header's names.
inline std::vector<std::map<std::string, std::string>> FixtureRecords(const std::string& name) {
    const auto table = FixtureTable(name);
    std::vector<std::map<std::string, std::string>> records;
    for (std::size_t r = 1; r < table.size(); ++r) {
        std::map<std::string, std::string> record;
        for (std::size_t i = 0; i < table[0].size() && i < table[r].size(); ++i)
            record[table[0][i]] = table[r][i];
        records.push_back(record);
    }
    return records;
}

}  // namespace solvane::testing
