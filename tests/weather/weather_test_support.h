// A small climate database built in a temporary program folder, for tests
// that read and rewrite region files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/program_paths.h"
#include "tools/climate/climate_db_builder.h"

namespace solvane::test {

inline std::filesystem::path SourceDir() {
    return SOLVANE_SOURCE_DIR;
}

// A fresh, empty program folder with temp/ and weather/ under the system's
// temporary folder.
std::filesystem::path MakeProgramDir(const std::string& name);

// A station with plausible values; every monthly row gets `base` + month.
climate_tools::StationRow Station(int region, const std::string& code, const std::string& group,
                                  const std::string& city, double lat = 40.0);

// Writes the database of `rows` into dir/weather.
void WriteDatabase(const std::filesystem::path& dir,
                   const std::vector<climate_tools::StationRow>& rows);

// The file's bytes; empty when missing.
std::string ReadAll(const std::filesystem::path& path);

}  // namespace solvane::test
