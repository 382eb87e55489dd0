// BAMAS315 tabs 1 and 2: the receipt list with its cancellation, and the open remainders.
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
#include "screens/stock/BAMAS315.h"
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
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// SP21: the receipt list, field i of its statement in column i + 1.
enum ReceiptCol {
    RecDate = 1,
    RecSchool,
    RecUniform,
    RecYear,
    RecTotal,
    RecSizeTab,
    RecFirstSize,
    RecSupplier = RecFirstSize + kSizePositions,
    RecReceiver,
    RecCheck,
    RecStore,
    RecInDt,
    RecInSeq,
    RecCount = RecInSeq
};

// SP41: the open remainders.
enum OpenCol {
    OpnDate = 1,
    OpnSupplier,
    OpnSchool,
    OpnUniform,
    OpnYear,
    OpnTotal,
    OpnSizeTab,
    OpnFirstSize,
    OpnOrderSeq = OpnFirstSize + kSizePositions,
    OpnCount = OpnOrderSeq
};

const QStringList kReceiptLeading{u"입고일"_s, u"학교 [성]"_s, u"복종"_s, u"연식"_s, u"합계"_s};
const QStringList kReceiptTrailing{u"출고처"_s,  u"입고처"_s, u"□"_s,
                                   u"STORECD"_s, u"INDT"_s,   u"INSEQ"_s};
const QStringList kOpenLeading{u"발주일"_s, u"발주처"_s, u"학교 [성]"_s,
                               u"복종"_s,   u"연식"_s,   u"합계"_s};
const QStringList kOpenTrailing{u"ORDERSEQ"_s};

// A list's columns: the leading texts, the size table, 24 sizes, the trailing ones; widths by
// heading, codes hidden, the tick box a check cell.
GridColumns listColumns(const QStringList& leading, const QStringList& trailing) {
    const auto width = [](const QString& h) -> double {
        if (h == u"학교 [성]"_s) {
            return 14;
        }
        // Wide enough for the longest item and supplier names.
        if (h == u"복종"_s || h == u"발주처"_s || h == u"출고처"_s || h == u"입고처"_s) {
            return 20;
        }
        if (h == u"입고일"_s || h == u"발주일"_s) {
            return 10;
        }
        if (h == u"□"_s || h == u"연식"_s) {
            return 4;
        }
        if (h == u"합계"_s) {
            return 6;
        }
        return 0;
    };
    std::vector<GridColumn> c;
    for (const QString& h : leading) {
        c.push_back({QString(), h, CellType::Static, width(h),
                     h == u"합계"_s ? Align::Right : Align::Left});
    }
    c.push_back({QString(), QString(), CellType::Static, 3, Align::Centre});
    for (int n = 1; n <= kSizePositions; ++n) {
        c.push_back({QString(), QString(), CellType::Static, 4, Align::Right});
    }
    for (const QString& h : trailing) {
        c.push_back({QString(), h, h == u"□"_s ? CellType::Check : CellType::Static, width(h),
                     Align::Left});
    }
    return GridColumns(std::move(c));
}

QString dashed(const Dialect& d, const QString& column) {
    return d.cat({u"SUBSTRING(%1, 1, 4)"_s.arg(column), u"'-'"_s,
                  u"SUBSTRING(%1, 5, 2)"_s.arg(column), u"'-'"_s,
                  u"SUBSTRING(%1, 7, 2)"_s.arg(column)});
}

} // namespace

