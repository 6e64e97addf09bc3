#include "zones/catalog_picker.h"

#include <gtest/gtest.h>

#include "tests/zones/zone_fixture.h"
#include "zones/zone_files.h"

namespace solvane {
namespace {

struct PickerFixture : ::testing::Test {
    PickerFixture() : form(p.session, p.prompt), picker(p.session, p.prompt, form) {
        p.AddZone(1, "1-1", 1000, {testing::ZonSurface{}, testing::ZonSurface{}});
        ReadZoneFile(p.session.model, p.session.paths, 1);
        form.ShowZone(1);
        p.prompt.asked.clear();
    }
    std::string Buf(int column, int row) { return form.surfaces.buffers.At(column, row); }
    testing::ZoneProject p;
    ZoneFormController form;
    CatalogPickerController picker;
};

TEST_F(PickerFixture, PickingADoorGivesTheRowTheDoorDefaults) {
    ASSERT_TRUE(picker.Open(1, 2));
    EXPECT_EQ(picker.fields.caption.rfind("WALL,ROOF,FLOOR,DOOR CATALOG - ", 0), 0u);
    EXPECT_EQ(picker.fields.At("id", 11).text, "11");
    picker.Pick(11);
    EXPECT_EQ(Buf(kColWallId, 2), "Door  11");
    EXPECT_EQ(form.fields.At("wallid", 2).text, "Door  11");
    picker.Ok();
    EXPECT_EQ(Buf(kColWallArea, 2), " 21 ");
    EXPECT_EQ(p.session.model.walls.WallUsed[11], 1);
    EXPECT_TRUE(p.prompt.asked.empty());
    // An empty catalog row does nothing.
    ASSERT_TRUE(picker.Open(1, 1));
    picker.Pick(20);
    EXPECT_EQ(Buf(kColWallId, 1), "Wall  6");
}

TEST_F(PickerFixture, AnEditedRowThatIsNotPickedIsOfferedAtOk) {
    ASSERT_TRUE(picker.Open(2, 1));
    EXPECT_EQ(picker.fields["caption_3"].text, "SHGC (Solar Ht Gn Coeff.)");
    picker.Edit("Des", 2, "Triple glazing");
    EXPECT_EQ(picker.fields["status"].text, "Window id modified");
    picker.Pick(1);
    p.prompt.Queue(Answer::Yes);
    picker.Ok();
    ASSERT_EQ(p.prompt.asked.size(), 1u);
    EXPECT_EQ(p.prompt.asked[0].title, "Select window ID");
    EXPECT_EQ(Buf(kColWindowId, 1), " 2");
    EXPECT_EQ(p.session.model.windows.WindowDescription[2], "Triple glazing");
    EXPECT_EQ(p.session.model.flags.CatalogEdited[2], 1);
}

TEST_F(PickerFixture, UndoRestoresTheEditedRows) {
    ASSERT_TRUE(picker.Open(1, 1));
    const std::string before = picker.fields.At("UF", 4).text;
    picker.Edit("UF", 4, ".01");
    picker.Undo();
    EXPECT_EQ(picker.fields.At("UF", 4).text, before);
    EXPECT_EQ(picker.fields["status"].text, "Wall id reverted to original");
    picker.Ok();
    EXPECT_TRUE(p.prompt.asked.empty());
    EXPECT_EQ(p.session.model.walls.WallUFactor[4], before);
}

TEST_F(PickerFixture, NoCodeNoCatalog) {
    p.session.model.session.CodeNum = 0;
    EXPECT_FALSE(picker.Open(1, 1));
    EXPECT_EQ(p.prompt.asked.back().title, "Missing specifications.");
}

}  // namespace
}  // namespace solvane
