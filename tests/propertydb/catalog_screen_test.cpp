#include "propertydb/catalog_screen.h"

#include <gtest/gtest.h>

#include "propertydb/envelope_defaults.h"
#include "tests/propertydb/program_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

struct CatalogFixture : ::testing::Test {
    CatalogFixture() {
        session.paths = folder.Paths();
        ProjectModel& m = session.model;
        m.session.CodeNum = 2;
        m.session.BuildingType = 39;
        m.session.ClimateZone = "5 A";
        m.session.Units = 1;
        m.btypes.BTypeName[39] = "Warehouse";
        LoadEnvelopeDefaults(m, session.paths);
    }
    testing::ProgramFolder folder;
    Session session;
    ScriptedPrompt prompt;
};

TEST_F(CatalogFixture, MissingSpecificationsCloseTheScreen) {
    session.model.session.BuildingType = 0;
    CatalogController c(session, prompt);
    EXPECT_FALSE(c.Open(1));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title, kMissingSpecsTitle);
}

TEST_F(CatalogFixture, OpensOnTheWorkingCatalogWithItsHeadings) {
    CatalogController c(session, prompt);
    ASSERT_TRUE(c.Open(2));
    EXPECT_EQ(c.fields["Cat"].text, "Semiheated");
    EXPECT_EQ(c.fields["Btype"].text, " 39.  Warehouse");
    EXPECT_EQ(c.fields["caption_3"].text, "SHGC (Solar Ht Gn Coeff.)");
    EXPECT_EQ(c.fields.At("Des", 1).text, "Fixed window, metal frame");
    EXPECT_EQ(c.fields.At("id", 1).text, " 1");
    // Rows beyond the last in use stay empty.
    EXPECT_EQ(c.fields.At("Des", 12).text, "");
}

TEST_F(CatalogFixture, CancelAfterReloadKeepsTheRowsShownBeforeIt) {
    CatalogController c(session, prompt);
    ASSERT_TRUE(c.Open(1));
    c.Edit("UF", 6, "  .111");
    ASSERT_TRUE(c.ReloadEnvelopeDefaults());  // scripted OK
    EXPECT_NE(c.fields.At("UF", 6).text, "  .111");
    c.Cancel();
    EXPECT_EQ(session.model.walls.WallUFactor[6], "  .111");
    EXPECT_EQ(session.model.walls.WallId[6], " 6");
    EXPECT_EQ(session.model.flags.CatalogReload[1], 0);
}

TEST_F(CatalogFixture, ReloadCancelledChangesNothing) {
    CatalogController c(session, prompt);
    ASSERT_TRUE(c.Open(1));
    c.Edit("Des", 2, "my roof");
    prompt.Queue(Answer::Cancel);
    EXPECT_FALSE(c.ReloadEnvelopeDefaults());
    EXPECT_EQ(c.fields.At("Des", 2).text, "my roof");
    EXPECT_EQ(session.model.flags.CatalogReload[1], 0);
}

TEST_F(CatalogFixture, OkStoresTheEditedRows) {
    CatalogController c(session, prompt);
    ASSERT_TRUE(c.Open(1));
    c.Scroll(5);
    c.Edit("cost", 1, " 99");  // catalog row 6
    c.Ok();
    EXPECT_EQ(session.model.walls.WallInsCost[6], " 99");
    EXPECT_EQ(prompt.asked.back().text,
              "All wall data you have just edited have been saved for this project session.");
}

}  // namespace
}  // namespace solvane
