#pragma once

#include "data/codelists.h"
#include "data/pickers.h"
#include "screens/stock/stockstatement.h"
#include "shell/screen.h"

class QComboBox;
class RecordSet;
class QDateEdit;
class QPushButton;
class QTabWidget;
class Spread;

// Stock management. Tab 1 reports the stock of a store by school, item, model year and size,
// computed from the movements; tab 0 (registration and correction) is not built yet.
class BAMAS330 : public Screen {
    Q_OBJECT
public:
    BAMAS330();

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
};
