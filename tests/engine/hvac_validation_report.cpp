// Prints the ASHRAE 140 unitary cooling cases CE100 to CE200 beside the
// analytical solutions, as the table of docs/validation.md. Run by hand:
// engine_hvac_validation.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>

#include "ce_cases.h"

using namespace solvane::engine::testing;

int main() {
    const auto ref =
        ReadCeReference(std::string(SOLVANE_SOURCE_DIR) + "/tests/engine/ce_reference.csv");
    std::map<std::string, std::map<std::string, CeReference>> byCase;
    for (const CeReference& r : ref) byCase[r.caseName][r.metric] = r;
    const char* metrics[] = {"elec_total",       "elec_compressor", "elec_indoor_fan",
                             "elec_outdoor_fan", "coil_sensible",   "coil_latent",
                             "cop_mean",         "idb_mean",        "w_mean"};
    std::printf(
        "| Case | Total | Compressor | Indoor fan | Outdoor fan | Coil sensible | "
        "Coil latent | COP | Mean IDB (C) | Mean W (g/kg) |\n");
    std::printf("|---|---|---|---|---|---|---|---|---|---|\n");
    double worst = 0;
    std::string worstAt;
    for (const CeCase& c : CeCases()) {
        const auto f = RunCeCase(c);
        std::printf("| %s |", c.name.c_str());
        for (const char* m : metrics) {
            const CeReference& r = byCase.at(c.name).at(m);
            const double scale = std::string(m) == "w_mean" ? 1000.0 : 1.0;
            const int digits = std::string(m) == "cop_mean" || std::string(m) == "w_mean" ||
                                       std::string(m) == "idb_mean"
                                   ? 2
                                   : 1;
            const double v = f.at(m);
            std::printf(" %.*f (%.*f-%.*f) |", digits, v * scale, digits, r.analyticalMin * scale,
                        digits, r.analyticalMax * scale);
            const double nearest = std::clamp(v, r.analyticalMin, r.analyticalMax);
            if (std::string(m) != "idb_mean" && nearest != 0 && std::fabs(v / nearest - 1) > worst)
                worst = std::fabs(v / nearest - 1), worstAt = c.name + " " + m;
        }
        std::printf("\n");
    }
    std::printf("\nlargest departure from the analytical range: %.2f %% (%s)\n", 100 * worst,
                worstAt.c_str());
}
