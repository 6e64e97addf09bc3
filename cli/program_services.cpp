#include "cli/program_services.h"

#include "code/building_types.h"
#include "code/code_selection.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/schedule_library.h"

namespace solvane {

namespace {
void ScheduleLibrary(Session& s, Prompt& p) {
    LoadScheduleLibrary(s, p);
}
void EnvelopeDefaults(Session& s, Prompt& p) {
    LoadEnvelopeDefaults(s, p);
}
}  // namespace

StartupHooks MakeStartupHooks(ClimateIndex& climateIndex) {
    StartupHooks hooks;
    hooks.loadClimateIndex = [&climateIndex](Session& s) {
        return LoadLocationCounts(s.paths, climateIndex);
    };
    hooks.loadBuildingTypes = [](Session& s) { LoadBuildingTypes(s); };
    hooks.loadScheduleLibrary = ScheduleLibrary;
    return hooks;
}

ProjectFileHooks MakeProjectFileHooks() {
    ProjectFileHooks hooks;
    hooks.loadScheduleLibrary = ScheduleLibrary;
    hooks.loadEnvelopeDefaults = EnvelopeDefaults;
    hooks.buildingTypeOccupancy = [](Session& s, int type) {
        return BuildingTypeOccupancy(s, type);
    };
    hooks.showCodeBanner = [](Session& s) { ShowCodeBanner(s); };
    return hooks;
}

HubServices MakeHubServices() {
    HubServices services;
    services.loadEnvelopeDefaults = EnvelopeDefaults;
    services.selectCode = [](Session& s, Prompt& p, int icon) { SelectCode(s, p, icon); };
    services.showCodeStatus = [](Prompt& p) { ShowCodeStatus(p); };
    services.readHeadLine = [](Session& s) { ReadHeadLine(s.model); };
    return services;
}

}  // namespace solvane
