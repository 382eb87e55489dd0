#pragma once

#include "data/codelists.h"
#include "shell/recordform.h"
#include "shell/screen.h"

class GridColumns;
class QComboBox;
class QLabel;
class QLineEdit;
class Spread;

// The stores of the company: identity, bank account, VAN link, receipt printer and the ten
// switches the till reads.
class BAMAS105 : public Screen {
    Q_OBJECT
public:
    BAMAS105();

    void clearScreen(bool) override { m_form.clear(); }
    void m_Excel() override;
    ReportGrid reportGrid() const override;

    void sSelectQuery() override;
    void sSaveQuery() override;
    void cmdDelete_Click() override;
    void SP1_Click(int row);
    void cmdSerch_Click();
    // The brand of the edit band, as the brand pop-up hands it back.
    void setBrand(const QString& code, const QString& name);

protected:
    void setupScreen() override;
    bool searchesAtLoad() const override { return true; }

private:
    static const GridColumns& columns();
    QWidget* buildEditBand();
    QWidget* buildSettings();
    QString updateStatement() const;

    RecordForm m_form{QStringLiteral("C_STORE")};
    Spread* SP1 = nullptr;
    QLabel* lblCode = nullptr;
    QLabel* lblBrand = nullptr;
    QString m_brandCode;
    QComboBox* cboGT03 = nullptr;
    QComboBox* cboGT20 = nullptr;
    QComboBox* cboYYYY = nullptr;
    CodeArray m_gt03;
    CodeArray m_gt20;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtRemark = nullptr;
    // The base year is the company's: a new store, or one saved without a year, takes it.
    QString m_companyYear;
};
