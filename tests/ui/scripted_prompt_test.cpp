#include "ui/scripted_prompt.h"

#include <gtest/gtest.h>

namespace solvane {
namespace {

TEST(ScriptedPrompt, AnswersInOrderThenTheFirstButton) {
    ScriptedPrompt p;
    p.Queue(Answer::No);
    EXPECT_EQ(p.Ask("a", "A", Buttons::YesNo, Icon::Question), Answer::No);
    EXPECT_EQ(p.Ask("b", "B", Buttons::YesNo, Icon::None), Answer::Yes);
    EXPECT_EQ(p.Ask("c", "C", Buttons::OkCancel, Icon::None), Answer::Ok);
    EXPECT_EQ(p.Ask("d", "D", Buttons::RetryCancel, Icon::None), Answer::Retry);
    ASSERT_EQ(p.asked.size(), 4u);
    EXPECT_EQ(p.asked[0].title, "A");
    EXPECT_EQ(p.asked[0].icon, Icon::Question);
}

TEST(ScriptedPrompt, InputBoxTakesTheScriptOrKeepsTheInitialText) {
    ScriptedPrompt p;
    p.QueueInput(std::nullopt);
    EXPECT_EQ(p.Input("Name?", "T", "x"), std::nullopt);
    EXPECT_EQ(p.Input("Name?", "T", "x"), "x");
}

}  // namespace
}  // namespace solvane