QWidget* BAMAS315::buildListTab(int k) {
    ListTab& t = m_list[k];
    StockFilterBand::Parts parts;
    parts.store = u"cboStore_%1"_s.arg(k);
    parts.storeCaption = u"입고매장"_s;
    parts.year = u"cboYY_%1"_s.arg(k);
    parts.sexFirst = 3 * k;
    parts.girlsBeforeBoys = true;
    parts.seasonFirst = 2 * k;
    parts.summerFirst = true;
    auto* tab = new StockFilterBand(parts, this);
    t.band = tab;
    const auto button = [tab](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, tab);
        b->setObjectName(name);
        return b;
    };
    t.dtpStart = dateBox(u"dtpStart_%1"_s.arg(k), QDate::currentDate().addMonths(-3));
    t.dtpEnd = dateBox(u"dtpEnd_%1"_s.arg(k), QDate::currentDate());
    t.txtFullName = textBox(u"txtFullName_%1"_s.arg(k), 50);
    t.cmdSerchSch = button(k == 1 ? u"cmdSerchSch"_s : u"cmdSerchSch2"_s, u"전체"_s);
    t.cmdUniType = button(k == 1 ? u"cmdUniType"_s : u"cmdUniType2"_s, u"전체"_s);
    tab->addOption(new QLabel(u"학교"_s, tab));
    tab->addOption(t.cmdSerchSch);
    tab->addOption(new QLabel(u"복종"_s, tab));
    tab->addOption(t.cmdUniType);

    tab->addField(0, k == 1 ? u"출고처"_s : u"발주처"_s, t.txtFullName);
    tab->addField(1, u"조회기간"_s, t.dtpStart);
    tab->addField(1, new QLabel(u"~"_s, tab));
    tab->addField(1, t.dtpEnd);
    QPushButton* view = button(k == 1 ? u"cmdViewSale"_s : u"cmdViewSal2"_s, u"조회"_s);
    tab->addField(1, view);
    QPushButton* cancel = nullptr;
    if (k == 1) {
        cancel = button(u"cmdDelete"_s, u"입고취소"_s);
        tab->addField(1, cancel);
    }
    QPushButton* excel = button(k == 1 ? u"cmdExcel"_s : u"cmdExcel2"_s, u"Excel"_s);
    tab->addField(1, excel);

    t.grid = new Spread(tab);
    t.grid->setObjectName(k == 1 ? u"SP21"_s : u"SP41"_s);
    gsSpreadInit(t.grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    (k == 1 ? listColumns(kReceiptLeading, kReceiptTrailing)
            : listColumns(kOpenLeading, kOpenTrailing))
        .setUp(t.grid);
    t.grid->setLocked(-1, -1, true);
    if (k == 1) {
        t.grid->setLocked(-1, RecCheck, false);
    }
    const int totalCol = k == 1 ? int(RecTotal) : int(OpnTotal);
    gsSpreadFreezeCols(t.grid, totalCol);
    t.sums = std::make_unique<LineGrid>(
        t.grid, LineGridLayout{
                    {{LineRow::Quantity, false}}, totalCol + 2, totalCol, 0, 0, 0, std::nullopt});
    tab->setBody(t.grid);

    const auto empty = [&t] { t.grid->setMaxRows(0); };
    connect(tab, &StockFilterBand::optionsChanged, this, empty);
    connect(tab, &StockFilterBand::yearChanged, this, empty);
    connect(view, &QPushButton::clicked, this,
            k == 1 ? &BAMAS315::cmdViewSale_Click : &BAMAS315::cmdViewSal2_Click);
    if (cancel) {
        connect(cancel, &QPushButton::clicked, this, &BAMAS315::cmdDelete_Click);
    }
    connect(t.cmdSerchSch, &QPushButton::clicked, this,
            [this, k] { pickSchools(m_list[k], k == 1 ? 1 : 3, k == 1 ? 1 : 3); });
    connect(t.cmdUniType, &QPushButton::clicked, this,
            [this, k] { pickItems(m_list[k], k == 1 ? 1 : 21, k == 1 ? 2 : 4, k == 1 ? 2 : 4); });
    connect(excel, &QPushButton::clicked, this, [this, k] {
        const ReportGrid report = listReport(k);
        gsExcelExport(report.title, report.lastCol, report.grid, report.subTitle);
    });
    return tab;
}

void BAMAS315::pickSchools(ListTab& t, int run, int exit) {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = t.band->storeCode();
    scope.sex = t.band->sex() == StockFilterBand::Sex::Boys    ? u"B"_s
                : t.band->sex() == StockFilterBand::Sex::Girls ? u"G"_s
                                                               : QString();
    QList<CheckPickerGrid> grids;
    const QString names[3] = {u"중 등"_s, u"고 등"_s, u"KIDS"_s};
    for (int level = 1; level <= 3; ++level) {
        scope.schoolLevel = level;
        grids << CheckPickerGrid{u"SPLVL%1"_s.arg(level), names[level - 1], schoolPickerSql(scope)};
    }
    CheckPicker picker(
        u"학교선택"_s,
        {u"SCHOOLNAME"_s, u"SCHOOLCD"_s, QString(), u"학교"_s, u"학교코드"_s, u"남여"_s}, grids,
        u"cmdRun%1"_s.arg(run), u"cmdExit%1"_s.arg(exit), this);
    picker.exec();
    t.schools = picker.picked();
    t.cmdSerchSch->setText(t.schools.caption());
}

