#include "zones/zone_files.h"

#include <cmath>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

namespace {

ItemReader OpenZoneFile(const ProgramPaths& paths, const std::string& zoneNumber) {
    const auto path = paths.Resolve(ZoneFileName(zoneNumber));
    const auto text = ReadTextFile(path);
    if (!text) throw ReadError(path.string(), 0, "The zone file cannot be opened");
    return ItemReader(*text, path.string());
}

std::int16_t Int16Of(double v, const ItemReader& in) {
    if (v < -32768 || v > 32767) in.Fail("Overflow");
    return ToInt16(v);
}

std::int16_t Int16Item(ItemReader& in) {
    return Int16Of(in.NextNumber(), in);
}

// The thirteen values after the wall ID.
void ReadRest(ItemReader& in, SurfaceState& sf, int z, int s) {
    sf.SurfArea[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfOrient[z][s] = Int16Item(in);
    sf.SurfExposure[z][s] = Int16Item(in);
    sf.SurfShade[z][s] = in.NextText();
    sf.SurfWindowId[z][s] = Int16Item(in);
    sf.SurfWindowArea[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfSlope[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfSWB[z][s] = in.NextText();
    sf.SurfBlind[z][s] = Int16Item(in);
    sf.SurfDiffTrans[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfSillHeight[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfWindowHeight[z][s] = static_cast<float>(in.NextNumber());
    sf.SurfGroundRefl[z][s] = static_cast<float>(in.NextNumber());
}

void NeedMore(ItemReader& in) {
    if (in.AtEnd()) in.Fail("Input past end of file");
}

}  // namespace

std::string ZoneFileName(const std::string& zoneNumber) {
    return "\\temp\\temp" + zoneNumber + ".zon";
}

int ZoneFloor(const std::string& zoneNumber) {
    return static_cast<int>(NumVal(zoneNumber));
}

void ReadZoneFile(ProjectModel& model, const ProgramPaths& paths, int zone) {
    ItemReader in = OpenZoneFile(paths, model.zones.ZoneNumber[zone]);
    SurfaceState& sf = model.surfaces;
    const int count = std::min<int>(model.zones.ZoneSurfaceCount[zone], kMaxSurfaces);
    int read = 0;
    for (int s = 1; s <= count; ++s) {
        NeedMore(in);
        const std::string first = in.NextText();
        if (first == "end") break;
        sf.SurfWallId[zone][s] = Int16Of(NumVal(first), in);
        ReadRest(in, sf, zone, s);
        read = s;
    }
    model.zones.ZoneSurfaceCount[zone] = static_cast<std::int16_t>(read);
}

void ReadZoneFileKeeping(ProjectModel& model, const ProgramPaths& paths, int zone) {
    ItemReader in = OpenZoneFile(paths, model.zones.ZoneNumber[zone]);
    SurfaceState& sf = model.surfaces;
    const int count = std::min<int>(model.zones.ZoneSurfaceCount[zone], kMaxSurfaces);
    const auto rounded = [](double a) { return std::trunc(a + 0.5); };
    for (int s = 1; s <= count; ++s) {
        NeedMore(in);
        const std::string first = in.NextText();
        if (first == "end") break;
        const double wallId = NumVal(first);
        const double area = in.NextNumber();
        const int orient = Int16Item(in);
        const int exposure = Int16Item(in);
        const std::string shade = in.NextText();
        const bool differs =
            rounded(sf.SurfArea[zone][s]) != rounded(area) || orient != sf.SurfOrient[zone][s];
        if (differs) {
            for (int k = 0; k < 9; ++k) in.NextText();  // the nine others are read past
            continue;
        }
        sf.SurfWallId[zone][s] = Int16Of(wallId, in);
        sf.SurfArea[zone][s] = static_cast<float>(area);
        sf.SurfOrient[zone][s] = static_cast<std::int16_t>(orient);
        sf.SurfExposure[zone][s] = static_cast<std::int16_t>(exposure);
        sf.SurfShade[zone][s] = shade;
        sf.SurfWindowId[zone][s] = Int16Item(in);
        sf.SurfWindowArea[zone][s] = static_cast<float>(in.NextNumber());
        sf.SurfSlope[zone][s] = static_cast<float>(in.NextNumber());
        sf.SurfSWB[zone][s] = in.NextText();
        sf.SurfBlind[zone][s] = Int16Item(in);
        sf.SurfDiffTrans[zone][s] = static_cast<float>(in.NextNumber());
        sf.SurfSillHeight[zone][s] = static_cast<float>(in.NextNumber());
        sf.SurfWindowHeight[zone][s] = static_cast<float>(in.NextNumber());
        sf.SurfGroundRefl[zone][s] = static_cast<float>(in.NextNumber());
        if (sf.SurfWindowArea[zone][s] > area)
            sf.SurfWindowArea[zone][s] = static_cast<float>(0.2 * area);
    }
}

std::string ZoneFileText(const ProjectModel& model, int zone) {
    const SurfaceState& sf = model.surfaces;
    LineWriter out;
    for (int s = 1; s <= model.zones.ZoneSurfaceCount[zone] && s <= kMaxSurfaces; ++s) {
        out.Line(NumText(static_cast<int>(sf.SurfWallId[zone][s])));
        out.Line(NumText(sf.SurfArea[zone][s]));
        out.Line(NumText(static_cast<int>(sf.SurfOrient[zone][s])));
        out.Line(NumText(static_cast<int>(sf.SurfExposure[zone][s])));
        out.Line("\"" + sf.SurfShade[zone][s] + "\"");
        out.Line(NumText(static_cast<int>(sf.SurfWindowId[zone][s])));
        out.Line(NumText(sf.SurfWindowArea[zone][s]));
        out.Line(NumText(sf.SurfSlope[zone][s]));
        out.Line("\"" + sf.SurfSWB[zone][s] + "\"");
        out.Line(NumText(static_cast<int>(sf.SurfBlind[zone][s])));
        out.Line(NumText(sf.SurfDiffTrans[zone][s]));
        out.Line(NumText(sf.SurfSillHeight[zone][s]));
        out.Line(NumText(sf.SurfWindowHeight[zone][s]));
        out.Line(NumText(sf.SurfGroundRefl[zone][s]));
    }
    out.Line("end");
    return out.Str();
}

}  // namespace solvane
