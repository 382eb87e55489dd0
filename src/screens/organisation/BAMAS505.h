#pragma once

#include "shell/screen.h"

class GridColumns;
class Spread;

// A whole list of schools loaded in one go: the operator pastes a prepared sheet into the grid,
// the upload checks every row against the table, writes what is wrong into the last column and
// inserts all rows in one transaction only when no row has a finding.
class BAMAS505 : public Screen {
    Q_OBJECT
public:
    BAMAS505();

    void cmdUpload_Click();
    // "초기화": the grid empty.
    void cmdViewSale2_Click();

    // The insert of one grid row as the upload sends it (the tests read its server spelling).
    QString insertStatement(int row) const;
    // The code as the sheet's "000" format writes it: a number padded to three digits, any
    // other text as it stands.
    static QString formatCode(const QString& text);

    static constexpr int kEmptyRows = 50;

protected:
    void setupScreen() override;

private:
    static const GridColumns& columns();
    // Pass one for one row: the findings appended to its last column; false when a count
    // could not be read, which ends the upload.
    bool checkRow(int row);
    bool insertRows();

    Spread* SP1 = nullptr;
};
