#include "screens/stock/BAMAS330.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/pickers.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/linegrid.h"
#include "grid/numerictext.h"
#include "grid/spreadmodel.h"
#include "grid/spreadroutines.h"
#include "screens/stock/sizeheadings.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

// SP31: the merge key, names, year label, total, size table, 24 sizes, model year.
enum Column {
    ColKey = 1,
    ColStore,
    ColSchool,
    ColSex,
    ColUniform,
    ColYear,
    ColTotal,
    ColSizeTab,
    ColFirstSize,
    ColLastSize = ColFirstSize + 23,
    ColModelYear,
    ColCount = ColModelYear
};
constexpr quint32 kRed = 255;
constexpr quint32 kActiveButton = 0xC0FFC0;

QString code(const QComboBox* combo, const CodeArray& arr) {
    return combo->currentIndex() > 0 ? gfComboCode(combo, arr) : QString();
}

} // namespace

namespace {

// SP31 in the order of the Column numbers above: filled row by row by the report.
const GridColumns& reportColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), QStringLiteral(" "), CellType::Static, 0},
            {QString(), QStringLiteral("매장"), CellType::Static, 10},
            {QString(), QStringLiteral("학교"), CellType::Static, 10},
            {QString(), QStringLiteral("성별"), CellType::Static, 5},
            // Wider than the old 15: the longest item names (10 and more Korean letters) were
            // cut off.
            {QString(), QStringLiteral("복종"), CellType::Static, 21},
            {QString(), QStringLiteral("년식"), CellType::Static, 5},
            {QString(), QStringLiteral("합계"), CellType::Static, 6, Align::Right},
            {QString(), QString(), CellType::Static, 4, Align::Centre},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString(), CellType::Static, 4, Align::Right});
        }
        c.push_back({QString(), QStringLiteral("최종등록일"), CellType::Static, 12, Align::Centre});
        return GridColumns(std::move(c));
    }();
    return table;
}

} // namespace

BAMAS330::BAMAS330() : Screen(QStringLiteral("BAMAS330"), QStringLiteral("재고관리")) {}

BAMAS330::~BAMAS330() = default;

void BAMAS330::setupScreen() {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(buildEntryTab(), QStringLiteral("재고보정/등록"));
    SSTab1->addTab(buildStockTab(), QStringLiteral("재고현황"));
    SSTab1->setCurrentIndex(1);
    contentLayout()->addWidget(SSTab1, 1);

    // The screen's year: the latest year any store works in, else the server's, else ours.
    RecordSet rs;
    m_currentYear = QString::number(QDate::currentDate().year());
    if (gfbSqlSelectDB(QStringLiteral("SELECT ISNULL(MAX(CURRYYYY), LEFT(") +
                           dialect().iso(QStringLiteral("GETDATE()")) +
                           QStringLiteral(", 4)) FROM C_STORE  WHERE COMPANY = ") + quotedCompany(),
                       rs) &&
        !rs.eof() && !rs.value(0).trimmed().isEmpty()) {
        m_currentYear = rs.value(0).trimmed();
    }
    const int year = m_currentYear.toInt();
    for (QComboBox* yy : {cboYY1[0], cboYY1[1], cboYY0[0], cboYY0[1]}) {
        for (int y : {year + 1, year, year - 1, year - 2, year - 3}) {
            yy->addItem(QString::number(y).right(2));
        }
        yy->setCurrentIndex(1);
    }
    gsReadCode(cboBrand, m_brand, QStringLiteral("BRD"));
    gsReadCode(cboStore, m_store, QStringLiteral("BRDSTORE"), QString());
    gsReadCode(cboGT23, m_gt23, QStringLiteral("GT23"));
    gsReadCode(cboGT22, m_gt22, QStringLiteral("GT22"));
    gsReadCode(cboGT28, m_gt28, QStringLiteral("GT28"));
    cboGT28->setItemText(0, QStringLiteral("주부품목"));
    gsReadCode(cboGT25, m_gt25, QStringLiteral("GT25"));
    gsReadCode(cboGT29, m_gt29, QStringLiteral("GT29"));
    fillSchools();
    fillUniforms();

    // The band's level list; its store list is the brand's, as on tab 1.
    m_band0->readCodes();
    gsReadCode(cboBrand0, m_brand0, QStringLiteral("BRD"));
    gsReadCode(cboStore0, m_store0, QStringLiteral("BRDSTORE"), QString());
    gsReadCode(cboGT23_0, m_gt23_0, QStringLiteral("GT23"));
    gsReadCode(cboGT22_0, m_gt22_0, QStringLiteral("GT22"));
    gsReadCode(cboGT28_0, m_gt28_0, QStringLiteral("GT28"));
    cboGT28_0->setItemText(0, QStringLiteral("주부품목"));
    gsReadCode(cboGT29_0, m_gt29_0, QStringLiteral("GT29"));
    fillEntryUniforms();
    clearMode();
}

