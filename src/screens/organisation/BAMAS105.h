#pragma once

#include "data/codelists.h"
#include "shell/screen.h"

#include <QList>

#include <utility>

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class Spread;

// The stores of the company: identity, bank account, VAN link, receipt printer and the ten
// switches the till reads.
class BAMAS105 : public Screen {
    Q_OBJECT
public:
    BAMAS105();

    void m_clear() override { clearFields(); }
    void m_Excel() override;

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
    // SP1 in the order of the list statement; from ColBrandCode on the columns are hidden.
    enum Column {
        ColCode = 1,
        ColKind,
        ColBrand,
        ColName,
        ColNo,
        ColFullName,
        ColCeo,
        ColTel,
        ColAddress,
        ColBank,
        ColAccNo,
        ColDepositor,
        ColUse,
        ColRemark,
        ColBrandCode,
        ColVan,
        ColVanStore,
        ColCashBox,
        ColSet01,
        ColPortNo = ColSet01 + 10,
        ColPortType,
        ColPortSpeed,
        ColYear
    };
    // "SET01" to "SET10": the till's switches, i from 0.
    static QString setColumn(int i);

    void clearFields();
    QWidget* buildEditBand();
    // Column and value of every field of the edit band, for the insert and the update alike.
    using ColumnValue = std::pair<QString, QString>;
    QList<ColumnValue> editedColumns() const;
    QString insertStatement() const;
    QString updateStatement() const;

    Spread* SP1 = nullptr;
    QLabel* lblCode = nullptr;
    QLabel* lblBrand = nullptr;
    QString m_brandCode;
    QComboBox* cboGT03 = nullptr;
    QComboBox* cboGT20 = nullptr;
    QComboBox* cboPort = nullptr;
    QComboBox* cboYYYY = nullptr;
    QComboBox* cboSet[10] = {};
    CodeArray m_gt03;
    CodeArray m_gt20;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtFullName = nullptr;
    QLineEdit* txtNO = nullptr;
    QLineEdit* txtCEOName = nullptr;
    QLineEdit* txtTEL = nullptr;
    QLineEdit* txtAddres = nullptr;
    QLineEdit* txtBankName = nullptr;
    QLineEdit* txtDepositor = nullptr;
    QLineEdit* txtAccNo = nullptr;
    QLineEdit* txtRemark = nullptr;
    QLineEdit* txtVanSTRCD = nullptr;
    QLineEdit* txtPortNo = nullptr;
    QLineEdit* txtSpeed = nullptr;
    QRadioButton* optUSEYN[2] = {};
    QRadioButton* optCBUSEYN[2] = {};
};
