#include "ui/scripted_prompt.h"

namespace solvane {

namespace {
Answer FirstButton(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return Answer::Yes;
        case Buttons::RetryCancel:
            return Answer::Retry;
        case Buttons::AbortRetryIgnore:
            return Answer::Abort;
        case Buttons::Ok:
        case Buttons::OkCancel:
            break;
    }
    return Answer::Ok;
}
}  // namespace

Answer ScriptedPrompt::Ask(const std::string& text, const std::string& title, Buttons buttons,
                           Icon icon) {
    asked.push_back({text, title, buttons, icon});
    if (answers_.empty()) return FirstButton(buttons);
    Answer a = answers_.front();
    answers_.pop_front();
    return a;
}

std::optional<std::string> ScriptedPrompt::Input(const std::string& text, const std::string& title,
                                                 const std::string& initial) {
    asked.push_back({text, title, Buttons::OkCancel, Icon::None});
    if (inputs_.empty()) return initial;
    auto v = inputs_.front();
    inputs_.pop_front();
    return v;
}

}  // namespace solvane
