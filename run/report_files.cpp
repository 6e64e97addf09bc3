// What the input report takes from the program folder beside the model.
#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "propertydb/hvac_catalog.h"
#include "run/input_report.h"
#include "sketch/matrix_file.h"

namespace solvane {

namespace {

// The systems table made from the code's efficiency file, in the units of
// the project, as the `hvac` screen would write it.
std::string SystemsFromCatalog(const ProjectModel& m, const ProgramPaths& paths) {
    std::array<HvacScreenRow, kHvacSystems + 1> rows;
    const bool si = m.session.Units == 2;
    try {
        for (int s = 1; s <= kHvacSystems; ++s) {
            const HvacRow r = ReadHvacRecord(paths, m.session.CodeNum, s);
            rows[s] = {r.id,
                       r.Des,
                       r.Feature,
                       r.BldApp,
                       si ? r.stpresPa : r.stpresIn,
                       si ? r.cop : r.seer,
                       si ? r.tempC : r.tempF,
                       r.fcost,
                       r.mcost,
                       r.Heater,
                       r.HTCOP};
        }
    } catch (const ReadError&) {
        return {};
    }
    return HvacCoolingText(rows, m.session.Units);
}

}  // namespace

ReportFiles ReadReportFiles(const ProjectModel& m, const ProgramPaths& paths) {
    ReportFiles files;
    const auto systems = ReadTextFile(paths.Resolve(kHvacCoolingFile));
    files.hvacSystems = systems ? *systems : SystemsFromCatalog(m, paths);
    files.lightShelves = ReadTextFile(paths.Resolve("\\temp\\ltshlf.dat")).value_or("");

    // Each level block of the matrix: its floors and room height.
    files.roomHeight.push_back(0);
    float floors = 0;
    const auto matrix = ReadTextFile(paths.Resolve("\\sketch\\bld_mtx.all"));
    for (const auto& line : SplitLines(matrix.value_or(""))) {
        if (IsLevelStart(line)) {
            files.roomHeight.push_back(0);
        } else if (files.roomHeight.size() > 1 && line.rfind("No. of Flrs", 0) == 0) {
            floors += MatrixHeaderValue(line);
        } else if (files.roomHeight.size() > 1 && line.rfind("Room Height", 0) == 0) {
            files.roomHeight.back() = MatrixHeaderValue(line);
        }
    }
    files.floors = static_cast<int>(RoundOff(floors, 0));

    const auto fuels = ReadTextFile(paths.Resolve("\\codes\\HTfuel.txt"));
    const auto lines = SplitLines(fuels.value_or(""));
    for (std::size_t i = 1; i <= 3 && i + 1 < lines.size(); ++i) {
        const std::string& line = lines[i + 1];
        std::string name = line.substr(0, std::min<std::size_t>(line.size(), 15));
        name.erase(name.find_last_not_of(' ') + 1);
        files.fuelName[i] = name;
        files.fuelEfficiency[i] = line.size() > 15 ? line.substr(15, 4) : "";
    }
    return files;
}

}  // namespace solvane
