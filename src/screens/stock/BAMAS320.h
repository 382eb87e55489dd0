#pragma once

#include "data/codelists.h"
#include "screens/stock/checkpicker.h"
#include "shell/screen.h"

#include <memory>

class LineGrid;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QTabWidget;
class Spread;
class StockFilterBand;

// Store transfers. Tab 0 shows, line by line, what the sending store has of each item, takes
// what goes out and shows what remains (four grid rows a line: the size labels, "재고", "출고",
// "잔량"); the save writes only the sender's outbound rows, naming the receiver. The receiver's
// stock rises when it books the goods in as a receipt. Tab 1 lists the transfers.
class BAMAS320 : public Screen {
    Q_OBJECT
public:
    BAMAS320();
    ~BAMAS320() override;

    void m_Search() override;
    // The screen's own buttons do the work; the tool bar's save and delete do nothing here.
    void m_Save() override {}
    void m_Delete() override {}
    ReportGrid reportGrid() const override;

    // Entry grid by school, then item (false), or by item, then school (true).
    void cmdView_Click(bool byItem);
    void cmdSave2_Click();
    // The status list by school or by item.
    void cmdViewStatus_Click(bool byItem);
    void cmdExcel1_Click();

    // The statements, each built whole from the screen's choices: the lines offered, the
    // sender's stock of them, one line's insert, and the status list.
    QString titleSql(bool byItem) const;
    QString stockSql() const;
    QString transferInsertSql(int line) const;
    QString statusSql(bool byItem) const;

protected:
    void setupScreen() override;

private:
    QWidget* buildEntryTab();
    QWidget* buildStatusTab();
    void cboOutStore_Click();
    void SP1_Click(int row);
    void emptyEntry();
    bool refuseMissingStores(int tab) const;
    void loadEntryGrid(bool byItem);
    void colourButtons(QPushButton* active);
    void pickSchools();
    void pickItems();
    QString code(const QComboBox* combo, const CodeArray& arr) const;
    // 'M' between stores of one brand, 'T' between brands.
    QString transferKind() const;

    QTabWidget* SSTab1 = nullptr;
    StockFilterBand* m_band = nullptr;       // tab 0
    StockFilterBand* m_statusBand = nullptr; // tab 1
    // Element 0 on tab 0, element 1 on tab 1.
    QComboBox* cboOutStore[2] = {};
    QComboBox* cboInStore[2] = {};
    QComboBox* cboGT22[2] = {};
    QComboBox* cboGT23[2] = {};
    QComboBox* cboYY[2] = {};
    QComboBox* cboGT25 = nullptr;
    QComboBox* cboGT28 = nullptr;
    QComboBox* cboCGT01 = nullptr;
    QComboBox* cboGT29 = nullptr;
    QLabel* lblOutStore[2] = {};
    QLabel* lblInStore[2] = {};
    QLabel* Label2[2] = {};
    QDateEdit* dtpStart[2] = {};
    QDateEdit* dtpEnd = nullptr;
    QPushButton* cmdViewSch = nullptr;
    QPushButton* cmdViewUnifom = nullptr;
    QPushButton* cmdSave2 = nullptr;
    QPushButton* cmdViewSch1 = nullptr;
    QPushButton* cmdViewUnifom1 = nullptr;
    QPushButton* cmdExcel1 = nullptr;
    QPushButton* cmdSerchSch = nullptr;
    QPushButton* cmdUniType = nullptr;
    Spread* SP1 = nullptr;
    Spread* SP3 = nullptr;
    Spread* SP31 = nullptr;
    std::unique_ptr<LineGrid> m_entry;
    std::unique_ptr<LineGrid> m_status;
    CodeArray m_outStore[2], m_inStore[2], m_gt22[2], m_gt23[2];
    CodeArray m_gt28, m_cgt01, m_gt29;
    PickedCodes m_schools, m_items;
    QString m_school;  // the school row of SP1: a code, or "**" for every school
    QString m_lastRun; // "SCH" or "UNI": the entry command that ran last, repeated after a save
    bool m_statusByItem = false;
    QString m_currentYear;
};
