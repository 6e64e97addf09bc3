// The benchmark screen `EUI`, opened from the energy breakdown: the building's
// energy use intensity against the 2012 CBECS survey, with a picture of the
// survey's bars for its kind of building, one picture per unit system.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/session.h"
#include "ui/canvas.h"
#include "ui/prompt.h"

namespace solvane {

// The survey's site EUI of each building type, kBtu per sq.ft. a year
// (\codes\EUI-Targets.txt): the activity it stands for and the lower
// quartile, median and upper quartile. A type without survey figures has
// all three 0.
struct EuiTargets {
    std::array<std::string, kBuildingTypes + 1> activity;
    std::array<std::array<float, 3>, kBuildingTypes + 1> site{};
};

inline constexpr const char* kEuiTargetsFile = "\\codes\\EUI-Targets.txt";

// Reads the targets file; throws ReadError naming file and line when a row
// is missing or out of order.
EuiTargets ReadEuiTargets(const std::string& text, const std::string& fileName);

// What one picture shows.
struct EuiPicture {
    bool si = false;
    std::string activity;           // empty: the survey has no figures for the type
    std::array<float, 3> survey{};  // lower quartile, median, upper quartile, in the units
    double siteEUI = 0;             // the building's, in the units
    std::string climateZone;
};

// The picture of the bars: the survey's upper quartile, median and lower
// quartile (the green building target: the best quarter of the survey) and
// the building's own site EUI, each with its figure.
void DrawEuiPicture(Canvas& canvas, const EuiPicture& picture);

// Fields: `Heading`, `Text1`, `Label3`, `Label4`, and the two pictures
// `Image1_1` (I-P) and `Image1_2` (SI), only that of the units visible.
class EuiController {
  public:
    EuiController(Session& session, Prompt& prompt);

    // Reads the results and the survey figures and fills the screen. False,
    // after telling the user, when the results or the building type's
    // survey figures are missing.
    bool Open();
    // Draws picture `Image1_<units>`.
    void Draw(Canvas& canvas, int units) const;

    ScreenFields fields;

  private:
    Session& session_;
    Prompt& prompt_;
    std::optional<EuiTargets> targets_;
    double siteEUI_ = 0;
    bool reportSi_ = false;
};

}  // namespace solvane
