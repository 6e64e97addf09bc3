// libFuzzer target for the building type table (\Codes\BType2020-Defaults.txt):
// each input is the table's text. A table that reads gives every type's
// outdoor air, its profile group and its survey figures, and the benchmark
// text of the energy-use screen is made from them in both unit systems.
#include <cstdint>
#include <string>

#include "code/building_types.h"
#include "core/item_reader.h"
#include "results/benchmark.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    ProjectModel model;
    try {
        LoadBuildingTypeTable(model, std::string(reinterpret_cast<const char*>(data), size),
                              "BType2020-Defaults.txt");
    } catch (const ReadError&) {
        return 0;
    }
    for (int type = 1; type <= kBuildingTypes; ++type) {
        for (int units : {1, 2}) {
            model.session.Units = units;
            const Benchmark pair = ComputeBenchmark(model, type);
            BenchmarkInput in;
            in.SiteEUI = pair.first * 0.8;
            in.SourceEUI = pair.second * 1.1;
            in.si = units == 2;
            in.BuildingType = type;
            in.BuildingTypeName = model.btypes.BTypeName[type];
            in.CbecsSiteEUI = model.btypes.BTypeEUILow[type];
            in.CbecsSourceEUI = model.btypes.BTypeEUIHigh[type];
            in.ClimateZone = "5 B";
            BenchmarkText(in);
        }
    }
    return 0;
}
