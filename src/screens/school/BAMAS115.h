#pragma once

#include "shell/recordform.h"
#include "shell/screen.h"

class ButtonFaceText;
class CodeCheckList;
class CodeOptionField;
class GridColumns;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class Spread;

// The item master: every garment a school can wear, by season, sex and sequence, with its
// class, kind, size table, till button text and fabric (사양). The list leads on to the common
// items of a base item (column "공통") and to its exclusive items (column "전용").
class BAMAS115 : public Screen {
    Q_OBJECT
public:
    BAMAS115();
    // The list prints from the tool bar.
    ReportGrid reportGrid() const override { return {SP1, QStringLiteral("복종코드 관리")}; }

    void clearScreen(bool defaults) override { sClearInput(defaults); }
    void m_Delete() override {}

    void sSelectQuery() override;
    void sSaveQuery() override;
    // The common items of the loaded base item into SP2; no command runs it.
    void sSelectQuery2();
    void cmdDelUnif_Click();
    void SP1_Click(int row);
    void SP1_DblClick(int row, int col);
    void SP2_DblClick(int row, int col);

    // The list statement as the filters stand, for the connection's engine.
    QString listStatement() const;

protected:
    void setupScreen() override;
    bool searchesAtLoad() const override { return true; }

private:
    static const GridColumns& columns();
    static const GridColumns& commonColumns();
    QWidget* buildFilter();
    QWidget* buildEditBand();
    void sGridInit();
    void sKeyEnable(bool on);
    void sClearInput(bool fromClear);
    void keyChanged();
    QString keyWhere() const;
    QString saveStatement(bool isNew);

    RecordForm m_form{QStringLiteral("C_UNIFORM")};
    Spread* SP1 = nullptr;
    Spread* SP2 = nullptr;
    CodeOptionField* m_gt22 = nullptr;
    CodeOptionField* m_gt23 = nullptr;
    CodeOptionField* m_gt26 = nullptr;
    CodeOptionField* m_gt28 = nullptr;
    CodeOptionField* m_cgt01 = nullptr;
    CodeCheckList* m_chkGT22 = nullptr;
    CodeCheckList* m_chkGT23 = nullptr;
    CodeCheckList* m_chkGT28 = nullptr;
    CodeCheckList* m_chkCGT01 = nullptr;
    QLabel* lblCode = nullptr;
    QLineEdit* txtCode = nullptr;
    QLineEdit* txtName = nullptr;
    ButtonFaceText* txtButName = nullptr;
    QPushButton* cmdButton = nullptr;
    QLineEdit* txtSpec = nullptr;
    QCheckBox* chkMix = nullptr;
};
