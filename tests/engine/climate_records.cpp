#include "climate_records.h"

#include <stdexcept>

#include "core/item_reader.h"
#include "core/text_file.h"

namespace solvane::engine::testing {

std::vector<ClimateRecord> ReadClimateRecords(const std::string& path) {
    const auto text = ReadTextFile(path);
    if (!text) throw std::runtime_error("cannot read " + path);
    std::string body;
    for (const std::string& line : SplitLines(*text))
        if (!line.empty() && line[0] != '#') body += line + "\n";
    ItemReader in(body, path);
    std::vector<ClimateRecord> out;
    while (!in.AtEnd()) {
        ClimateRecord r;
        r.name = in.NextText();
        r.site.name = r.name;
        r.site.latitude = in.NextNumber();
        r.site.longitude = in.NextNumber();
        r.site.timeZone = in.NextNumber() / 15.0;
        r.site.elevation = in.NextNumber() * 0.3048;
        for (auto* row : {&r.climate.dryBulbMean, &r.climate.dryBulbMeanSd, &r.climate.dryBulbMax,
                          &r.climate.dryBulbMaxSd, &r.climate.dewPointMean, &r.climate.dewPointSd,
                          &r.climate.solar, &r.climate.wind})
            for (double& v : *row) v = in.NextNumber();
        out.push_back(r);
    }
    return out;
}

}  // namespace solvane::engine::testing
