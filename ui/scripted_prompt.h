// A prompt that answers from a script and records what it was asked; for
// tests and for headless runs.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "ui/prompt.h"

namespace solvane {

struct AskedPrompt {
    std::string text;
    std::string title;
    Buttons buttons;
    Icon icon;
};

class ScriptedPrompt : public Prompt {
  public:
    // Answers given in order; once they run out, the first button's answer
    // (Ok or Yes) is given.
    void Queue(Answer answer) { answers_.push_back(answer); }
    void QueueInput(std::optional<std::string> text) { inputs_.push_back(std::move(text)); }

    Answer Ask(const std::string& text, const std::string& title, Buttons buttons,
               Icon icon) override;
    std::optional<std::string> Input(const std::string& text, const std::string& title,
                                     const std::string& initial) override;
    void Beep() override { ++beeps; }

    std::vector<AskedPrompt> asked;
    int beeps = 0;

  private:
    std::deque<Answer> answers_;
    std::deque<std::optional<std::string>> inputs_;
};

}  // namespace solvane
