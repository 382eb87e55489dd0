#pragma once

#include "data/codelists.h"
#include "screens/stock/checkpicker.h"
#include "shell/screen.h"

#include <memory>

class LineGrid;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class Spread;
class StockFilterBand;

// Goods receipt. Tab 0 books goods in against open order lines ("발주분": three rows a line,
// what is open, what came, the balance) or without an order ("미발주분": one row an item), and
// decides what becomes of an order's remainder. Tab 1 lists the receipts and cancels ticked
// ones; tab 2 lists what is still open of the orders.
class BAMAS315 : public Screen {
    Q_OBJECT
public:
    BAMAS315();
    ~BAMAS315() override;

    void m_Search() override;
    // The screen's own buttons do the work; the tool bar's save and delete do nothing here.
    void m_Save() override {}
    void m_Delete() override {}

    void cmdSave2_Click();
    void cmdViewSale_Click();
    void cmdViewSal2_Click();
    void cmdDelete_Click() override;
    // The list tabs print: the list of the tab in view.
    ReportGrid reportGrid() const override;

    // The statements, for the tests of their server spelling.
    QString orderedLinesSql() const;
    QString unorderedLinesSql() const;
    QString receiptInsertSql(int line, bool ordered) const;
    QString receiptListSql() const;
    QString openListSql() const;

    // The list tabs' filters: element k of the old control arrays on tab k.
    struct ListTab {
        StockFilterBand* band = nullptr; // store, year, sex and season
        QDateEdit* dtpStart = nullptr;
        QDateEdit* dtpEnd = nullptr;
        QLineEdit* txtFullName = nullptr;
        QPushButton* cmdSerchSch = nullptr;
        QPushButton* cmdUniType = nullptr;
        Spread* grid = nullptr;
        std::unique_ptr<LineGrid> sums;
        PickedCodes schools, items;
    };

protected:
    void setupScreen() override;

private:
    QWidget* buildEntryTab();
    QWidget* buildListTab(int tab);
    void cboStore_Click();
    void SP1_Click(int row);
    void loadEntryGrid();
    void fillUniforms();
    void writeEntryHeading();
    // The sums, then the remainder's list on the 입고량 row of each line whose balance is short.
    void recomputeEntry();
    void offerRemainderChoice(int line);
    bool ordered() const;
    LineGrid& lines() const;
    void pickSchools(ListTab& t, int run, int exit);
    void pickItems(ListTab& t, int first, int run, int exit);
    QString listWhere(const ListTab& t, const QString& alias, const QString& yearColumn,
                      const QString& dateColumn) const;
    ReportGrid listReport(int k) const;
    void runList(ListTab& t, const QString& sql, const QStringList& leading,
                 const QStringList& trailing);

    QTabWidget* SSTab1 = nullptr;
    // Store, level, year, options and school list of the entry tab.
    StockFilterBand* m_band = nullptr;
    QComboBox* cboUniform = nullptr;
    QDateEdit* dtpStart = nullptr;
    QLineEdit* txtFullName = nullptr;
    QLabel* Label2[2] = {};
    QRadioButton* optOrderGB[2] = {};
    QPushButton* cmdSave2 = nullptr;
    Spread* SP1 = nullptr;
    Spread* SP3 = nullptr;
    std::unique_ptr<LineGrid> m_ordered;
    std::unique_ptr<LineGrid> m_unordered;
    ListTab m_list[3]; // elements 1 and 2
    CodeArray m_uniform;
    QString m_school;
    QString m_currentYear;
    QList<QStringList> m_lineLabels; // the size labels of each entry line
};
