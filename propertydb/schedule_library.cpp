#include "propertydb/schedule_library.h"

#include <cmath>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

void LoadScheduleLibrary(ProjectModel& model, const ProgramPaths& paths) {
    const auto path = paths.Resolve(kScheduleLibraryFile);
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    ItemReader in(std::move(*content), path.string());
    const bool si = model.session.Units == 2;
    ProfileState& p = model.profiles;
    ScheduleLibraryState& lib = model.library;

    for (int g = 1; g <= kProfileGroups; ++g) {
        in.NextInt();  // the block's own number; the order gives the group
        p.ProfileGroupName[g] = in.NextText();
        in.NextLine();  // the block's source line
        for (int t = 1; t <= kProfileTypes; ++t) {
            p.ProfileTypeTitle[t] = in.NextLine();
            for (int d = 1; d <= kDayTypes; ++d) {
                std::string& text = lib.LibraryProfile[t][g][d];
                text.clear();
                in.NextText();  // the day label
                for (int h = 1; h <= 24; ++h) {
                    double v = in.NextNumber();
                    if (si && (t == kCoolStat || t == kHeatStat))
                        v = RoundOff(UnitFactor::FahrenheitToCelsius(v), 0);
                    const std::int16_t value = ToInt16(v);
                    lib.LibraryProfileValue[t][g][d][h] = value;
                    text += FormatField(StrForm(static_cast<int>(value)), "@@@@");
                }
                std::string& project = p.Types[t].Profile[g][d];
                if (project.empty()) project = text;
            }
        }
        in.NextLine();  // the block's closing line
    }
}

void LoadScheduleLibrary(Session& session, Prompt&) {
    LoadScheduleLibrary(session.model, session.paths);
}

void UseBuildingTypeProfiles(ProjectModel& model) {
    const int type = model.session.BuildingType;
    if (type < 1 || type > kBuildingTypes) return;
    const int g = model.btypes.BTypeProfileGroup[type];
    if (g < 1 || g > kProfileGroups) return;
    ProfileState& p = model.profiles;
    for (int t = 1; t <= kProfileTypes; ++t) {
        // Without a leading blank: the project file reader takes the group
        // number from the line's first two characters.
        p.Types[t].GroupNum[g] = NumText(g);
        if (p.ProfileTypeEdited[t] == 0 || model.flags.DefaultsApplied == 1)
            for (int d = 1; d <= kDayTypes; ++d)
                p.Types[t].Profile[g][d] = model.library.LibraryProfile[t][g][d];
        p.ProfileTypeUsed[t] = 1;
        p.ProfileTypeEdited[t] = 1;
    }
}

}  // namespace solvane
