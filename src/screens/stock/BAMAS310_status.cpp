// BAMAS310 tab 1: the order list with its cancellation, and the clear routine.
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/pickers.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS310.h"
#include "screens/stock/sizeheadings.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// SP21, as the statement's fields fall: field i in column i + 1.
enum StatusCol {
    StaDate = 1,
    StaSchool,
    StaUniform,
    StaOrderDt,
    StaOrderSeq,
    StaYear,
    StaTotal,
    StaSizeTab,
    StaFirstSize,
    StaSupplier = StaFirstSize + kSizePositions,
    StaCheck,
    StaStore,
    StaCount = StaStore
};

const QStringList& statusLeading() {
    static const QStringList headings{u"발주일"_s, u"학교 [성]"_s, u"복종"_s, u"ORDDT"_s,
                                      u"ORDSEQ"_s, u"연식"_s,      u"합계"_s};
    return headings;
}

const QStringList& statusTrailing() {
    static const QStringList headings{u"발주처"_s, u"□"_s, u"STORECD"_s};
    return headings;
}

const GridColumns& statusColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), statusLeading()[0], CellType::Static, 10, Align::Centre},
            {QString(), statusLeading()[1], CellType::Static, 14},
            {QString(), statusLeading()[2], CellType::Static, 20},
            {QString(), statusLeading()[3], CellType::Static, 0},
            {QString(), statusLeading()[4], CellType::Static, 0},
            {QString(), statusLeading()[5], CellType::Static, 4, Align::Centre},
            {QString(), statusLeading()[6], CellType::Static, 6, Align::Right},
            {QString(), QString(), CellType::Static, 3, Align::Centre},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString(), CellType::Static, 4, Align::Right});
        }
        c.push_back({QString(), statusTrailing()[0], CellType::Static, 20});
        c.push_back({QString(), statusTrailing()[1], CellType::Check, 3, Align::Centre});
        c.push_back({QString(), statusTrailing()[2], CellType::Static, 0});
        return GridColumns(std::move(c));
    }();
    return table;
}

} // namespace

QWidget* BAMAS310::buildStatusTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboStore_1"_s;
    parts.storeName = u"lblStore_1"_s;
    parts.level = u"cboLevel_1"_s;
    parts.year = u"cboYY_1"_s;
    parts.schoolList = u"SP20"_s;
    parts.schoolListWithAll = true;
    parts.sexFirst = 3;
    parts.seasonFirst = 2;
    auto* tab = new StockFilterBand(parts, this);
    m_band[1] = tab;
    SP20 = tab->schools();

    dtpStart[1] = dateBox(u"dtpStart_1"_s, QDate::currentDate().addDays(-90));
    dtpEnd = dateBox(u"dtpEnd"_s, QDate::currentDate());
    const auto button = [tab](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, tab);
        b->setObjectName(name);
        return b;
    };
    cmdUniType = button(u"cmdUniType"_s, u"전체"_s);
    cmdViewSale = button(u"cmdViewSale"_s, u"조회"_s);
    cmdDelete = button(u"cmdDelete"_s, u"발주취소"_s);
    cmdExcel = button(u"cmdExcel"_s, u"Excel"_s);
    tab->addOption(new QLabel(u"복종"_s, tab));
    tab->addOption(cmdUniType);
    tab->addField(1, u"조회기간"_s, dtpStart[1]);
    tab->addField(1, new QLabel(u"~"_s, tab));
    tab->addField(1, dtpEnd, 2);
    for (QPushButton* b : {cmdViewSale, cmdDelete, cmdExcel}) {
        tab->addField(1, b);
    }

    SP21 = new Spread(tab);
    SP21->setObjectName(u"SP21"_s);
    gsSpreadInit(SP21, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    statusColumns().setUp(SP21);
    SP21->setLocked(-1, -1, true);
    SP21->setLocked(-1, StaCheck, false);
    gsSpreadFreezeCols(SP21, StaTotal);
    m_status = std::make_unique<LineGrid>(
        SP21, LineGridLayout{
                  {{LineRow::Quantity, false}}, StaFirstSize, StaTotal, 0, 0, 0, std::nullopt});
    tab->setBody(SP21);

    connect(tab, &StockFilterBand::storeChanged, this, [this] { cboStore_Click(1); });
    connect(tab, &StockFilterBand::schoolClicked, this, [this](int r) { SP20_Click(r); });
    // A changed filter empties the list rather than running it.
    const auto empty = [this] { SP21->setMaxRows(0); };
    connect(tab, &StockFilterBand::optionsChanged, this, empty);
    connect(tab, &StockFilterBand::yearChanged, this, empty);
    connect(cmdViewSale, &QPushButton::clicked, this, &BAMAS310::cmdViewSale_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &BAMAS310::cmdDelete_Click);
    connect(cmdExcel, &QPushButton::clicked, this, &BAMAS310::cmdExcel_Click);
    connect(cmdUniType, &QPushButton::clicked, this, &BAMAS310::cmdUniType_Click);
    return tab;
}

