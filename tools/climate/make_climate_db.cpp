// make_climate_db: writes the city climate database from the station table.
//
//   make_climate_db <stations.csv> <weather folder>
//
// The files are written whole; running it again on the same table gives the
// same bytes.
#include <filesystem>
#include <iostream>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "tools/climate/climate_db_builder.h"

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    using namespace solvane;
    if (argc != 3) {
        std::cerr << "usage: make_climate_db <stations.csv> <weather folder>\n";
        return 2;
    }
    try {
        const auto csv = ReadTextFile(argv[1]);
        if (!csv) throw std::runtime_error(std::string("cannot read ") + argv[1]);
        const auto rows = climate_tools::ParseStationTable(*csv, argv[1]);
        climate_tools::CheckStationLimits(rows);
        const auto files = climate_tools::BuildClimateFiles(rows);
        const fs::path out = argv[2];
        for (const auto& [name, content] : files) {
            const fs::path path = out / name;
            fs::create_directories(path.parent_path());
            if (!WriteFileAtomic(path, content))
                throw std::runtime_error("cannot write " + path.string());
        }
        std::cout << rows.size() << " stations, " << files.size() << " files written to "
                  << out.string() << "\n";
    } catch (const std::exception& e) {
        std::cerr << "make_climate_db: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
