// libFuzzer target for the engine's run control file (temp\ecalc$.tmp) and
// the head line of its project input: any text either reads into values the
// run can use or is refused with a ReadError.
#include <cstdint>
#include <string_view>

#include "core/item_reader.h"
#include "engine/control_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const engine::RunControl c = engine::ReadControlFile(text, "ecalc$.tmp");
        // What the engine relies on once the file is taken.
        if (c.runType < 0 || c.runType > 4 || c.beginDay < 1 || c.endDay > 366 ||
            c.endDay < c.beginDay || !(c.comfortLower < c.comfortUpper))
            __builtin_trap();
    } catch (const ReadError&) {
    }
    engine::ReadEngineHeadLine(text.substr(0, text.find('\n')));
    return 0;
}
