// The climate sweep's results file: one CSV row per station (RFC 4180, CR LF
// line ends), written a row at a time so that a stopped sweep can continue,
// and merged from the parts that several machines wrote.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace solvane {

// The headline figures a sweep keeps for each station, in column order.
inline constexpr std::string_view kSweepFigures[] = {
    "siteEUI",      "sourceEUI",         "endUse.HEATING",    "endUse.COOLING", "endUse.LIGHTS",
    "endUse.EQUIP", "endUse.FANS",       "endUse.DHW",        "siteEnergy",     "peakHeating",
    "peakCooling",  "unmetCoolingHours", "unmetHeatingHours", "annualCost"};

struct SweepRow {
    int region = 0, ordinal = 0;  // the station: region file and record number (1 = first)
    std::string station, state, wmo, climateZone;
    std::string latitude, longitude;
    std::string summerDryBulb, summerWetBulb, winterDryBulb;  // design temperatures
    std::string units;                                        // "IP" or "SI", of the figures
    std::string status;                // "ok", or why the station has no figures
    std::vector<std::string> figures;  // one per kSweepFigures, blank when not available

    std::string Key() const;  // "<region>:<ordinal>"
};

// The header line's fields.
std::vector<std::string> SweepHeader();
// One row as a CSV line, without its line end.
std::string SweepCsvLine(const SweepRow& row);

// Splits one CSV line into its fields (quotes and doubled quotes).
std::vector<std::string> SplitCsvLine(std::string_view line);

struct SweepFile {
    std::vector<SweepRow> rows;
    // Lines that are not whole rows (a sweep stopped while writing one).
    int droppedLines = 0;
};

// Reads a sweep's CSV. Throws std::runtime_error naming the file and line
// when its header is not a sweep's.
SweepFile ReadSweepCsv(const std::filesystem::path& file);

// Writes rows in station order (region, then record) through a temporary
// name, with the header line. The last row of a station listed twice wins.
void WriteSweepCsv(const std::filesystem::path& file, std::vector<SweepRow> rows);
// The same as JSON (docs/sweeps.md).
void WriteSweepJson(const std::filesystem::path& file, std::vector<SweepRow> rows);

// Merges the parts of a sweep that ran as several jobs: every station once,
// in station order. Throws std::runtime_error naming a part that is not a
// sweep's, or two parts that give one station different figures.
std::vector<SweepRow> MergeSweepParts(const std::vector<std::filesystem::path>& parts);

// Appends rows to a sweep's CSV as they come, one whole line at a time.
class SweepWriter {
  public:
    // Creates the file with its header, or continues it: a trailing part of a
    // row is dropped and the file keeps its whole rows.
    explicit SweepWriter(const std::filesystem::path& file);
    ~SweepWriter();
    SweepWriter(const SweepWriter&) = delete;
    SweepWriter& operator=(const SweepWriter&) = delete;

    // The rows the file already held, by key.
    const std::map<std::string, SweepRow>& Done() const { return done_; }
    void Append(const SweepRow& row);

  private:
    std::filesystem::path file_;
    std::map<std::string, SweepRow> done_;
    std::FILE* out_ = nullptr;
};

}  // namespace solvane
