#include "screens/organisation/BAMAS105.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"
#include "shell/codecontrols.h"
#include "shell/control04.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

QString setColumn(int i) {
    return u"SET%1"_s.arg(i + 1, 2, 10, QLatin1Char('0'));
}

// SP1 in the order of the list statement. The hidden columns carry the row's codes and
// settings back to the edit band, the store kind's code among them: two kinds may share a name.
} // namespace

const GridColumns& BAMAS105::columns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {u"STORECD"_s, u"코드"_s, CellType::Static, 4, Align::Centre},
            {u"GRP_NAM"_s, u"구분"_s, CellType::Static, 6, Align::Centre},
            {u"BRANDNAME"_s, u"브랜드"_s, CellType::Static, 10},
            {u"STORENAME"_s, u"매장"_s, CellType::Static, 12},
            {u"STORENO"_s, u"등록번호"_s, CellType::Static, 12},
            {u"STOREFULLNAME"_s, u"상호"_s, CellType::Static, 16},
            {u"STORECEO"_s, u"대표자명"_s, CellType::Static, 8},
            {u"STORETEL"_s, u"대표전화"_s, CellType::Static, 12},
            {u"STOREADDRES"_s, u"주소"_s, CellType::Static, 28},
            {u"BANKNAME"_s, u"은행명"_s, CellType::Static, 8},
            {u"ACCNO"_s, u"계좌No"_s, CellType::Static, 14},
            {u"DEPOSITOR"_s, u"예금주"_s, CellType::Static, 8},
            {u"USEYN"_s,
             u"운영"_s,
             CellType::Static,
             5,
             Align::Centre,
             {{{u"Y"_s, u"개점"_s}}, u"휴점"_s}},
            {u"REMARK"_s, u"안내문"_s, CellType::Static, 30},
            {u"BRANDCD"_s, u"브랜드코드"_s, CellType::Static, 0},
            {u"VANCD"_s, u"VANCD"_s, CellType::Static, 0},
            {u"VANSTRCD"_s, u"VANSTRCD"_s, CellType::Static, 0},
            {u"CASHBOX"_s, u"CASHBOX"_s, CellType::Static, 0},
        };
        for (int i = 0; i < 10; ++i) {
            c.push_back({setColumn(i), setColumn(i), CellType::Static, 0});
        }
        c.push_back({u"PRTPORT"_s, u"PORTNO"_s, CellType::Static, 0});
        c.push_back({u"PRTTYPE"_s, u"PORTTYPE"_s, CellType::Static, 0});
        c.push_back({u"PRTSPEED"_s, u"PORTSPEED"_s, CellType::Static, 0});
        c.push_back({u"CURRYYYY"_s, u"CURRYYYY"_s, CellType::Static, 0});
        c.push_back({u"STOREGB"_s, u"STOREGB"_s, CellType::Static, 0});
        return GridColumns(std::move(c));
    }();
    return table;
}

BAMAS105::BAMAS105() : Screen(u"BAMAS105"_s, u"매장코드 관리"_s) {}

