#pragma once

#include "data/codelists.h"
#include "data/pickers.h"
#include "screens/stock/stockstatement.h"
#include "shell/screen.h"

#include <memory>

class LineGrid;
class QComboBox;
class QLabel;
class QLineEdit;
class RecordSet;
class QDateEdit;
class QPushButton;
class QTabWidget;
class Spread;
class StockFilterBand;

// Stock management. Tab 1 reports the stock of a store by school, item, model year and size,
// computed from the movements. Tab 0 registers opening stock, corrects stock to a count, and
// sets the stock of a scope to zero ("DATA삭제"), always by adding rows of kind 'D'.
class BAMAS330 : public Screen {
    Q_OBJECT
public:
    BAMAS330();
    ~BAMAS330() override;

    // The tool bar: the search repeats the click on the school list, clear empties tab 0's
    // grids; save and delete are the tab's own buttons.
    void m_Search() override;
    void m_clear() override;
    void m_Save() override {}
    void m_Delete() override {}

    // Tab 0's commands.
    void cmdViewUnifom_Click();
    void cmdViewSch_Click();
    void cmdSave2_Click();
    void cmdDelete_Click() override;
    // Tab 0's filters, as the lists stand.
    StockFilter entryFilter() const;
    // One line's insert in the mode shown (registration or correction).
    QString entryInsertSql(int line) const;

    // The screen's own buttons do the work; the tool bar's commands do nothing here.
    void cmdViewSale_Click(StockReport report);
    void cmdExcel_Click();
    // The filters of a report, as the lists stand.
    StockFilter currentFilter() const;
    QString currentYear() const { return m_currentYear; }
    // The stock report, with its filters on the line under the title.
    ReportGrid reportGrid() const override;

protected:
    void setupScreen() override;

private:
    QWidget* buildEntryTab();
    void cboBrand0_Click();
    void cboStore0_Click();
    // Forgets the mode: empty captions, the save off, the grids empty.
    void clearMode();
    void SP1_Click(int row);
    void loadEntryGrid();
    void fillEntryUniforms();
    // "YYYY-MM-DD" in the box is a date, or the box is emptied with message 8086.
    bool checkRegDate();
    void ViewSch_PartDelete();
    QString mode() const;
    LineGrid& entryLines() const;
    QString entrySchool() const;
    QWidget* buildStockTab();
    void cboBrand_Click();
    // The store's handler, which the school-narrowing filters re-enter: refills the school and
    // item lists while tab 1 shows.
    void cboStore_Click();
    // The store, brand and filters that narrow the school and item lists.
    PickerScope pickerScope() const;
    void fillSchools();
    void fillUniforms();
    void colourButtons(QPushButton* active);
    void fillReport(const RecordSet& rs);
    void totals();
    // "시즌 : ..   브랜드 : ..   매장 : ..", the workbook's title line.
    QString filterText() const;

    QTabWidget* SSTab1 = nullptr;
    QComboBox* cboBrand = nullptr;
    QComboBox* cboStore = nullptr;
    QComboBox* cboYY1[2] = {};
    QComboBox* cboGT23 = nullptr;
    QComboBox* cboGT22 = nullptr;
    QComboBox* cboGT28 = nullptr;
    QComboBox* cboUniform = nullptr;
    QComboBox* cboSchool = nullptr;
    QComboBox* cboGT25 = nullptr;
    QComboBox* cboGT29 = nullptr;
    QDateEdit* dtpEnd = nullptr;
    QPushButton* cmdViewSale[3] = {};
    QPushButton* cmdExcel = nullptr;
    Spread* SP31 = nullptr;
    CodeArray m_brand, m_store, m_gt23, m_gt22, m_gt28, m_uniform, m_school, m_gt25, m_gt29;
    QString m_currentYear;

    // Tab 0: element 0 of the lists above, on the stock screens' filter band.
    StockFilterBand* m_band0 = nullptr;
    QComboBox* cboBrand0 = nullptr;
    QComboBox* cboStore0 = nullptr;
    QComboBox* cboGT22_0 = nullptr;
    QComboBox* cboGT23_0 = nullptr;
    QComboBox* cboGT25_0 = nullptr;
    QComboBox* cboGT28_0 = nullptr;
    QComboBox* cboGT29_0 = nullptr;
    QComboBox* cboUniform0 = nullptr;
    QComboBox* cboYY0[2] = {};
    QComboBox* cboChack = nullptr;
    QLineEdit* txtRegDT = nullptr;
    QWidget* Frame17 = nullptr;
    QLabel* Label2[3] = {}; // the mode, the school's name, its code
    QPushButton* cmdViewUnifom = nullptr;
    QPushButton* cmdViewSch = nullptr;
    QPushButton* cmdSave2 = nullptr;
    QPushButton* cmdDelete = nullptr;
    Spread* SP1 = nullptr;
    Spread* SP3 = nullptr;
    std::unique_ptr<LineGrid> m_register;
    std::unique_ptr<LineGrid> m_correct;
    CodeArray m_brand0, m_store0, m_gt22_0, m_gt23_0, m_gt28_0, m_gt29_0, m_uniform0;
};
