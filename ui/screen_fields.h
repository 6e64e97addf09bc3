// The named fields of a screen as the controllers see them: text, enabled,
// visible, colour and a value (a choice's state, a list index). The Qt screens
// bind widgets to these by object name; arrays are named "name_index".
#pragma once

#include <map>
#include <string>

#include "ui/canvas.h"

namespace solvane {

struct FieldState {
    std::string text;
    bool enabled = true;
    bool visible = true;
    Color color = 0x000000;
    int value = 0;
};

class ScreenFields {
  public:
    FieldState& operator[](const std::string& name) { return fields_[name]; }
    FieldState& At(const std::string& name, int index) {
        return fields_[name + "_" + std::to_string(index)];
    }
    const FieldState* Find(const std::string& name) const {
        auto it = fields_.find(name);
        return it == fields_.end() ? nullptr : &it->second;
    }
    bool Enabled(const std::string& name) const {
        const FieldState* f = Find(name);
        return f && f->enabled;
    }
    bool Visible(const std::string& name) const {
        const FieldState* f = Find(name);
        return f && f->visible;
    }
    std::string Text(const std::string& name) const {
        const FieldState* f = Find(name);
        return f ? f->text : std::string();
    }
    const std::map<std::string, FieldState>& All() const { return fields_; }

    std::string caption;  // the window's title

  private:
    std::map<std::string, FieldState> fields_;
};

}  // namespace solvane
