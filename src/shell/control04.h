#pragma once

#include "shell/popup.h"

#include <optional>

class QLineEdit;
class Spread;

// A code and its name, as a search pop-up hands them back.
struct CodeChoice {
    QString code;
    QString name;
};

// The code search pop-up of a kind ("브랜드"): the user searches by the whole name, marks a row
// and chooses it; choice() holds what was chosen.
class Control04 : public Popup {
    Q_OBJECT
public:
    explicit Control04(const QString& kind, QWidget* parent = nullptr);

    void Form_cls_rtn();
    void sSelectQuery();
    void markRow(int row);
    void cmdChoice_Click();
    void cmdExit_Click();

    const std::optional<CodeChoice>& choice() const { return m_choice; }

private:
    QString m_kind;
    QLineEdit* m_txtcodenm;
    Spread* m_grid;
    std::optional<CodeChoice> m_choice;
};

// Opens Control04 modally for the kind; the chosen row, or nothing.
std::optional<CodeChoice> showControl04(const QString& kind, QWidget* parent = nullptr);
