#pragma once

#include "data/codelists.h"
#include "shell/popup.h"

class GridColumns;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class Spread;

// The exclusive items of an item: "TS" and a two-digit number per item code, each a colour,
// cloth, pattern and button of its own for a group of schools that wear the item. They are
// retired by putting them out of use, never deleted here.
class BAMAS115_Trans : public Popup {
    Q_OBJECT
public:
    // The item's whole code and the caption that names it; both empty when opened without one.
    BAMAS115_Trans(const QString& uniformCode, const QString& uniformName,
                   QWidget* parent = nullptr);

    void sSelectQuery();
    // The schools that wear the item and are not in the chosen group (filtered by level and
    // kind), and the schools of the group.
    void sSelectQuery2();
    void sSaveQuery();
    void cmdNew_Click();
    void SP1_Click(int row);
    void cmdLeft_Click();
    void cmdRight_Click();

    QString listStatement() const;
    QString schoolStatement(bool assigned) const;

private:
    static const GridColumns& listColumns();
    static const GridColumns& schoolColumns();
    QWidget* buildFields();
    QWidget* buildLists();
    QString codeTest(const QString& alias) const;

    QLabel* lblUniformCd;
    QLabel* lblUniformName;
    QLabel* lblCode;
    QLineEdit* txtColor;
    QLineEdit* txtMateril;
    QLineEdit* txtPattern;
    QLineEdit* txtBtn;
    QRadioButton* optUSEYN[2];
    QComboBox* cboGT25;
    QComboBox* cboGT24;
    CodeArray m_gt25;
    CodeArray m_gt24;
    Spread* SP1 = nullptr;
    Spread* SP2 = nullptr;
    Spread* SP3 = nullptr;
};
