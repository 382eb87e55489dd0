#pragma once

#include "data/codelists.h"
#include "screens/stock/checkpicker.h"
#include "shell/screen.h"

#include <memory>

class LineGrid;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class Spread;
class StockFilterBand;

// Purchase orders. Tab 0 enters an order by school, item and size in a grid of two rows per
// line (the item's size labels over the quantities); tab 1 lists the orders and cancels the
// ticked lines. Orders do not touch stock; goods receipt works them off.
class BAMAS310 : public Screen {
    Q_OBJECT
public:
    BAMAS310();
    ~BAMAS310() override;

    void m_clear() override;
    void m_Search() override;
    // The screen's own buttons do the work; the tool bar's save and delete do nothing here.
    void m_Save() override {}
    void m_Delete() override {}

    void cmdSave2_Click();
    void cmdViewSale_Click();
    void cmdDelete_Click() override;
    void cmdExcel_Click();
    // The order list prints, as it exports.
    ReportGrid reportGrid() const override;
    void cmdUniType_Click();

    // The statements, for the tests of their server spelling.
    QString entrySql() const;
    QString orderInsertSql(int line) const;
    QString statusSql() const;

protected:
    void setupScreen() override;

private:
    QWidget* buildEntryTab();
    QWidget* buildStatusTab();
    void cboStore_Click(int tab);
    void SP1_Click(int row);
    void SP20_Click(int row);
    void loadEntryGrid();

    QTabWidget* SSTab1 = nullptr;
    // The filter bands of the two tabs: store, level, year, options and school list.
    StockFilterBand* m_band[2] = {};
    QDateEdit* dtpStart[2] = {};
    QDateEdit* dtpEnd = nullptr;
    QLabel* Label2[2] = {};
    QLineEdit* txtFullName = nullptr;
    QPushButton* cmdSave2 = nullptr;
    QPushButton* cmdViewSale = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdExcel = nullptr;
    QPushButton* cmdUniType = nullptr;
    Spread* SP1 = nullptr;
    Spread* SP3 = nullptr;
    Spread* SP20 = nullptr;
    Spread* SP21 = nullptr;
    std::unique_ptr<LineGrid> m_entry;
    std::unique_ptr<LineGrid> m_status;
    PickedCodes m_items; // cmdUniType's tag
    QString m_school;    // the school of the entry grid
    QString m_statusSchool;
    QString m_currentYear;
};