void BAMAS310::SP20_Click(int row) {
    if (row < 1 || row > SP20->maxRows()) {
        return;
    }
    m_statusSchool = gfSpreadCellText(SP20, row, 2);
    Label2[0]->setText(gfSpreadCellText(SP20, row, 1));
    Label2[1]->setText(m_statusSchool);
    cmdViewSale_Click();
}

void BAMAS310::cmdUniType_Click() {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = m_band[1]->storeCode();
    const StockFilterBand::Sex sex = m_band[1]->sex();
    scope.sex = sex == StockFilterBand::Sex::Boys    ? u"B"_s
                : sex == StockFilterBand::Sex::Girls ? u"G"_s
                                                     : QString();
    scope.season = m_band[1]->winter() ? u"N"_s : u"S"_s;
    QList<CheckPickerGrid> grids;
    const QString names[3] = {u"주품목"_s, u"부품목"_s, u"별매품"_s};
    for (int k = 1; k <= 3; ++k) {
        scope.subMain = QString::number(k);
        grids << CheckPickerGrid{u"SPSubM%1"_s.arg(k), names[k - 1], itemPickerSql(scope)};
    }
    CheckPicker picker(
        u"복종선택"_s,
        {u"UNIFORMNAME"_s, u"CD"_s, u"SUBMAIN"_s, u"복종"_s, u"품명코드"_s, u"주부"_s}, grids,
        u"cmdRun2"_s, u"cmdExit2"_s, this);
    picker.setObjectName(u"Frame33"_s);
    picker.exec();
    m_items = picker.picked();
    cmdUniType->setText(m_items.caption());
    cmdUniType->setToolTip(m_items.caption());
}

QString BAMAS310::statusSql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QString sql =
        u" SELECT DISTINCT "_s +
        d.cat({u"SUBSTRING(OD.ORDERDT, 1, 4)"_s, u"'-'"_s, u"SUBSTRING(OD.ORDERDT, 5, 2)"_s,
               u"'-'"_s, u"SUBSTRING(OD.ORDERDT, 7, 2)"_s}) +
        u" ORDDATE, "_s + schoolSexText(d) +
        u" SCHOOLTEXT, UF.UNIFORMNAME, OD.ORDERDT, "
        "        OD.ORDERSEQ, "_s +
        d.cat({u"SUBSTRING(OD.ORDYYYY, 4, 1)"_s, u"RTRIM(UF.SEASON)"_s}) +
        u" YEARTEXT, '' TOTAL, OD.SIZETAB, "_s + eachSize(u"OD.O%1"_s) +
        u", OD.ORDERSTORE, 0 CHK, OD.STORECD, "
        "        CS.SCHOOLLEVEL, CS.SCHOOLNAME, UF.SUBMAIN, UF.UNITYPE "
        "   FROM T_ORDER OD "_s +
        nl + u"   JOIN C_UNIFORM UF "_s + nl + u" ON "_s + itemJoin(d, u"UF"_s, u"OD"_s) +
        u"   JOIN C_SCHOOLUNIFORM SU "_s + nl +
        u" ON SU.COMPANY = OD.COMPANY AND SU.SCHOOLCD = OD.SCHOOLCD "
        "        AND SU.SUDIVIDE = OD.SUDIVIDE AND SU.SEASON = UF.SEASON "
        "        AND SU.DIVIDE = UF.DIVIDE AND SU.UNIFORMSEQ = UF.UNIFORMSEQ "
        "        AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "
        "   LEFT OUTER JOIN C_SCHOOL CS "_s +
        nl +
        u" ON CS.COMPANY = OD.COMPANY AND CS.SCHOOLCD = OD.SCHOOLCD "
        "   LEFT OUTER JOIN C_GONGTONG GT24 "_s +
        nl +
        u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = OD.SUDIVIDE "
        "  WHERE OD.COMPANY = "_s +
        quotedCompany() + u"    AND OD.STORECD = "_s + quoted(m_band[1]->storeCode()) +
        u"    AND OD.ORDYYYY = "_s + quoted(entryYear(m_band[1]->year())) +
        u"    AND OD.ORDERDT BETWEEN "_s + quoted(ymdOf(dtpStart[1])) + u" AND "_s +
        quoted(ymdOf(dtpEnd));
    if (!m_statusSchool.isEmpty()) {
        sql += u"    AND OD.SCHOOLCD = "_s + quoted(m_statusSchool);
    }
    if (const QString sex = m_band[1]->sexCode(); !sex.isEmpty()) {
        sql += u"    AND SU.SUDIVIDE = '"_s + sex + u"' "_s;
    }
    sql += m_band[1]->winter() ? u"    AND SU.SEASON  IN ('A', 'N') "_s
                               : u"    AND SU.SEASON IN ('A',  'S') "_s;
    if (!m_items.isEmpty()) {
        sql += u"    AND "_s + itemBaseCode(d, u"UF"_s) + u" IN ("_s + m_items.inList() + u") "_s;
    }
    return sql + u"  ORDER BY OD.ORDERDT DESC, CS.SCHOOLLEVEL, CS.SCHOOLNAME, UF.SUBMAIN, "
                 "UF.UNITYPE, UF.UNIFORMNAME"_s;
}