QWidget* BAMAS330::buildStockTab() {
    auto* tab = new QWidget(this);
    auto* column = new QVBoxLayout(tab);
    auto* filters = new QGridLayout;
    const auto combo = [tab](const QString& name) {
        auto* box = new QComboBox(tab);
        box->setObjectName(name);
        box->setMinimumWidth(110);
        return box;
    };
    cboBrand = combo(QStringLiteral("cboBrand"));
    markRequired(cboBrand);
    cboStore = combo(QStringLiteral("cboStore"));
    cboYY1[0] = combo(QStringLiteral("cboYY1_0"));
    cboYY1[1] = combo(QStringLiteral("cboYY1_1"));
    cboYY1[0]->setMinimumWidth(55);
    cboYY1[1]->setMinimumWidth(55);
    cboGT23 = combo(QStringLiteral("cboGT23"));
    cboGT22 = combo(QStringLiteral("cboGT22"));
    cboGT28 = combo(QStringLiteral("cboGT28"));
    cboUniform = combo(QStringLiteral("cboUniform"));
    cboSchool = combo(QStringLiteral("cboSchool"));
    cboGT25 = combo(QStringLiteral("cboGT25"));
    cboGT29 = combo(QStringLiteral("cboGT29"));
    dtpEnd = dateBox(QStringLiteral("dtpEnd"));

    auto* years = new QHBoxLayout;
    years->addWidget(cboYY1[0]);
    years->addWidget(new QLabel(QStringLiteral("~"), tab));
    years->addWidget(cboYY1[1]);
    const struct {
        const char* label;
        QWidget* field;
        QLayout* layout;
    } cells[] = {
        {"브랜드", cboBrand, nullptr},  {"매장", cboStore, nullptr},
        {"년식", nullptr, years},       {"조회일", dtpEnd, nullptr},
        {"성별", cboGT23, nullptr},     {"시즌", cboGT22, nullptr},
        {"품목구분", cboGT28, nullptr}, {"복종", cboUniform, nullptr},
        {"학교", cboSchool, nullptr},   {"학교구분", cboGT25, nullptr},
        {"구매구분", cboGT29, nullptr},
    };
    int i = 0;
    for (const auto& cell : cells) {
        filters->addWidget(new QLabel(QString::fromUtf8(cell.label), tab), i / 4, (i % 4) * 2);
        if (cell.field) {
            filters->addWidget(cell.field, i / 4, (i % 4) * 2 + 1);
        } else {
            filters->addLayout(cell.layout, i / 4, (i % 4) * 2 + 1);
        }
        ++i;
    }
    auto* buttons = new QHBoxLayout;
    const char* captions[3] = {"년식분리", "년식통합", "이월통합"};
    for (int b = 0; b < 3; ++b) {
        cmdViewSale[b] = new QPushButton(QString::fromUtf8(captions[b]), tab);
        cmdViewSale[b]->setObjectName(QStringLiteral("cmdViewSale%1").arg(b + 1));
        const auto report = StockReport(b);
        connect(cmdViewSale[b], &QPushButton::clicked, this,
                [this, report] { cmdViewSale_Click(report); });
        buttons->addWidget(cmdViewSale[b]);
    }
    cmdExcel = new QPushButton(QStringLiteral("Excel"), tab);
    cmdExcel->setObjectName(QStringLiteral("cmdExcel"));
    connect(cmdExcel, &QPushButton::clicked, this, &BAMAS330::cmdExcel_Click);
    buttons->addWidget(cmdExcel);
    buttons->addStretch(1);
    filters->addLayout(buttons, 2, 6, 1, 2);
    column->addLayout(filters);

    SP31 = new Spread(tab);
    SP31->setObjectName(QStringLiteral("SP31"));
    gsSpreadInit(SP31, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, true);
    reportColumns().setUp(SP31);
    gsSpreadFreezeCols(SP31, ColTotal);
    column->addWidget(SP31, 1);

    connect(cboBrand, &QComboBox::currentIndexChanged, this, [this] { cboBrand_Click(); });
    // The store and the filters that narrow the school list all re-enter the store's handler.
    for (QComboBox* filter : {cboStore, cboGT22, cboGT23, cboGT25, cboGT29}) {
        connect(filter, &QComboBox::currentIndexChanged, this, [this] { cboStore_Click(); });
    }
    connect(cboGT28, &QComboBox::currentIndexChanged, this, [this] {
        if (mbLoaded) {
            fillUniforms();
        }
    });
    return tab;
}

