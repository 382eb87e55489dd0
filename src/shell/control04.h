#pragma once

#include <QDialog>

class QLineEdit;
class Spread;

// The code search pop-up. A screen sets the kind, the user searches by the whole name, marks a
// row and chooses it; gsPopupCode and gsPopupName carry the choice back ("" for none).
class Control04 : public QDialog {
    Q_OBJECT
public:
    explicit Control04(const QString& kind, QWidget* parent = nullptr);

    void Form_cls_rtn();
    void sSelectQuery();
    void markRow(int row);
    void cmdChoice_Click();
    void cmdExit_Click();

private:
    QString m_kind;
    QLineEdit* m_txtcodenm;
    Spread* m_grid;
};

// Opens Control04 modally for the kind; true when a row was chosen.
bool showControl04(const QString& kind, QWidget* parent = nullptr);