void BAMAS310::cmdViewSale_Click() {
    if (m_band[1]->storeCode().isEmpty()) {
        return;
    }
    if (entryYear(m_band[1]->year()).isEmpty()) {
        gfsMessage(8061);
        return;
    }
    command(u"cmdViewSale_Click"_s, [this] {
        QList<SizeHeadingRow> headings;
        {
            const WaitCursor wait;
            if (!readSizeHeadings(m_band[1]->storeCode(), QString(), u"H"_s, headings)) {
                return;
            }
        }
        // The list runs off the window thread; a failed or cancelled one leaves the grid as
        // it stands.
        runReport(u"cmdViewSale_Click"_s, statusSql(), [this, headings](const RecordSet& rs) {
            SP21->setRedraw(false);
            writeSizeHeadings(SP21, headings, statusLeading(), statusTrailing());
            SP21->setMaxRows(0);
            SP21->setMaxRows(int(rs.recordCount()));
            for (qsizetype r = 0; r < rs.recordCount(); ++r) {
                for (int field = 0; field < StaCount; ++field) {
                    gsSpreadSetText(SP21, int(r) + 1, field + 1, rs.at(r, field).trimmed());
                }
            }
            m_status->recompute();
            SP21->setRedraw(true);
            showFound(rs.recordCount());
        });
    });
}

void BAMAS310::cmdDelete_Click() {
    SP21->finishEditing();
    const QStringList deletes = checkedRowStatements(SP21, StaCheck, [this](int row) -> QString {
        return u" DELETE FROM T_ORDER "_s + whereCompany() +
               andEquals(u"STORECD"_s, gfSpreadCellText(SP21, row, StaStore)) +
               andEquals(u"ORDERDT"_s, gfSpreadCellText(SP21, row, StaOrderDt)) +
               u"    AND ORDERSEQ = "_s + numeric(gfSpreadCellText(SP21, row, StaOrderSeq));
    });
    // The ticked lines go together after the question, or none does; their receipts stay as
    // they are. After a failure the ticks stay for a second try.
    if (!deletes.isEmpty()) {
        if (gfsMessage(8073) != u"OK"_s) {
            return;
        }
        bool done = false;
        command(
            u"cmdDelete_Click"_s, [&] { done = executeAsUnit(deletes); }, true);
        if (!done) {
            return;
        }
    }
    const int row = SP20->activeRow();
    if (row >= 1) {
        SP20_Click(row);
    } else {
        cmdViewSale_Click();
    }
}

void BAMAS310::cmdExcel_Click() {
    const ReportGrid report = reportGrid();
    gsExcelExport(report.title, report.lastCol, report.grid, report.subTitle);
}

Screen::ReportGrid BAMAS310::reportGrid() const {
    const StockFilterBand& band = *m_band[1];
    const QString season = band.winter() ? u"   시즌 : 동복"_s : u"   시즌 : 하복"_s;
    const QString sex = band.sex() == StockFilterBand::Sex::Boys    ? u"   성별 : 남자"_s
                        : band.sex() == StockFilterBand::Sex::Girls ? u"   성별 : 여자"_s
                                                                    : u"   성별 : 전체"_s;
    return {SP21, u"발주현황"_s,
            u"매장 : "_s + band.store()->currentText() + u"   브랜드 : "_s + band.storeBrand() +
                u"   학교 : "_s + Label2[0]->text() + u"   연도 : "_s + band.year()->currentText() +
                season + sex + u"   조회기간 : "_s + dtpStart[1]->date().toString(u"yyyy-MM-dd"_s) +
                u" ~ "_s + dtpEnd->date().toString(u"yyyy-MM-dd"_s),
            StaCount};
}

void BAMAS310::m_clear() {
    txtFullName->clear();
    for (Spread* grid : {SP1, SP3, SP20, SP21}) {
        grid->setMaxRows(0);
    }
    m_entry->clear();
    m_school.clear();
    m_statusSchool.clear();
    // Blank rows under the school list and the entry grid, as an empty sheet shows.
    SP1->setMaxRows(30);
    SP3->setMaxRows(30);
}