void BAMAS330::cboBrand_Click() {
    if (!mbLoaded) {
        return;
    }
    gsReadCode(cboStore, m_store, QStringLiteral("BRDSTORE"), gfComboCode(cboBrand, m_brand));
    // The refill puts the store back on row 0 without a signal: the school and item lists follow.
    cboStore_Click();
}

void BAMAS330::cboStore_Click() {
    if (!mbLoaded || SSTab1->currentIndex() != 1) {
        return;
    }
    fillSchools();
    fillUniforms();
}

PickerScope BAMAS330::pickerScope() const {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = code(cboStore, m_store);
    scope.brand = code(cboBrand, m_brand);
    scope.sex = code(cboGT23, m_gt23);
    scope.schoolLevel = cboGT25->currentIndex();
    scope.contractRow = cboGT29->currentIndex();
    scope.contractYear = m_currentYear;
    scope.season = code(cboGT22, m_gt22);
    scope.subMain = code(cboGT28, m_gt28);
    return scope;
}

void BAMAS330::fillSchools() {
    guarded(QStringLiteral("cboStore_Click"), [this] {
        gsFillPicker(cboSchool, m_school, schoolPickerSql(pickerScope()), QStringLiteral(" "),
                     QStringLiteral("*"));
    });
}

void BAMAS330::fillUniforms() {
    guarded(QStringLiteral("cboUniform_Fill"), [this] {
        gsFillPicker(cboUniform, m_uniform, itemPickerSql(pickerScope()), QStringLiteral("전체"),
                     QStringLiteral("**"));
    });
}

StockFilter BAMAS330::currentFilter() const {
    StockFilter f;
    f.company = session().gsCompany;
    // Row 0 of the store list has the code "*": its report is empty, as it always was.
    f.store = gfComboCode(cboStore, m_store);
    f.brand = gfComboCode(cboBrand, m_brand);
    QString low = QStringLiteral("20") + cboYY1[0]->currentText();
    QString high = QStringLiteral("20") + cboYY1[1]->currentText();
    if (low > high) {
        std::swap(low, high);
    }
    f.yearFrom = low;
    f.yearTo = high;
    const QString sex = code(cboGT23, m_gt23);
    f.sex = sex == QStringLiteral("B") || sex == QStringLiteral("G") ? sex : QString();
    f.season = code(cboGT22, m_gt22);
    f.subMain = code(cboGT28, m_gt28);
    f.uniform = code(cboUniform, m_uniform);
    f.school = code(cboSchool, m_school);
    f.schoolLevel = code(cboGT25, m_gt25);
    f.contractRow = cboGT29->currentIndex();
    f.currentYear = m_currentYear;
    return f;
}

