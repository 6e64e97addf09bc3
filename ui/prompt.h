// The one way the program's logic talks to the user: a modal message with a
// title, buttons and an icon whose answer the logic branches on, and a text
// input box.
#pragma once

#include <optional>
#include <string>

namespace solvane {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { Ok, Cancel, Yes, No, Retry, Abort, Ignore };

struct Prompt {
    virtual ~Prompt() = default;
    virtual Answer Ask(const std::string& text, const std::string& title, Buttons buttons,
                       Icon icon) = 0;
    // An input box; nothing when the user cancels.
    virtual std::optional<std::string> Input(const std::string& text, const std::string& title,
                                             const std::string& initial) = 0;
    virtual void Beep() {}

    Answer Show(const std::string& text, const std::string& title = {},
                Buttons buttons = Buttons::Ok, Icon icon = Icon::None) {
        return Ask(text, title, buttons, icon);
    }
};

}  // namespace solvane
