#pragma once

#include "data/codelists.h"

#include <QWidget>

class ButtonArray;
class QLineEdit;

// A check array of a code list and its hidden list box (chkGT22 with txtChGT22): every click
// rebuilds the list, the codes of the checked elements joined by "','", ready to stand inside
// "IN ('...')" of a filter. The array is named "chk" + group and the box `listName`.
class CodeCheckList : public QWidget {
    Q_OBJECT
public:
    CodeCheckList(const QString& group, const QString& listName, const QString& kind, int columns,
                  QWidget* parent = nullptr);

    ButtonArray* checks() const { return m_checks; }
    QLineEdit* listBox() const { return m_list; }
    const CodeArray& codes() const { return m_codes; }

    // The joined codes, "" when none is checked.
    QString list() const;
    // The checked codes each through quoted() and joined by ", ", to stand inside "IN (...)".
    QString sqlList() const;
    // Every element off, the list empty; no signal.
    void clearChecks();
    // The click logic: the list is rebuilt and listChanged follows.
    void rebuild();

signals:
    void listChanged();

private:
    ButtonArray* m_checks;
    QLineEdit* m_list;
    CodeArray m_codes;
};