void BAMAS105::sSelectQuery() {
    guarded(u"sSelectQuery"_s, [this] {
        const QString nolock = dialect().nolock();
        QString sql =
            u" SELECT CS.STORECD, GT.GRP_NAM, CB.BRANDNAME, CS.STORENAME, CS.STORENO, "_s +
            u"CS.STOREFULLNAME, "_s +
            u"        CS.STORECEO, CS.STORETEL, CS.STOREADDRES, CS.BANKNAME, CS.ACCNO, "_s +
            u"CS.DEPOSITOR, "_s +
            u"        CS.USEYN, CS.REMARK, CS.BRANDCD, CS.VANCD, CS.VANSTRCD, CS.CASHBOX, "_s +
            u"CS.SET01, CS.SET02, CS.SET03, CS.SET04, CS.SET05, CS.SET06, CS.SET07, CS.SET08, "_s +
            u"CS.SET09, CS.SET10, CS.PRTPORT, CS.PRTTYPE, CS.PRTSPEED, CS.CURRYYYY, "_s +
            u"CS.STOREGB "_s + u"   FROM C_STORE CS "_s + nolock +
            u"        LEFT OUTER JOIN C_BRAND CB"_s + nolock +
            u" ON CS.COMPANY = CB.COMPANY AND CS.BRANDCD = CB.BRANDCD, "_s +
            u"        C_GONGTONG GT "_s + nolock + u"  WHERE CS.COMPANY = "_s +
            quoted(session().gsCompany) + u"    AND GT.L_GRP_COD = '03'  "_s +
            u"    AND STOREGB = GT.S_GRP_COD "_s;
        if (cboGT03->currentIndex() > 0) {
            sql += u"      AND STOREGB = "_s + quoted(gfComboCode(cboGT03, m_gt03)) + u" "_s;
        }
        if (!txtName->text().isEmpty()) {
            sql +=
                u"      AND STORENAME LIKE "_s + quoted(u"%"_s + txtName->text() + u"%"_s) + u" "_s;
        }
        sql += u"  ORDER BY CS.USEYN DESC, STORECD "_s;
        RecordSet rs;
        if (gfbSqlSelectDB(sql, rs)) {
            showList(SP1, columns(), rs, false);
        }
    });
}

void BAMAS105::SP1_Click(int row) {
    if (row >= 1 && row <= SP1->dataRowCnt()) {
        m_form.loadRow(columns(), SP1, row);
    }
}

void BAMAS105::cmdSerch_Click() {
    if (const auto brand = showControl04(u"브랜드"_s, this)) {
        setBrand(brand->code, brand->name);
    }
}

void BAMAS105::setBrand(const QString& code, const QString& name) {
    m_brandCode = code;
    lblBrand->setText(name);
}

QString BAMAS105::updateStatement() const {
    // The receipt notice and the base year are the company's, although edited on one store.
    return m_form.updateStatement(whereCompany() + andEquals(u"STORECD"_s, lblCode->text())) +
           u";"_s + u"UPDATE  C_STORE SET "_s + u" REMARK = "_s + quoted(txtRemark->text()) +
           whereCompany() + u";"_s + u"UPDATE  C_STORE SET "_s + u" CURRYYYY = "_s +
           quoted(cboYYYY->currentText()) + whereCompany();
}

void BAMAS105::sSaveQuery() {
    if (!m_form.readyToSave()) {
        return;
    }
    guarded(u"sSaveQuery"_s, [this] {
        const bool isNew = lblCode->text().isEmpty();
        if (isNew &&
            gfTableCount(u"C_STORE"_s, u"  AND STORENAME = "_s + quoted(txtName->text())) >= 1) {
            gfsMessage(24);
            return;
        }
        // The highest code plus one in two digits; the hundredth store does not fit and its
        // null key ends in the trap.
        const QString sql =
            isNew ? m_form.insertStatement({{u"COMPANY"_s, quoted(session().gsCompany)},
                                            {u"STORECD"_s, nextCodeByMax(u"C_STORE"_s, u"STORECD"_s,
                                                                         2, whereCompany())}},
                                           {{u"POSID"_s, u"' '"_s}})
                  : updateStatement();
        if (!gfbSqlExecuteDB(sql)) {
            return;
        }
        if (!isNew) {
            m_companyYear = cboYYYY->currentText(); // the update spread it to every store
        }
        m_form.clear();
        sSelectQuery();
    });
}

void BAMAS105::cmdDelete_Click() {
    deleteRow(lblCode->text(), 95,
              u" DELETE FROM C_STORE "_s + whereCompany() +
                  andEquals(u"STORECD"_s, lblCode->text()));
}

void BAMAS105::m_Excel() {
    const ReportGrid report = reportGrid();
    gsExcelExport(report.title, report.lastCol, report.grid);
}

Screen::ReportGrid BAMAS105::reportGrid() const {
    return {SP1, u"매장 등록 현황"_s, QString(), columns().count()};
}