void BAMAS315::pickItems(ListTab& t, int first, int run, int exit) {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = t.band->storeCode();
    scope.sex = t.band->sex() == StockFilterBand::Sex::Boys    ? u"B"_s
                : t.band->sex() == StockFilterBand::Sex::Girls ? u"G"_s
                                                               : QString();
    scope.season = t.band->winter() ? u"N"_s : u"S"_s;
    QList<CheckPickerGrid> grids;
    const QString names[3] = {u"주품목"_s, u"부품목"_s, u"별매품"_s};
    for (int k = 0; k < 3; ++k) {
        scope.subMain = QString::number(k + 1);
        grids << CheckPickerGrid{u"SPSubM%1"_s.arg(first + k), names[k], itemPickerSql(scope)};
    }
    CheckPicker picker(
        u"복종선택"_s,
        {u"UNIFORMNAME"_s, u"CD"_s, u"SUBMAIN"_s, u"복종"_s, u"품명코드"_s, u"주부"_s}, grids,
        u"cmdRun%1"_s.arg(run), u"cmdExit%1"_s.arg(exit), this);
    picker.exec();
    t.items = picker.picked();
    t.cmdUniType->setText(t.items.caption());
}

// The filters both lists share: store, model year, period, schools, items, sex and season.
QString BAMAS315::listWhere(const ListTab& t, const QString& alias, const QString& yearColumn,
                            const QString& dateColumn) const {
    QString sql = u"  WHERE "_s + alias + u".COMPANY = "_s + quotedCompany() + u"    AND "_s +
                  alias + u".STORECD = "_s + quoted(t.band->storeCode()) + u"    AND "_s + alias +
                  u"."_s + yearColumn + u" = "_s + quoted(entryYear(t.band->year())) +
                  u"    AND "_s + alias + u"."_s + dateColumn + u" BETWEEN "_s +
                  quoted(ymdOf(t.dtpStart)) + u" AND "_s + quoted(ymdOf(t.dtpEnd));
    if (!t.schools.isEmpty()) {
        sql += u"    AND "_s + alias + u".SCHOOLCD IN ("_s + t.schools.inList() + u") "_s;
    }
    if (!t.items.isEmpty()) {
        sql += u"    AND "_s + itemBaseCode(dialect(), u"UF"_s) + u" IN ("_s + t.items.inList() +
               u") "_s;
    }
    if (const QString sex = t.band->sexCode(); !sex.isEmpty()) {
        sql += u"    AND "_s + alias + u".SUDIVIDE = '"_s + sex + u"' "_s;
    }
    return sql + (t.band->winter() ? u"    AND UF.SEASON IN ('A', 'N') "_s
                                   : u"    AND UF.SEASON IN ('A', 'S') "_s);
}

