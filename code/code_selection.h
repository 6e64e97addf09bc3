// Choosing the energy code: the two code icons of the hub and of `CodeOption`,
// the confirmation prompts, the banner beside the arrow, and the freezing of
// the choice once the project has moved on.
#pragma once

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr const char* kCodeHelpFile = "\\Helpinfo\\CodeHelp.txt";

// Icon 0 is 90.1 (2010 or 2019 by a second question), icon 1 is 189.1. True
// when the user confirmed the choice; `CodeNum` is set either way.
bool SelectCode(Session& session, Prompt& prompt, int iconIndex);

// Paints the hub's banner `Label8` for the current code and hides the code
// icons when a code is held; a project read from file shows its code this way.
// The arrow `Image9` and the banner take their left positions in `value`.
void ShowCodeBanner(Session& session);

// Freezes the code when the project information task is entered after the
// weather step. `projectinfo` is that screen's fields, when it is open.
void ApplyCode(Session& session, ScreenFields* projectinfo);

// The click on the `CodeStatus` task label.
void ShowCodeStatus(Prompt& prompt);

// The small help-and-choose screen with the same two icons `Image1_0`, `Image1_1`.
class CodeOptionController {
  public:
    CodeOptionController(Session& session, Prompt& prompt);
    void Open();
    // A click on icon i; back to the hub once a code is confirmed.
    Navigation ClickIcon(int iconIndex);
    ScreenFields fields;

  private:
    Session& session_;
    Prompt& prompt_;
};

}  // namespace solvane
