// Prompts as message boxes and input dialogs.
#pragma once

#include "ui/prompt.h"

class QWidget;

namespace solvane {

class QtPrompt : public Prompt {
  public:
    explicit QtPrompt(QWidget* parent = nullptr) : parent_(parent) {}
    void SetParent(QWidget* parent) { parent_ = parent; }

    Answer Ask(const std::string& text, const std::string& title, Buttons buttons,
               Icon icon) override;
    std::optional<std::string> Input(const std::string& text, const std::string& title,
                                     const std::string& initial) override;
    void Beep() override;

  private:
    QWidget* parent_;
};

}  // namespace solvane
