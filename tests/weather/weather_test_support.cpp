#include "tests/weather/weather_test_support.h"

#include <unistd.h>

#include "core/text_file.h"

namespace fs = std::filesystem;

namespace solvane::test {

fs::path MakeProgramDir(const std::string& name) {
    const fs::path dir =
        fs::temp_directory_path() / ("solvane-weather-" + name + "-" + std::to_string(::getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir / "temp");
    fs::create_directories(dir / "weather");
    return dir;
}

climate_tools::StationRow Station(int region, const std::string& code, const std::string& group,
                                  const std::string& city, double lat) {
    climate_tools::StationRow row;
    row.region = region;
    row.groupCode = code;
    row.groupName = group;
    row.city = city;
    row.marker = "@";
    row.wmo = "123450";
    row.sourceId = "123450-99999";
    row.lat = lat;
    row.lon = -100.5;
    row.stdMeridian = -90;
    row.elevFt = 1000;
    row.hdd65 = 5400;
    row.cdd65 = 620;
    row.cdd50 = 2900;
    row.zone = "4 A";
    for (int r = 1; r <= 8; ++r)
        for (int m = 1; m <= 12; ++m) row.monthly[r][m] = 10.0 * r + m + 0.5;
    for (int m = 1; m <= 12; ++m) {
        row.monthly[7][m] = 1500;  // solar
        row.monthly[8][m] = 10;    // wind
    }
    return row;
}

void WriteDatabase(const fs::path& dir, const std::vector<climate_tools::StationRow>& rows) {
    for (const auto& [name, content] : climate_tools::BuildClimateFiles(rows)) {
        const fs::path path = dir / "weather" / name;
        fs::create_directories(path.parent_path());
        WriteFileAtomic(path, content);
    }
}

std::string ReadAll(const fs::path& path) {
    return ReadTextFile(path).value_or(std::string());
}

}  // namespace solvane::test
