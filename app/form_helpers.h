// Small builders for the screens: named edit boxes, buttons and labels.
#pragma once

#include <QLineEdit>
#include <QString>
#include <string>
#include <utility>

class QBoxLayout;
class QDialog;
class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace solvane {

class FieldEdits;

// An edit box that shows a text longer than itself cut with an ellipsis
// while the user is elsewhere (the whole text is in its tooltip), and whole
// while it is being edited.
class ElidingEdit : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;
    // What the box shows now.
    QString ShownText() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QRect TextRect() const;
};

// An edit box named `name`, bound to the screen's fields through `edits`;
// a number field takes only numbers.
QLineEdit* AddEdit(QGridLayout* grid, int row, int column, const QString& name, FieldEdits* edits,
                   int width = 0, bool number = false);
QPushButton* AddButton(QBoxLayout* layout, const QString& name, const QString& caption);
QLabel* AddLabel(QGridLayout* grid, int row, int column, const QString& name,
                 const QString& caption = {});

// Escape and the window's close box act as the dialog's button `cancelName`
// (found among its children when they come), so that leaving a screen always
// goes where its Cancel goes.
void EscapeIsCancel(QDialog* dialog, const char* cancelName = "Cancel");

// "name_3" -> ("name", 3); the index is -1 when there is none.
std::pair<std::string, int> SplitFieldName(const std::string& field);

}  // namespace solvane
