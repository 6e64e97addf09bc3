// Site EUI of the bundled sample buildings (office, school, retail, house,
// warehouse) in three climates, beside the CBECS 2012 survey's quartiles of
// their type. Each sample goes the user's way: read, written in I-P as the
// engine's input, its weather block swapped for another sample's (Chicago,
// Atlanta, Phoenix), read and translated as the engine does it, simulated on
// the synthetic weather of that block with design-day sizing.
#include "eui_check.h"

#include <filesystem>
#include <stdexcept>

#include <unistd.h>

#include "core/line_writer.h"
#include "core/session.h"
#include "core/text_file.h"
#include "engine/hvac_systems.h"
#include "engine/project_translation.h"
#include "engine/simulation.h"
#include "engine/sizing.h"
#include "engine/synthetic_weather.h"
#include "projectfile/project_file.h"
#include "ui/scripted_prompt.h"

namespace solvane::engine::testing {

namespace {

namespace fs = std::filesystem;

const std::string kSamples = std::string(SOLVANE_SOURCE_DIR) + "/data/sample/";

// The engine's input text of a sample: its project in I-P.
std::string EngineInput(const std::string& file) {
    static int calls = 0;
    const fs::path dir = fs::temp_directory_path() / ("solvane_eui_" + std::to_string(::getpid()) +
                                                      "_" + std::to_string(++calls));
    fs::create_directories(dir / "temp");
    fs::create_directories(dir / "sketch");
    Session session;
    session.paths = ProgramPaths(dir);
    ScriptedPrompt prompt;
    const auto text = ReadTextFile(kSamples + file);
    if (!text) throw std::runtime_error("cannot read " + file);
    if (ReadProjectFile(session, prompt, *text, file, {}) != ReadStatus::Read)
        throw std::runtime_error("cannot read the project " + file);
    LineWriter out;
    // The head line's last word is the unit the user works in.
    out.Line(std::string("SOLVANE-2020 .83766422 4  ") +
             (session.model.session.Units == 2 ? "SI" : "IP"));
    if (session.model.session.Units == 2)
        WriteProjectFileToIP(session, out);
    else
        WriteProjectFile(session, out);
    fs::remove_all(dir);
    return out.Str();
}

// The lines from "WEATHER" to "DesTemps:" of an engine input.
std::pair<std::size_t, std::size_t> WeatherBlock(const std::string& t) {
    const std::size_t a = t.find("\nWEATHER");
    const std::size_t d = t.find("\nDesTemps:", a);
    const std::size_t b = t.find('\n', d + 1);
    if (a == std::string::npos || d == std::string::npos || b == std::string::npos)
        throw std::runtime_error("no weather block");
    return {a + 1, b + 1};
}

}  // namespace

const std::vector<EuiSample>& EuiSamples() {
    // Benchmarks: CBECS 2012 site EUI, kBtu/ft2, computed from EIA's
    // microdata (reference file 12): median and quartiles of the type.
    static const std::vector<EuiSample> s = {
        {"Small Office [two levels, I-P].inp", "office", "Office", 52.6, 32.8, 81.3},
        {"Primary School [SI].inp", "school", "Education", 50.9, 31.2, 81.5},
        {"Retail Store [I-P].inp", "retail", "Retail (other than mall)", 51.6, 26.3, 86.9},
        {"Single-Family House [two levels, I-P].inp", "house", "", 0, 0, 0},
        {"Warehouse [SI].inp", "warehouse", "Warehouse and storage", 18.4, 7.0, 40.3},
    };
    return s;
}

const std::vector<EuiClimate>& EuiClimates() {
    static const std::vector<EuiClimate> c = {
        {"Chicago (5A)", "Small Office [two levels, I-P].inp"},
        {"Atlanta (3A)", "Single-Family House [two levels, I-P].inp"},
        {"Phoenix (1B)", "Retail Store [I-P].inp"},
    };
    return c;
}

EuiResult RunEui(const EuiSample& sample, const EuiClimate& climate) {
    std::string inp = EngineInput(sample.file);
    const std::string donor = EngineInput(climate.weatherFrom);
    const auto [a, b] = WeatherBlock(inp);
    const auto [c, d] = WeatherBlock(donor);
    inp = inp.substr(0, a) + donor.substr(c, d - c) + inp.substr(b);
    const fs::path path =
        fs::temp_directory_path() / ("solvane_eui_" + std::to_string(::getpid()) + "_run.inp");
    if (!WriteFileAtomic(path, inp)) throw std::runtime_error("cannot write " + path.string());
    ProjectRunInputs in = LoadProjectCase(path.string(), 3);
    fs::remove(path);
    const WeatherYear w = SynthesizeWeather(in.climate, in.site, 1);
    RunOptions opt;
    const RunResults run = Simulate(in.building, w, opt);
    std::optional<DesignLoads> design;
    if (in.design) design = DesignDayLoads(in.building, w, *in.design, opt);
    const SystemsResults sys =
        SimulateSystems(in.building, run, w, opt, in.systems, design ? &*design : nullptr);
    EuiResult r;
    for (const Zone& z : in.building.zones) r.floorFt2 += z.floorArea / 0.09290304;
    const double kbtu = (sys.TotalElectric() + sys.TotalFuel()) * 3.412142e-3;
    r.siteEui = kbtu / r.floorFt2;
    r.electricShare = sys.TotalElectric() / (sys.TotalElectric() + sys.TotalFuel());
    for (const ZoneSystemResults& o : sys.zones)
        r.unmetHours += o.unmetCoolingHours + o.unmetHeatingHours;
    return r;
}

}  // namespace solvane::engine::testing
