#pragma once

#include "data/codelists.h"

#include <QWidget>

class ButtonArray;
class QLineEdit;

// A code box and its option array working as one field (txtGT22 with optGT22): clicking an
// option puts its code in the box; typing upper-cases the box, and once the trimmed text has the
// box's full length the code is looked up, a code the group does not hold emptying the box. The
// box is named "txt" + group and the array "opt" + group ("GT22", "CGT01").
class CodeOptionField : public QWidget {
    Q_OBJECT
public:
    // `kind` is the option list's kind ("EGT022", "GT023", "CGT01"); `length` the code's width.
    CodeOptionField(const QString& group, const QString& kind, int length, int columns,
                    QWidget* parent = nullptr);

    QLineEdit* box() const { return m_box; }
    ButtonArray* options() const { return m_options; }
    const CodeArray& codes() const { return m_codes; }

    // The code in the box, trimmed.
    QString code() const;
    // The box takes the code and the array its element; a code not in the list empties the box.
    bool setCode(const QString& code);
    // The element with that name; not found, the box is emptied.
    bool setName(const QString& name);
    // The click logic of an element (1 upwards): it is turned on and its code goes in the box.
    void selectElement(int index);
    // The element that is on (0 when none).
    int selectedElement() const;
    // Elements that cannot be chosen (1 upwards); the others can.
    void setElementEnabled(int index, bool on);
    // Key fields of a loaded row cannot be edited: box and array on or off together.
    void setEditable(bool on);

signals:
    // After every change of the code, by click, by typing or by the screen.
    void codeChanged(const QString& code);

private:
    void typed(const QString& text);

    QLineEdit* m_box;
    ButtonArray* m_options;
    CodeArray m_codes;
    int m_length;
    bool m_busy = false;
};
