#pragma once

#include "data/codelists.h"
#include "shell/recordform.h"
#include "shell/screen.h"

class ButtonArray;
class CodeCheckList;
class CodeOptionField;
class GridColumns;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class Spread;

// The schools of the company and, for the school picked from the list, the items its boys and
// its girls wear: SP2 the items worn, SP3 those not worn, rows moved between them saved at once.
class BAMAS110 : public Screen {
    Q_OBJECT
public:
    BAMAS110();
    // The list prints from the tool bar.
    ReportGrid reportGrid() const override { return {SP1, QStringLiteral("학교코드 관리")}; }

    void clearScreen(bool defaults) override { sClearInput(defaults); }

    void sSelectQuery() override;
    void sSaveQuery() override;
    void cmdDelete_Click() override;
    void sClearInput(bool fromClear);
    void SP1_Click(int row);
    // The two lists of the selected school, by the students being assigned and the seasons.
    void sSelectQuery2();
    // Replaces the school's set (of the students and seasons shown) with the rows of SP2.
    bool SubSaveQuery();
    void cmdLeft_Click();
    void cmdRight_Click();

    // The statements as the screen would send them now (the tests read their server spelling).
    QString listStatement() const;
    QString itemStatement(bool worn) const;
    QStringList subSaveStatements() const;

    // Rows shown in each assignment list at least.
    static constexpr int kItemRows = 35;

protected:
    void setupScreen() override;
    bool searchesAtLoad() const override { return true; }

private:
    static const GridColumns& listColumns();
    static const GridColumns& itemColumns();
    QWidget* buildEditBand();
    QWidget* buildAssignment();
    void fillCounts();
    void clearItems();
    void optGT23_Click(int index);
    QString sexClause() const;
    QString schoolItemMatch(const QString& alias) const;

    RecordForm m_form{QStringLiteral("C_SCHOOL")};
    Spread* SP1 = nullptr;
    Spread* SP2 = nullptr;
    Spread* SP3 = nullptr;
    QLabel* lblCode = nullptr;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtFullName = nullptr;
    CodeOptionField* fraGT25 = nullptr;
    CodeOptionField* fraGT24 = nullptr;
    QCheckBox* chkSerch = nullptr;
    // The school of the assignment area: the label shows its short name, the code stays here.
    QLabel* lblSchoolName = nullptr;
    QString m_schoolCode;
    QGroupBox* Frame6 = nullptr;
    ButtonArray* optGT23 = nullptr;
    CodeArray m_gt23;
    QLineEdit* txtGT23 = nullptr;
    CodeCheckList* chkGT22 = nullptr;
};
