#include "code/building_types.h"

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

namespace {

// One row: the name, the 19 columns and the five further values.
void ReadRow(ItemReader& in, BuildingTypeTable& t, int type) {
    t.BTypeName[type] = in.NextText();
    for (int c = 1; c <= 19; ++c) {
        t.BTypeColumn[type][c] = static_cast<float>(in.NextNumber());
        // The profile group is kept in a 16-bit field.
        const float v = t.BTypeColumn[type][c];
        if (c == 2 && !(v > -32769.0f && v < 32768.0f))
            in.Fail("number out of range: " + NumText(v));
    }
    t.BTypeSkylightMin[type] = static_cast<float>(in.NextNumber());
    t.BTypeRowNumber[type] = static_cast<float>(in.NextNumber());
    t.BTypeEUILow[type] = static_cast<float>(in.NextNumber());
    t.BTypeEUIHigh[type] = static_cast<float>(in.NextNumber());
    t.BTypeSizerText[type] = in.NextText();
    t.BTypeProfileGroup[type] = static_cast<std::int16_t>(t.BTypeColumn[type][2]);
    t.BTypeOA[type] = DefaultOutdoorAir(t.BTypeColumn[type]);
}

}  // namespace

float DefaultOutdoorAir(const std::array<float, 20>& column) {
    float a = RoundOff(static_cast<double>(column[11]) * column[6] / 1000.0, 3);
    if (column[6] < 100) a = RoundOff(static_cast<double>(column[10]) + a, 3);
    return a;
}

void LoadBuildingTypeTable(ProjectModel& model, const ProgramPaths& paths) {
    const auto path = paths.Resolve(kBuildingTypeFile);
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    LoadBuildingTypeTable(model, std::move(*content), path.string());
}

void LoadBuildingTypeTable(ProjectModel& model, std::string text, const std::string& fileName) {
    ItemReader in(std::move(text), fileName);
    BuildingTypeTable t;
    for (int i = 0; i < 3; ++i) in.NextLine();
    for (int type = 1; type <= kBuildingTypes; ++type) ReadRow(in, t, type);
    t.TypeCount = kBuildingTypes;
    for (int i = 0; i < 3; ++i) in.NextLine();
    for (int r = 1; r <= 9; ++r) {
        t.SizerTableA[r] = static_cast<float>(in.NextNumber());
        t.SizerTableB[r] = static_cast<std::int16_t>(in.NextInt());
        t.SizerTableC[r] = static_cast<float>(in.NextNumber());
    }
    // Rows that name a building type give it an alternate window limit text.
    for (int r = 1; r <= 9; ++r) {
        const int type = t.SizerTableB[r];
        if (type == 26 || type == 34) t.BTypeSizerAlternate[type] = NumText(t.SizerTableA[r]);
    }
    model.btypes = std::move(t);
}

void LoadBuildingTypes(Session& session) {
    LoadBuildingTypeTable(session.model, session.paths);
}

double BuildingTypeOccupancy(Session& session, int buildingType) {
    if (session.model.btypes.TypeCount == 0) LoadBuildingTypes(session);
    if (buildingType < 1 || buildingType > kBuildingTypes) return 0;
    return session.model.btypes.BTypeColumn[buildingType][6];
}

Benchmark ComputeBenchmark(const ProjectModel& model, int buildingType) {
    struct SubKinds {
        int type;
        float first, second;
        const char *firstCaption, *secondCaption;
    };
    static constexpr SubKinds kSubKinds[] = {
        {3, 87, 252, "Main bank", "Branch bank"},
        {16, 44, 117, "Clinic", "Doctor's office"},
        {33, 80, 151, "Single family home", "Mobile home"},
        {34, 94, 237, "Retail store", "Shopping mall"},
        {35, 131, 263, "K-12 school", "University"},
    };
    // kBtu/sq.ft a year to MJ/sq.m a year.
    const double factor = model.session.Units == 2 ? 11.36 : 1.0;
    Benchmark b;
    if (buildingType < 1 || buildingType > kBuildingTypes) return b;
    double first = model.btypes.BTypeEUILow[buildingType];
    double second = model.btypes.BTypeEUIHigh[buildingType];
    for (const auto& s : kSubKinds) {
        if (s.type != buildingType) continue;
        first = s.first;
        second = s.second;
        b.firstCaption = s.firstCaption;
        b.secondCaption = s.secondCaption;
    }
    b.first = RoundOff(first * factor, 0);
    b.second = RoundOff(second * factor, 0);
    return b;
}

}  // namespace solvane
