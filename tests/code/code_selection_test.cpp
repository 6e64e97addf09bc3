#include "code/code_selection.h"

#include <gtest/gtest.h>

#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

TEST(SelectCode, NinetyOneAsksForTheEditionThenConfirms) {
    Session s;
    ScriptedPrompt p;
    p.Queue(Answer::No);   // 90.1-2010
    p.Queue(Answer::Yes);  // correct
    EXPECT_TRUE(SelectCode(s, p, 0));
    EXPECT_EQ(s.model.session.CodeNum, 1);
    ASSERT_EQ(p.asked.size(), 3u);
    EXPECT_EQ(p.asked[0].title, "90.1 code selection");
    EXPECT_EQ(p.asked[0].text, "Yes=90.1-2019\rNo=90.1-2010");
    EXPECT_EQ(p.asked[1].text,
              "You've selected the ASHRAE Standard 90.1-2010 (Basic Version)\rIs this correct?");
    EXPECT_EQ(p.asked[2].title, "Code Selected");
    EXPECT_EQ(s.mainmenu["Label8"].text, "90.1-2010 (Basic Version) is specified.");
    EXPECT_EQ(s.mainmenu["Image9"].value, 440);
    EXPECT_EQ(s.mainmenu["Label8"].value, 475);
    EXPECT_FALSE(s.mainmenu.At("Image8", 0).visible);
    EXPECT_EQ(s.model.ProjectData[kCodeNameCopy], "90.1-2010 (Basic Version)");
    EXPECT_EQ(s.mainmenu.caption,
              "SOLVANE 2020 Project:... Energy Code = 90.1-2010 (Basic Version)");
}

TEST(SelectCode, NoAtTheConfirmationLeavesTheIconsOpen) {
    Session s;
    ScriptedPrompt p;
    p.Queue(Answer::No);
    EXPECT_FALSE(SelectCode(s, p, 1));
    EXPECT_EQ(s.model.session.CodeNum, 3);  // as just set; the user chooses again
    EXPECT_TRUE(s.mainmenu.At("Image8", 0).visible);
    EXPECT_TRUE(s.mainmenu.At("Image8", 1).visible);
    EXPECT_EQ(p.asked.size(), 1u);
}

TEST(SelectCode, GreenCodeBannerAndFreezing) {
    Session s;
    ScriptedPrompt p;
    ASSERT_TRUE(SelectCode(s, p, 1));
    EXPECT_EQ(s.mainmenu["Label8"].color, s.labels.CodeColor[3]);
    EXPECT_EQ(s.mainmenu["Image9"].value, 500);
    EXPECT_EQ(s.model.flags.TaskDone[6], 0);
    ScreenFields info;
    s.model.session.ProjectTitle = "Depot";
    ApplyCode(s, &info);
    EXPECT_EQ(s.model.flags.TaskDone[6], 1);
    EXPECT_EQ(s.model.session.CodeName, "189.1-2017 (Green Buildings)");
    EXPECT_EQ(info.At("projectid", 13).text, "189.1-2017 (Green Buildings)");
    EXPECT_EQ(s.mainmenu.caption,
              "SOLVANE 2020 Project:... Depot .. Energy Code = 189.1-2017 (Green Buildings)");

    // A frozen code is not offered again on CodeOption.
    CodeOptionController option(s, p);
    option.Open();
    EXPECT_FALSE(option.fields.At("Image1", 1).enabled);
    EXPECT_EQ(option.ClickIcon(0).show, Screen::None);
}

TEST(SelectCode, ProjectFromFileShowsItsBannerWithoutPrompt) {
    Session s;
    s.model.session.CodeNum = 3;
    ShowCodeBanner(s);
    EXPECT_EQ(s.mainmenu["Label8"].text, "189.1-2017 (Green Buildings) is specified.");
    EXPECT_FALSE(s.mainmenu.At("Image8", 1).visible);
}

TEST(SelectCode, StatusPrompt) {
    ScriptedPrompt p;
    ShowCodeStatus(p);
    ASSERT_EQ(p.asked.size(), 1u);
    EXPECT_EQ(p.asked[0].title, "Code Selection Status");
    EXPECT_EQ(p.asked[0].text.rfind("Select the Energy Code from the task bar above.", 0), 0u);
}

}  // namespace
}  // namespace solvane
