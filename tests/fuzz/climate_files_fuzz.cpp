// libFuzzer target for the city climate database: the first byte chooses
// which file of region 1 the rest of the input becomes (0 the state tally,
// 1 the region's city records, 2 the map list); the other regions stay the
// small valid files made at the start. The index is then loaded and every
// record's lines parsed as the location screen parses them.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "tests/fuzz/scratch_folder.h"
#include "weather/climate_database.h"

namespace fs = std::filesystem;
using namespace solvane;

namespace {

const char* const kRecord =
    "\"AL\",\"01\",\"2551 1881 3 A\"\r\n"
    "\"Birmingham Muni AP, Alabama                \" \"722280\" 33.57 -86.75 -90 620\r\n"
    "  42.6  46.5  54.3  61.9  69.9  77.2  80.3  79.8  74.2  63.3  53.3  45.5\r\n"
    "   6.1   5.6   4.8   3.1   2.5   1.6   1.2   1.4   2.3   2.9   4.1   5.2\r\n"
    "  52.8  57.4  65.7  73.6  80.9  87.6  90.5  90.2  84.6  74.7  64.5  55.6\r\n"
    "   6.3   6.1   5.2   3.5   2.8   2.0   1.5   1.7   2.6   3.3   4.5   5.5\r\n"
    "  31.2  33.9  40.9  48.7  58.8  66.8  70.4  69.8  63.5  50.8  41.3  34.1\r\n"
    "   7.2   6.9   6.3   5.1   3.8   2.6   1.9   2.1   3.4   5.0   6.2   7.0\r\n"
    "   839  1100  1452  1823  2000  2072  1986  1852  1540  1245   909   753\r\n"
    "   7.4   7.8   8.2   7.8   6.5   5.9   5.5   5.3   5.8   6.1   6.8   7.2\r\n";

const fs::path& ProgramFolder() {
    static const fuzz::ScratchFolder folder("solvane_climate_");
    static const bool made = [] {
        const ProgramPaths paths(folder.Path());
        for (int r = 1; r <= kRegions; ++r) {
            fs::create_directories(paths.Resolve(MapListPath(r)).parent_path());
            WriteFileAtomic(
                paths.Resolve(StateTallyPath(r)),
                std::string("   1") + (r <= 2 ? "AL " : "ALA") +
                    "  Alabama\r\nLast                                             1\r\n");
            WriteFileAtomic(paths.Resolve(MapListPath(r)), "Alabama.jpg\r\n");
            WriteFileAtomic(paths.Resolve(RegionFilePath(r)), kRecord);
        }
        return true;
    }();
    (void)made;
    return folder.Path();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const ProgramPaths paths(ProgramFolder());
    const std::string_view content(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string files[] = {StateTallyPath(1), RegionFilePath(1), MapListPath(1)};
    const fs::path target = paths.Resolve(files[data[0] % 3]);
    WriteFileAtomic(target, content);
    ClimateIndex index;
    try {
        LoadLocationCounts(paths, index);
        TotalsLine(index);
        for (int r = 1; r <= kRegions; ++r) RegionCountLine(index, r);
    } catch (const ReadError&) {
    }
    // Every record of the region file, line by line as the screens read it.
    const auto lines = SplitLines(ReadTextFile(paths.Resolve(RegionFilePath(1))).value_or(""));
    for (std::size_t i = 0; i + 1 < lines.size(); i += kRecordLines) {
        const auto key = SplitKeyLine(lines[i]);
        if (key.size() >= 3) {
            ParseClimateHeader(key[2], 1);
            ParseClimateHeader(key[2], 2);
        }
        const NameLine name = ParseNameLine(lines[i + 1]);
        CityOfNameField(name.name);
        MarkerOfNameField(name.name, "");
        for (std::size_t row = 2; row < kRecordLines && i + row < lines.size(); ++row) {
            const auto v = ParseMonthlyRow(lines[i + row]);
            for (int m = 1; m <= 12; ++m) MonthlyToScreen(static_cast<int>(row) - 1, v[m], 2);
        }
    }
    // The region's files as they were, for the next input.
    WriteFileAtomic(paths.Resolve(StateTallyPath(1)),
                    "   1AL   Alabama\r\nLast                                             1\r\n");
    WriteFileAtomic(paths.Resolve(RegionFilePath(1)), kRecord);
    WriteFileAtomic(paths.Resolve(MapListPath(1)), "Alabama.jpg\r\n");
    return 0;
}
