#include "studies/sweep_file.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

namespace {

constexpr const char* kFixedColumns[] = {
    "region",        "record",    "station",     "state",         "wmo",
    "latitude",      "longitude", "climateZone", "summerDryBulb", "summerWetBulb",
    "winterDryBulb", "units",     "status"};
constexpr std::size_t kFixedCount = std::size(kFixedColumns);

std::string Quoted(const std::string& field) {
    if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
    std::string out = "\"";
    for (char c : field) out += c == '"' ? std::string("\"\"") : std::string(1, c);
    return out + "\"";
}

// Station order, the last row of a station kept.
std::vector<SweepRow> Ordered(std::vector<SweepRow> rows) {
    std::map<std::pair<int, int>, SweepRow> byStation;
    for (SweepRow& r : rows) byStation[{r.region, r.ordinal}] = std::move(r);
    std::vector<SweepRow> out;
    for (auto& [key, row] : byStation) out.push_back(std::move(row));
    return out;
}

std::optional<SweepRow> RowOf(const std::vector<std::string>& f) {
    if (f.size() != SweepHeader().size()) return std::nullopt;
    SweepRow r;
    r.region = static_cast<int>(NumVal(f[0]));
    r.ordinal = static_cast<int>(NumVal(f[1]));
    if (r.region < 1 || r.ordinal < 1) return std::nullopt;
    r.station = f[2], r.state = f[3], r.wmo = f[4], r.latitude = f[5], r.longitude = f[6];
    r.climateZone = f[7], r.summerDryBulb = f[8], r.summerWetBulb = f[9], r.winterDryBulb = f[10];
    r.units = f[11], r.status = f[12];
    r.figures.assign(f.begin() + static_cast<long>(kFixedCount), f.end());
    return r;
}

void WriteOrThrow(const std::filesystem::path& file, std::string_view text) {
    std::string reason;
    if (!WriteFileAtomic(file, text, &reason))
        throw std::runtime_error(WriteFailureText(file, reason));
}

std::string JsonText(const std::string& s) {
    std::string out = "\"";
    for (unsigned char c : s) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\u%04x", c);
            out += buf;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out + "\"";
}

// A figure as a JSON number: the file's ".5" and "-.25" forms are not JSON.
std::string JsonNumber(const std::string& s) {
    if (s.empty() || !IsNumericText(s)) return "null";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.10g", NumVal(s));
    return buf;
}

}  // namespace

std::string SweepRow::Key() const {
    return std::to_string(region) + ":" + std::to_string(ordinal);
}

std::vector<std::string> SweepHeader() {
    std::vector<std::string> h(std::begin(kFixedColumns), std::end(kFixedColumns));
    for (std::string_view f : kSweepFigures) h.emplace_back(f);
    return h;
}

std::string SweepCsvLine(const SweepRow& r) {
    std::vector<std::string> f = {std::to_string(r.region),
                                  std::to_string(r.ordinal),
                                  r.station,
                                  r.state,
                                  r.wmo,
                                  r.latitude,
                                  r.longitude,
                                  r.climateZone,
                                  r.summerDryBulb,
                                  r.summerWetBulb,
                                  r.winterDryBulb,
                                  r.units,
                                  r.status};
    for (std::size_t i = 0; i < std::size(kSweepFigures); ++i)
        f.push_back(i < r.figures.size() ? r.figures[i] : std::string());
    std::string line;
    for (std::size_t i = 0; i < f.size(); ++i) line += (i ? "," : "") + Quoted(f[i]);
    return line;
}

std::vector<std::string> SplitCsvLine(std::string_view line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted) {
            if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
                fields.back() += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                fields.back() += c;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.emplace_back();
        } else if (c != '\r') {
            fields.back() += c;
        }
    }
    return fields;
}

SweepFile ReadSweepCsv(const std::filesystem::path& file) {
    const auto text = ReadTextFile(file);
    if (!text) throw std::runtime_error(file.string() + ": cannot be read");
    SweepFile out;
    std::size_t lineNumber = 0, at = 0;
    while (at < text->size()) {
        const std::size_t end = text->find('\n', at);
        const bool whole = end != std::string::npos;
        const std::string_view line =
            std::string_view(*text).substr(at, whole ? end - at : std::string::npos);
        at = whole ? end + 1 : text->size();
        ++lineNumber;
        if (lineNumber == 1) {
            if (!whole || SplitCsvLine(line) != SweepHeader())
                throw std::runtime_error(file.string() +
                                         ", line 1: not the header of a sweep's results");
            continue;
        }
        const auto row = whole ? RowOf(SplitCsvLine(line)) : std::nullopt;
        if (row)
            out.rows.push_back(*row);
        else if (!line.empty())
            ++out.droppedLines;
    }
    return out;
}

