#include "zones/zone_fields.h"

#include <algorithm>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

namespace {

// Typical initial efficacies of the lamp types in lumens per watt, as lamp
// makers' catalogues tabulate them (estimates, one figure per type): low and
// high pressure sodium, metal halide, LED, linear fluorescent, compact
// fluorescent, mercury vapour, tungsten halogen, incandescent.
constexpr float kLampEfficacy[kLampTypes + 1] = {0, 150, 100, 75, 100, 85, 60, 45, 20, 14};

const char* const kLampName[kLampTypes + 1] = {"",
                                               "Low Pressure Sodium",
                                               "High Pressure Sodium",
                                               "Metal Halide",
                                               "LED",
                                               "Fluorescent Tubular",
                                               "Compact Fluorescent",
                                               "Mercury Vapor",
                                               "Tungsten Halogen",
                                               "Incandescent Bulb"};

}  // namespace

const char* const kDaylightingHelpTitle = "Daylighting Requirements:";

int ProfileTypeOfField(int field) {
    for (int t = 1; t <= kProfileTypes; ++t)
        if (kProfileField[t] == field) return t;
    return 0;
}

bool TakesDefaultGroup(int field) {
    return field == 4 || field == 6 || field == 8 || field == 11 || field == 14 ||
           (field >= 16 && field <= 21);
}

std::string DefaultGroupText(const ProjectModel& model) {
    const int type = model.session.BuildingType;
    return StrForm(type >= 1 && type <= kBuildingTypes ? model.btypes.BTypeProfileGroup[type] : 0);
}

std::string NormaliseOutdoorAir(const ProjectModel& model, const std::string& text) {
    std::string t;
    for (char c : text)
        if (c != ' ') t += c;
    std::string prefix = cuts::Left(t, 2);
    double value = t.size() >= 3 ? NumVal(t.substr(2)) : 0;
    if (value == 0) {
        const int type = model.session.BuildingType;
        value = type >= 1 && type <= kBuildingTypes ? model.btypes.BTypeOA[type] : 0;
        if (model.session.Units == 2) value *= 5.08;
        prefix = "CS";
    }
    return prefix + StrForm(static_cast<float>(value));
}

std::string NormaliseYesNo(const std::string& text) {
    return text == " Yes" || text == "Yes" || text == " yes" || text == "yes" ? "Yes" : "No";
}

std::string FlipYesNo(const std::string& text) {
    return text == " Yes" || text == "Yes" ? "No" : "Yes";
}

std::string InternalMassFloor(int units, const std::string& text) {
    const double floor = units == 2 ? 488 : 100;
    return NumVal(text) < floor ? NumText(floor) : text;
}

const char* LampTypeName(int type) {
    return type >= 1 && type <= kLampTypes ? kLampName[type] : "";
}

std::string LightingPowerText(const ProjectModel& model, int type) {
    const int btype = model.session.BuildingType;
    const int code = model.session.CodeNum;
    if (btype < 1 || btype > kBuildingTypes || code < 1 || code > 3 || type < 1 ||
        type > kLampTypes)
        return {};
    const auto& column = model.btypes.BTypeColumn[btype];
    double power = column[12 + code];
    if (model.session.Units == 2) power /= UnitFactor::AreaIpToSi;
    const int reference = static_cast<int>(column[12]);
    const float referenceEfficacy =
        reference >= 1 && reference <= kLampTypes ? kLampEfficacy[reference] : kLampEfficacy[type];
    return StrForm(RoundOff(power * referenceEfficacy / kLampEfficacy[type], 2));
}

std::string HeatingEfficiency(const ProgramPaths& paths, int type) {
    if (type < 1 || type > 3) return {};
    const auto text = ReadTextFile(paths.Resolve("\\codes\\HTfuel.txt"));
    if (!text) return {};
    const auto lines = SplitLines(*text);
    const std::size_t index = 2 + static_cast<std::size_t>(type - 1);
    return index < lines.size() ? cuts::Mid(lines[index], 16, 4) : std::string();
}

std::string DaylightingHelpText() {
    const std::string eol = "\r\n";
    return std::string(
               "You can choose to turn on the daylighting switch in any zone you wish, but only "
               "15 of the ") +
           "40 building types are required by code to have daylighting controls in some, but "
           "not all spaces." +
           eol + "These are:" + eol +
           "   Automotive,  Convention Center, Courthouse, Exercize Center, Library," +
           "   Fire Station (bay area), Gymnasium, Manufacturing Facility," +
           "   Office Spaces, Retail Store and Mall, Sports Arena, Town/Civic Hall," +
           "   Transportation (seating areas), Warehouse, and Workshop." + eol +
           "Solvane will have already turned on the daylighting switch in the interior spaces of "
           "the above mentioned building types. You may select any other spaces that you want." +
           "Skylights and vertical windows are main sources of daylight.  These will help to "
           "offset some of the requirement for " +
           "electrical lighting required to maintain a certain required seeing condition within "
           "the building." +
           "So, in effect, the choice to have daylighting also means there needs to be daylight" +
           " sensors and lighting dimmers installed in the building.  Keep this in mind.";
}

}  // namespace solvane
