#pragma once

#include "shell/recordform.h"
#include "shell/screen.h"

class QLabel;
class QLineEdit;
class Spread;

// Brands of the company and, per brand and year, the size labels of every pair of size table and
// teen range.
class BAMAS170 : public Screen {
    Q_OBJECT
public:
    BAMAS170();

    void clearScreen(bool) override;
    void m_Excel() override;
    ReportGrid reportGrid() const override;

    void sSelectQuery() override;
    void sSaveQuery() override;
    void cmdDelete_Click() override;
    void fSizeTab_View();
    void SP1_Click(int row);

protected:
    void setupScreen() override;
    bool searchesAtLoad() const override { return true; }

private:
    QWidget* buildEditBand();
    QWidget* buildSizeBand();
    QString brandStatement() const;
    bool saveSizeRows();

    RecordForm m_form{QStringLiteral("C_BRAND")};
    QLabel* lblCode = nullptr;
    QLineEdit* txtName = nullptr;
    class YearBox* yearBox = nullptr;
    Spread* SP1 = nullptr;
    Spread* SP2 = nullptr;
};
