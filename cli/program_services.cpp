#include "cli/program_services.h"

#include <random>

#include "code/building_types.h"
#include "code/code_selection.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/schedule_library.h"
#include "run/engine_contract.h"
#include "zones/zone_list.h"

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
    services.describeZones = ReDeriveZones;
    services.selectCode = [](Session& s, Prompt& p, int icon) { SelectCode(s, p, icon); };
    services.showCodeStatus = [](Prompt& p) { ShowCodeStatus(p); };
    services.readHeadLine = [](Session& s) { ReadHeadLine(s.model); };
    // The run without A/C from the menu sends the project as it stands.
    services.writeEngineInput = [](Session& s, Prompt& p) {
        std::random_device device;
        std::uniform_real_distribution<double> uniform(0.0, 1.0);
        return WriteEngineInput(s, p, false, [&] { return uniform(device); });
    };
    return services;
}

}  // namespace solvane