void BAMAS330::colourButtons(QPushButton* active) {
    // An empty style sheet gives the button back the system's button colour.
    const QString lit = QStringLiteral("background: %1;").arg(spreadColor(kActiveButton).name());
    for (QPushButton* button : {cmdViewSale[0], cmdViewSale[1], cmdViewSale[2], cmdExcel}) {
        button->setStyleSheet(button == active ? lit : QString());
    }
}

void BAMAS330::cmdViewSale_Click(StockReport report) {
    if (cboBrand->currentIndex() < 1) {
        return;
    }
    guarded(QStringLiteral("sSelectQuery"), [this, report] {
        const StockFilter filter = currentFilter();
        QList<SizeHeadingRow> headings;
        {
            const WaitCursor wait;
            if (!readSizeHeadings(cboStore->currentIndex() > 0 ? filter.store : QString(),
                                  filter.brand,
                                  cboGT25->currentIndex() == 3 ? QStringLiteral("L")
                                                               : QStringLiteral("H"),
                                  headings)) {
                return;
            }
        }
        // The report runs off the window thread. A failed or cancelled one leaves the rows,
        // headings and lit button of the last report standing.
        runReport(QStringLiteral("sSelectQuery"), stockStatement(filter, report, dialect()),
                  [this, report, headings](const RecordSet& rs) {
                      colourButtons(cmdViewSale[int(report)]);
                      SP31->setRedraw(false);
                      writeSizeHeadings(
                          SP31, headings,
                          {QStringLiteral(" "), QStringLiteral("매장"), QStringLiteral("학교"),
                           QStringLiteral("성별"), QStringLiteral("복종"), QStringLiteral("년식"),
                           QStringLiteral("합계")},
                          {QStringLiteral("최종등록일")});
                      fillReport(rs);
                  });
    });
}

void BAMAS330::fillReport(const RecordSet& rs) {
    SP31->setRedraw(false);
    SP31->setMaxRows(0);
    SP31->setMaxRows(int(rs.recordCount()));
    for (qsizetype r = 0; r < rs.recordCount(); ++r) {
        // Field i goes to column i + 1: the last field (the date of the last correction) falls
        // off the grid, and the model year stands under "최종등록일", as it always has.
        for (int field = 0; field < rs.fieldCount(); ++field) {
            gsSpreadSetText(SP31, int(r) + 1, field + 1, rs.at(r, field).trimmed(), kRed, QString(),
                            QStringLiteral("N"));
        }
    }
    totals();
    gsSpreadColMerge(SP31, ColKey, ColUniform);
    SP31->setRedraw(true);
}

// Each size cell is rewritten grouped ("##,###": a zero stays blank) and added up; the total
// shows a zero ("##,##0").
void BAMAS330::totals() {
    for (int row = 1; row <= SP31->maxRows(); ++row) {
        qint64 sum = 0;
        for (int col = ColFirstSize; col <= ColLastSize; ++col) {
            double value = 0;
            if (!gfIsNumeric(gfSpreadText(SP31, row, col), &value)) {
                continue;
            }
            sum += qint64(value);
            gsSpreadSetText(SP31, row, col, value == 0 ? QString() : formatGrouped(value, 0), kRed,
                            QString(), QStringLiteral("N"));
        }
        gsSpreadSetText(SP31, row, ColTotal, formatGrouped(double(sum), 0), kRed);
    }
}

QString BAMAS330::filterText() const {
    return QStringLiteral("시즌 : ") +
           (cboGT22->currentIndex() > 0 ? m_gt22.name(cboGT22->currentIndex()) : QString()) +
           QStringLiteral("   브랜드 : ") + cboBrand->currentText() + QStringLiteral("   매장 : ") +
           cboStore->currentText();
}

void BAMAS330::cmdExcel_Click() {
    gsExcelExport(filterText(), ColCount, SP31);
}

Screen::ReportGrid BAMAS330::reportGrid() const {
    return {SP31, QStringLiteral("재고현황"),
            filterText() + QStringLiteral("   조회일 : ") +
                dtpEnd->date().toString(QStringLiteral("yyyy-MM-dd")),
            ColCount};
}
