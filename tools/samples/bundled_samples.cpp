// The samples the program ships with: six building types, three codes, six
// climates, both unit systems. Sizes are in sheet cells: 2 ft a cell in I-P
// (the sketch's own grid), 1 m a cell in SI.
#include "tools/samples/sample_builder.h"

namespace solvane::samples {

namespace {

// Zone fields of the zone screen that the samples type in.
constexpr int kPeople = 5;
constexpr int kReceptacles = 15;

SampleSpec SmallOffice() {
    SampleSpec s;
    s.fileName = "Small Office [two levels, I-P].inp";
    s.description = "Two-storey office of 12000 sq.ft, Chicago, 90.1-2019";
    s.units = 1;
    s.region = 1;
    s.state = "Illinois";
    s.city = "Chicago OHare Intl AP";
    s.buildingType = 26;  // Office
    s.projectName = "Lakeview Office";
    s.scheme = "Scheme 1A";
    s.year = "2021";
    s.cost = "210";
    // 100 ft by 60 ft on both levels.
    s.levels = {
        {"1",
         "",
         {{"Lobby", {{5, 5, 10, 30}}},
          {"Open Office", {{15, 5, 28, 30}}},
          {"Conference", {{43, 5, 12, 15}}},
          {"Break Room", {{43, 20, 12, 15}}}}},
        {"1", "", {{"Private Offices", {{5, 5, 50, 15}}}, {"Open Office 2", {{5, 20, 50, 15}}}}},
    };
    s.edits = {{"Conference", kPeople, "20"}, {"Break Room", kReceptacles, "2.5"}};
    s.weatherSeed = .41735;
    return s;
}

SampleSpec PrimarySchool() {
    SampleSpec s;
    s.fileName = "Primary School [SI].inp";
    s.description = "One-storey primary school of 1420 sq.m with gymnasium, Toronto, 189.1-2017";
    s.units = 2;
    s.codeIcon = 1;
    s.region = 2;
    s.state = "Ontario";
    s.city = "Toronto Pearson Intl AP";
    s.buildingType = 35;  // School/University
    s.projectName = "Maple Grove Primary School";
    s.designStage = "Design Development";
    s.year = "2022";
    s.cost = "3100";
    // Two classroom wings along a corridor, 40 m long; the gymnasium and the
    // offices at the east end.
    s.levels = {{"1",
                 "",
                 {{"Classrooms South", {{5, 5, 40, 9}}},
                  {"Corridor", {{5, 14, 40, 3}}},
                  {"Classrooms North", {{5, 17, 40, 9}}},
                  {"Gymnasium", {{45, 5, 20, 21}}},
                  {"Administration", {{45, 26, 20, 8}}}}}};
    s.edits = {{"Gymnasium", kPeople, "60"},
               {"Corridor", kPeople, "6"},
               {"Administration", kPeople, "12"}};
    s.weatherSeed = .62914;
    return s;
}

SampleSpec RetailStore() {
    SampleSpec s;
    s.fileName = "Retail Store [I-P].inp";
    s.description =
        "One-storey retail store of 9600 sq.ft in a hot dry climate, Phoenix, 90.1-2010";
    s.units = 1;
    s.code2010 = true;
    s.region = 1;
    s.state = "Arizona";
    s.city = "Phoenix Sky Harbor Intl AP";
    s.buildingType = 34;  // Retail
    s.projectName = "Desert Outfitters";
    s.year = "2020";
    s.cost = "145";
    s.levels = {{"1",
                 "",
                 {{"Sales Floor", {{5, 5, 45, 40}}},
                  {"Stockroom", {{50, 5, 15, 30}}},
                  {"Store Office", {{50, 35, 15, 10}}}}}};
    s.edits = {{"Stockroom", kPeople, "3"}, {"Store Office", kPeople, "2"}};
    s.weatherSeed = .18362;
    return s;
}

SampleSpec House() {
    SampleSpec s;
    s.fileName = "Single-Family House [two levels, I-P].inp";
    s.description = "Two-storey single-family house of 3000 sq.ft, Atlanta, 90.1-2019";
    s.units = 1;
    s.region = 1;
    s.state = "Georgia";
    s.city = "Atlanta Hartsfield-Jackson AP";
    s.buildingType = 33;  // Residential, Single Family
    s.projectName = "Oak Street Residence";
    s.year = "2023";
    s.cost = "165";
    // 50 ft by 30 ft; the bedrooms above.
    s.levels = {
        {"1", "9", {{"Living Room", {{5, 5, 15, 15}}}, {"Kitchen-Dining", {{20, 5, 10, 15}}}}},
        {"1", "8", {{"Bedrooms", {{5, 5, 25, 15}}}}},
    };
    s.edits = {{"Living Room", kPeople, "2"},
               {"Kitchen-Dining", kPeople, "2"},
               {"Kitchen-Dining", kReceptacles, "1.5"},
               {"Bedrooms", kPeople, "4"}};
    s.weatherSeed = .75108;
    return s;
}

SampleSpec Warehouse() {
    SampleSpec s;
    s.fileName = "Warehouse [SI].inp";
    s.description = "Distribution warehouse of 2400 sq.m with loading dock, Madrid, 90.1-2019";
    s.units = 2;
    s.region = 5;
    s.state = "Spain";
    s.city = "Madrid Barajas Suarez AP";
    s.buildingType = 39;  // Warehouse
    s.projectName = "Barajas Logistics Hall";
    s.year = "2021";
    s.cost = "650";
    // A 60 m by 40 m hall, 8 m to the roof.
    s.levels = {{"1",
                 "8",
                 {{"Storage", {{5, 5, 48, 40}}},
                  {"Loading Dock", {{53, 5, 12, 30}}},
                  {"Office", {{53, 35, 12, 10}}}}}};
    s.edits = {{"Office", kPeople, "8"}, {"Loading Dock", kPeople, "4"}};
    s.weatherSeed = .30457;
    return s;
}

SampleSpec Hotel() {
    SampleSpec s;
    s.fileName = "Hotel [four storeys, I-P].inp";
    s.description =
        "Four-storey hotel of 38400 sq.ft, guest floors over a lobby, Seattle, 90.1-2019";
    s.units = 1;
    s.region = 1;
    s.state = "Washington";
    s.city = "Seattle-Tacoma Intl AP";
    s.buildingType = 18;  // Hotel
    s.projectName = "Harbor View Hotel";
    s.year = "2022";
    s.cost = "240";
    s.rotation = "30";
    // 160 ft by 60 ft; the ground floor and one level standing for three
    // floors of guest rooms along a corridor.
    s.levels = {
        {"1",
         "12",
         {{"Lobby", {{5, 5, 20, 30}}},
          {"Restaurant", {{25, 5, 25, 30}}},
          {"Kitchen", {{50, 20, 15, 15}}},
          {"Back Office", {{50, 5, 15, 15}}},
          {"Guest Rooms 1", {{65, 5, 20, 30}}}}},
        {"3",
         "9",
         {{"Guest Rooms South", {{5, 5, 80, 13}}},
          {"Corridor", {{5, 18, 80, 4}}},
          {"Guest Rooms North", {{5, 22, 80, 13}}}}},
    };
    s.edits = {{"Restaurant", kPeople, "120"}, {"Kitchen", kReceptacles, "8"}};
    s.weatherSeed = .56921;
    return s;
}

}  // namespace

std::vector<SampleSpec> BundledSamples() {
    return {SmallOffice(), PrimarySchool(), RetailStore(), House(), Warehouse(), Hotel()};
}

}  // namespace solvane::samples