void WriteSweepCsv(const std::filesystem::path& file, std::vector<SweepRow> rows) {
    LineWriter out;
    const std::vector<std::string> header = SweepHeader();
    std::string head;
    for (std::size_t i = 0; i < header.size(); ++i) head += (i ? "," : "") + header[i];
    out.Line(head);
    for (const SweepRow& r : Ordered(std::move(rows))) out.Line(SweepCsvLine(r));
    WriteOrThrow(file, out.Str());
}

void WriteSweepJson(const std::filesystem::path& file, std::vector<SweepRow> rows) {
    std::ostringstream out;
    out << "{\n  \"schema\": \"solvane-sweep/1\",\n  \"stations\": [";
    const std::vector<SweepRow> ordered = Ordered(std::move(rows));
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        const SweepRow& r = ordered[i];
        out << (i ? ",\n" : "\n") << "    {\"region\": " << r.region
            << ", \"record\": " << r.ordinal << ", \"station\": " << JsonText(r.station)
            << ", \"state\": " << JsonText(r.state) << ", \"wmo\": " << JsonText(r.wmo)
            << ", \"latitude\": " << JsonNumber(r.latitude)
            << ", \"longitude\": " << JsonNumber(r.longitude)
            << ", \"climateZone\": " << JsonText(r.climateZone)
            << ", \"designTemperatures\": {\"summerDryBulb\": " << JsonNumber(r.summerDryBulb)
            << ", \"summerWetBulb\": " << JsonNumber(r.summerWetBulb)
            << ", \"winterDryBulb\": " << JsonNumber(r.winterDryBulb) << "}"
            << ", \"units\": " << JsonText(r.units) << ", \"status\": " << JsonText(r.status)
            << ", \"figures\": {";
        for (std::size_t k = 0; k < std::size(kSweepFigures); ++k)
            out << (k ? ", " : "") << "\"" << kSweepFigures[k]
                << "\": " << JsonNumber(k < r.figures.size() ? r.figures[k] : "");
        out << "}}";
    }
    out << "\n  ]\n}\n";
    WriteOrThrow(file, out.str());
}

std::vector<SweepRow> MergeSweepParts(const std::vector<std::filesystem::path>& parts) {
    std::map<std::pair<int, int>, std::pair<SweepRow, std::string>> merged;
    for (const auto& part : parts) {
        for (SweepRow& r : ReadSweepCsv(part).rows) {
            const auto key = std::pair{r.region, r.ordinal};
            const auto found = merged.find(key);
            if (found != merged.end() && SweepCsvLine(found->second.first) != SweepCsvLine(r))
                throw std::runtime_error("station " + r.Key() + " (" + r.station +
                                         ") differs between " + found->second.second + " and " +
                                         part.string());
            merged[key] = {std::move(r), part.string()};
        }
    }
    std::vector<SweepRow> out;
    for (auto& [key, row] : merged) out.push_back(std::move(row.first));
    return out;
}

SweepWriter::SweepWriter(const std::filesystem::path& file) : file_(file) {
    if (std::filesystem::exists(file)) {
        SweepFile existing = ReadSweepCsv(file);
        for (const SweepRow& r : existing.rows) done_[r.Key()] = r;
        // Whole rows only: the file is rewritten without a torn last line.
        if (existing.droppedLines > 0) WriteSweepCsv(file, existing.rows);
    } else {
        WriteSweepCsv(file, {});
    }
    out_ = std::fopen(file.c_str(), "ab");
    if (!out_) throw std::runtime_error(file.string() + ": cannot be written");
}

SweepWriter::~SweepWriter() {
    if (out_) std::fclose(out_);
}

void SweepWriter::Append(const SweepRow& row) {
    const std::string line = SweepCsvLine(row) + "\r\n";
    std::fwrite(line.data(), 1, line.size(), out_);
    std::fflush(out_);
    done_[row.Key()] = row;
}

}  // namespace solvane
