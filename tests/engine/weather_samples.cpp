// Writes the help samples of the fixed-column weather forms into
// data/Helpinfo from the Denver fixture year.
#include <cstdio>
#include <string>

#include "core/text_file.h"
#include "engine/epw_reader.h"
#include "weather_format_writer.h"

using namespace solvane;
using namespace solvane::engine;
using namespace solvane::engine::testing;

int main() {
    const std::string src = SOLVANE_SOURCE_DIR;
    const WeatherYear denver = ReadEpwFile(src + "/tests/fixtures/weather/725650TYCST.epw");
    const std::string dir = src + "/data/Helpinfo/";
    bool ok = WriteFileAtomic(dir + "tmy2.txt", Tmy2HelpSample(denver));
    ok = WriteFileAtomic(dir + "wyec2.txt", Wyec2HelpSample(denver)) && ok;
    ok = WriteFileAtomic(dir + "iwec.txt", IwecHelpSample(denver)) && ok;
    std::puts(ok ? "written" : "cannot write the samples");
    return ok ? 0 : 1;
}
