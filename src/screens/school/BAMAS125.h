#pragma once

#include "shell/screen.h"

class GridColumns;
class QCheckBox;
class QLabel;
class QLineEdit;
class Spread;

// Which schools each store serves: the stores with their counts of schools by level, and for the
// chosen store the schools it serves (SP2) and those it does not (SP3). Rows are starred with a
// click and moved across; a move saves at once.
class BAMAS125 : public Screen {
    Q_OBJECT
public:
    BAMAS125();

    void clearScreen(bool defaults) override { sClearInput(defaults); }

    void sSelectQuery() override;
    void sSaveQuery() override;
    void sClearInput(bool fromClear);
    void SP1_Click(int row);
    void sSelectQuery2();
    void cmdLeft_Click();
    void cmdRight_Click();

    // The statements as the screen would send them now (the tests read their server spelling).
    QString listStatement() const;
    QString schoolStatement(bool served) const;
    QStringList saveStatements() const;

    static constexpr int kSchoolRows = 35;

protected:
    void setupScreen() override;
    bool searchesAtLoad() const override { return true; }

private:
    static const GridColumns& listColumns();
    static const GridColumns& schoolColumns();
    void clearSchools();
    void toggleStar(Spread* grid, int row);
    // The starred rows of one list below the filled rows of the other, unstarred.
    void moveStarred(Spread* from, Spread* to);

    Spread* SP1 = nullptr;
    Spread* SP2 = nullptr;
    Spread* SP3 = nullptr;
    QLabel* lblCode = nullptr;
    QLineEdit* txtFullName = nullptr;
    QCheckBox* chkSerch = nullptr;
    // The chosen store: the label shows its name, the code stays here.
    QLabel* lblStoreName = nullptr;
    QString m_storeCode;
    // The store name typed as a filter (exact); empty lists every store.
    QString m_nameFilter;
};