QString BAMAS315::receiptListSql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QStringList any;
    for (int p = 1; p <= kSizePositions; ++p) {
        any << u"TIN.I%1 <> 0"_s.arg(p, 2, 10, QLatin1Char('0'));
    }
    return u" SELECT DISTINCT "_s + dashed(d, u"TIN.INBOUNDDT"_s) + u" INDATE, "_s +
           schoolSexText(d) + u" SCHOOLTEXT, UF.UNIFORMNAME, "_s +
           d.cat({u"SUBSTRING(TIN.INYYYY, 4, 1)"_s, u"RTRIM(UF.SEASON)"_s}) +
           u" YEARTEXT, '' TOTAL, UF.SIZETAB, "_s + eachSize(u"TIN.I%1"_s) +
           u", TIN.OUTBOUNDSTORE, '' RECEIVER, '' CHK, TIN.STORECD, TIN.INBOUNDDT, "
           "        TIN.INBOUNDSEQ, UF.SEASON, UF.SUBMAIN, UF.UNITYPE "
           "   FROM T_INBOUND TIN "_s +
           nl + u"   JOIN C_UNIFORM UF "_s + nl + u" ON "_s + itemJoin(d, u"UF"_s, u"TIN"_s) +
           u"   LEFT OUTER JOIN C_SCHOOL CS "_s + nl +
           u" ON CS.COMPANY = TIN.COMPANY AND CS.SCHOOLCD = TIN.SCHOOLCD "
           "   LEFT OUTER JOIN C_GONGTONG GT24 "_s +
           nl + u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = TIN.SUDIVIDE "_s +
           listWhere(m_list[1], u"TIN"_s, u"INYYYY"_s, u"INBOUNDDT"_s) + u"    AND ("_s +
           any.join(u" OR "_s) +
           u" ) "
           "  ORDER BY TIN.INBOUNDDT DESC, SCHOOLTEXT, UF.SEASON, UF.SUBMAIN, UF.UNITYPE, "
           "UF.UNIFORMNAME"_s;
}

QString BAMAS315::openListSql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QStringList remainders, any;
    for (int p = 1; p <= kSizePositions; ++p) {
        remainders << u"CASE WHEN (OD.O%1 - ISNULL(TIN.I%1, 0)) <= 0 THEN 0 "
                      "ELSE (OD.O%1 - ISNULL(TIN.I%1, 0)) END R%1"_s.arg(p, 2, 10,
                                                                         QLatin1Char('0'));
    }
    QString sql = u" SELECT DISTINCT "_s + dashed(d, u"OD.ORDERDT"_s) +
                  u" ORDDATE, OD.ORDERSTORE, "_s + schoolSexText(d) +
                  u" SCHOOLTEXT, UF.UNIFORMNAME, "_s +
                  d.cat({u"SUBSTRING(OD.ORDYYYY, 4, 1)"_s, u"RTRIM(UF.SEASON)"_s}) +
                  u" YEARTEXT, '' TOTAL, OD.SIZETAB, "_s + remainders.join(u", "_s) +
                  u", OD.ORDERSEQ, OD.ORDERDT "
                  "   FROM T_ORDER OD "_s +
                  nl + u"   JOIN C_UNIFORM UF "_s + nl + u" ON "_s + itemJoin(d, u"UF"_s, u"OD"_s) +
                  u"   LEFT OUTER JOIN C_SCHOOL CS "_s + nl +
                  u" ON CS.COMPANY = OD.COMPANY AND CS.SCHOOLCD = OD.SCHOOLCD "
                  "   LEFT OUTER JOIN C_GONGTONG GT24 "_s +
                  nl +
                  u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = OD.SUDIVIDE "
                  "   LEFT OUTER JOIN VIW_T_INBOUND TIN "
                  " ON TIN.COMPANY = OD.COMPANY AND TIN.STORECD = OD.STORECD "
                  "        AND TIN.SCHOOLCD = OD.SCHOOLCD AND TIN.SUDIVIDE = OD.SUDIVIDE "
                  "        AND TIN.INYYYY = OD.ORDYYYY AND TIN.UNIFORMCD = OD.UNIFORMCD "
                  "        AND TIN.ORDERDT = OD.ORDERDT AND TIN.OUTBOUNDSTORE = OD.ORDERSTORE "
                  "        AND TIN.ORDERSEQ = OD.ORDERSEQ "_s +
                  listWhere(m_list[2], u"OD"_s, u"ORDYYYY"_s, u"ORDERDT"_s) +
                  u"    AND OD.FINISHGB IN ('A', 'I') "_s;
    const QString supplier = m_list[2].txtFullName->text().trimmed();
    if (!supplier.isEmpty()) {
        sql += u"    AND OD.ORDERSTORE LIKE "_s + quoted(u"%"_s + supplier + u"%"_s);
    }
    return sql + u"  ORDER BY OD.ORDERDT, SCHOOLTEXT, UF.UNIFORMNAME"_s;
}

