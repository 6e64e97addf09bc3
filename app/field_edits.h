// Typing into a screen's text fields: each key goes through the controller's
// key rule before it lands, and the edited text goes back into the field.
#pragma once

#include <QObject>
#include <functional>
#include <string>

#include "ui/screen_fields.h"

class QLineEdit;

namespace solvane {

// Returns the character to insert (possibly changed) or 0 to drop the key.
using KeyRule = std::function<int(const std::string& field, int key)>;
// Takes an edited text; by default the text goes into the field.
using ChangeRule = std::function<void(const std::string& field, const std::string& text)>;

class FieldEdits : public QObject {
    Q_OBJECT
  public:
    FieldEdits(ScreenFields& fields, KeyRule rule, QObject* parent = nullptr,
               ChangeRule change = {});
    // Binds an edit box whose object name is its field name.
    void Bind(QLineEdit* edit);
    // Binds a number field: besides the key rule, it takes nothing that is
    // not the start of a number (a pasted "abc" or a typed "q" is refused).
    void BindNumber(QLineEdit* edit);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ScreenFields& fields_;
    KeyRule rule_;
    ChangeRule change_;
};

}  // namespace solvane
