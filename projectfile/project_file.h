// The project input file (.inp): one plain text file that holds the whole
// project, line by line in a fixed order. The writer prints every table of
// the model; the reader takes lines in the same order without looking at the
// labels, so the two must agree line for line.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/line_writer.h"
#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// Work of other libraries that the reader calls at fixed points of a read.
// A hook that is not set is skipped. A hook may throw: the read then ends as
// on any other error in it.
struct ProjectFileHooks {
    // Reads \profiles\Schedules-Solv2020.txt into the profile titles, group
    // names and the groups the project does not hold.
    std::function<void(Session&, Prompt&)> loadScheduleLibrary;
    // Loads the wall and window catalogs for the current code and climate
    // zone, so that a read catalog starts from them.
    std::function<void(Session&, Prompt&)> loadEnvelopeDefaults;
    // People per 1000 floor area units for a building type: column 6 of its
    // row of \Codes\BType2020-Defaults.txt.
    std::function<double(Session&, int buildingType)> buildingTypeOccupancy;
    // Paints the hub's code banner for the code the file holds.
    std::function<void(Session&)> showCodeBanner;
};

// Raised when a project file cannot be written (its matrix file is missing).
class WriteError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// ---- writing ------------------------------------------------------------------

// The head line: "SOLVANE   ", the weather seed, column 21, the format
// number, a blank and the units word.
std::string HeadLine(const ProjectModel& model, std::string_view unitsWord);

// Writes everything after the head line in the project's own units. Changes
// the model as the format asks: an outdoor air value without its prefix gets
// "CP", `DaylightingUsed` follows the zones, and missing design temperatures
// are computed. Throws WriteError when \sketch\bld_mtx.all cannot be read.
void WriteProjectFile(Session& session, LineWriter& out);

// The same layout with every dimensional value converted to SI (from a
// project in I-P) or to I-P (from a project in SI). The model is not changed.
void WriteProjectFileToSI(const Session& session, LineWriter& out);
void WriteProjectFileToIP(const Session& session, LineWriter& out);

// ---- reading -----------------------------------------------------------------

enum class ReadStatus {
    Read,     // the model holds the project
    Damaged,  // the file was damaged; the user has been told, the model is incomplete
};

// Reads a whole project file into the model, stages each zone's surfaces in
// \temp\temp<zone>.zon and the building matrix in \sketch\bld_mtx.all. Any
// error in the file shows the "Surprise" prompt and gives Damaged; the model
// is then incomplete, so callers read into a scratch session and keep it only
// when the read succeeds.
ReadStatus ReadProjectFile(Session& session, Prompt& prompt, std::string_view content,
                           const std::string& fileName, const ProjectFileHooks& hooks);

// Takes the weather seed and the format number from the first line of
// `InputFileName`. False when the file cannot be read.
bool ReadHeadLine(ProjectModel& model);

// Whether a climate zone text names one of the zones 1 to 8.
bool NamesClimateZone(const std::string& climateZone);

// The text of the "Surprise" prompt for a run-time error's own text.
std::string SurpriseText(const std::string& errorText);

}  // namespace solvane