void BAMAS315::runList(ListTab& t, const QString& sql, const QStringList& leading,
                       const QStringList& trailing) {
    if (t.band->storeCode().isEmpty()) {
        return;
    }
    if (entryYear(t.band->year()).isEmpty()) {
        gfsMessage(8061);
        return;
    }
    command(u"cmdViewSale_Click"_s, [&] {
        QList<SizeHeadingRow> headings;
        {
            const WaitCursor wait;
            if (!readSizeHeadings(t.band->storeCode(), QString(), u"H"_s, headings)) {
                return;
            }
        }
        // The list runs off the window thread; a failed or cancelled one leaves the grid as
        // it stands.
        runReport(u"cmdViewSale_Click"_s, sql,
                  [this, &t, headings, leading, trailing](const RecordSet& rs) {
                      const int columns = t.grid->maxCols();
                      t.grid->setRedraw(false);
                      writeSizeHeadings(t.grid, headings, leading, trailing);
                      t.grid->setMaxRows(0);
                      t.grid->setMaxRows(int(rs.recordCount()));
                      const int fields = qMin(columns, rs.fieldCount());
                      for (qsizetype r = 0; r < rs.recordCount(); ++r) {
                          for (int field = 0; field < fields; ++field) {
                              gsSpreadSetText(t.grid, int(r) + 1, field + 1,
                                              rs.at(r, field).trimmed());
                          }
                      }
                      t.sums->recompute();
                      t.grid->setRedraw(true);
                      showFound(rs.recordCount());
                  });
    });
}

void BAMAS315::cmdViewSale_Click() {
    runList(m_list[1], receiptListSql(), kReceiptLeading, kReceiptTrailing);
}

void BAMAS315::cmdViewSal2_Click() {
    runList(m_list[2], openListSql(), kOpenLeading, kOpenTrailing);
}

void BAMAS315::cmdDelete_Click() {
    Spread* grid = m_list[1].grid;
    grid->finishEditing();
    const QStringList deletes = checkedRowStatements(grid, RecCheck, [grid](int row) -> QString {
        return u" DELETE FROM T_INBOUND "_s + whereCompany() +
               andEquals(u"STORECD"_s, gfSpreadCellText(grid, row, RecStore)) +
               andEquals(u"INBOUNDDT"_s, gfSpreadCellText(grid, row, RecInDt)) +
               u"    AND INBOUNDSEQ = "_s + numeric(gfSpreadCellText(grid, row, RecInSeq));
    });
    // The ticked receipts go together after the question, or none does; the order's state
    // stays as the receipt left it. After a failure the ticks stay for a second try.
    if (!deletes.isEmpty()) {
        if (gfsMessage(8073) != u"OK"_s) {
            return;
        }
        bool done = false;
        command(
            u"sSaveQuery"_s, [&] { done = executeAsUnit(deletes); }, true);
        if (!done) {
            return;
        }
    }
    cmdViewSale_Click();
}

Screen::ReportGrid BAMAS315::listReport(int k) const {
    const ListTab& l = m_list[k];
    const QString season = l.band->winter() ? u"시즌 : 동복"_s : u"시즌 : 하복"_s;
    const StockFilterBand::Sex sex = l.band->sex();
    const QString sexText = sex == StockFilterBand::Sex::Boys    ? u"   성별 : 남자"_s
                            : sex == StockFilterBand::Sex::Girls ? u"   성별 : 여자"_s
                                                                 : QString();
    return {l.grid, k == 1 ? u"입고현황"_s : u"미입고현황"_s,
            u"매장 : "_s + l.band->store()->currentText() + u"   브랜드 : "_s +
                l.band->storeBrand() + u"   연도 : "_s + l.band->year()->currentText() + u"   "_s +
                season + sexText + u"   조회기간 : "_s +
                l.dtpStart->date().toString(u"yyyy-MM-dd"_s) + u" ~ "_s +
                l.dtpEnd->date().toString(u"yyyy-MM-dd"_s),
            k == 1 ? int(RecCount) : int(OpnCount)};
}

Screen::ReportGrid BAMAS315::reportGrid() const {
    // The list of the tab in view; from the entry tab, the receipt list.
    return listReport(SSTab1 && SSTab1->currentIndex() == 2 ? 2 : 1);
}
