// BAMAS315 tab 0's save: the checks, then every booked line in one transaction.
#include "data/dbroutines.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/inputhelpers.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS315.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// The columns of SP3 that the save reads (the grid's table is in BAMAS315.cpp).
enum EntryCol {
    EntSchool = 1,
    EntUniform,
    EntYear,
    EntOrderDt,
    EntFirstSize = 6,
    EntFinish = EntFirstSize + kSizePositions + 1,
    EntOrderSeq,
    EntOrderStore,
    EntSchoolCd,
    EntSudivide,
    EntUniformCd,
    EntSizeTab,
};

// "24-03-15" back to "20240315".
QString fullDate(const QString& shown) {
    return u"20"_s + QString(shown).remove(u'-');
}

} // namespace

QString BAMAS315::receiptInsertSql(int line, bool orderLine) const {
    const LineGrid& g = lines();
    const QString store = m_band->storeCode();
    const QString day = ymdOf(dtpStart);
    const QString supplier = g.common(line, EntOrderStore);
    Assignments a{
        {u"COMPANY"_s, quotedCompany()},
        {u"STORECD"_s, quoted(store)},
        {u"INBOUNDDT"_s, quoted(day)},
        {u"INBOUNDSEQ"_s,
         nextSequence(u"T_INBOUND"_s, u"INBOUNDSEQ"_s,
                      u" WHERE COMPANY = "_s + quotedCompany() + u" AND STORECD = "_s +
                          quoted(store) + u" AND INBOUNDDT = "_s + quoted(day))},
        {u"SCHOOLCD"_s, quoted(g.common(line, EntSchoolCd))},
        {u"SUDIVIDE"_s, quoted(g.common(line, EntSudivide))},
        {u"UNIFORMCD"_s, quoted(g.common(line, EntUniformCd))},
        {u"SIZETAB"_s, quoted(g.common(line, EntSizeTab))},
        {u"INYYYY"_s, quoted(g.common(line, EntYear))},
    };
    for (int p = 1; p <= kSizePositions; ++p) {
        a.append({u"I%1"_s.arg(p, 2, 10, QLatin1Char('0')),
                  QString::number(g.quantity(line, LineRow::Received, p))});
    }
    a.append({u"ORDERDT"_s, quoted(fullDate(g.common(line, EntOrderDt)))});
    a.append({u"OUTBOUNDSTORE"_s,
              quoted(supplier.isEmpty() ? gsTextCut(txtFullName).trimmed() : supplier)});
    a.append({u"INBOUNDGB"_s, orderLine ? u"'A'"_s : u"'B'"_s});
    a.append({u"ORDERSEQ"_s, orderLine ? numeric(g.common(line, EntOrderSeq)) : u"0"_s});
    a.append(auditOnInsert(u"T_INBOUND"_s));
    return sqlInsert(u"T_INBOUND"_s, a);
}

void BAMAS315::cmdSave2_Click() {
    finishEditing();
    LineGrid& g = lines();
    if (refuseFutureDate(dtpStart)) {
        return;
    }
    const bool orderLines = ordered();
    const bool noSupplier = txtFullName->text().trimmed().isEmpty();
    for (int line = 0; line < g.lineCount(); ++line) {
        if (g.common(line, EntOrderStore).isEmpty() && noSupplier) {
            gfsMessage(8063);
            txtFullName->setFocus();
            return;
        }
        if (orderLines && !g.isBlank(line, LineRow::Received) &&
            g.total(line, LineRow::Balance) < 0 &&
            gfSpreadCellText(SP3, g.row(line, LineRow::Received), EntFinish).isEmpty()) {
            gfsMessage(8065);
            return;
        }
    }
    if (const auto bad = g.findBadQuantity(false)) {
        gfsMsgBox(
            u"%1 %2의 입고량 \"%3\"은(는) 받을 수 없습니다.\r\n0 이상의 정수로 입력하시오."_s.arg(
                g.common(bad->line, EntSchool), g.common(bad->line, EntUniform), bad->text));
        SP3->setActiveCell(bad->row, EntFirstSize + bad->position - 1);
        return;
    }
    // Either every line is booked or none.
    command(
        u"sSaveQuery"_s,
        [&] {
            Transaction unit;
            if (!unit.ok()) {
                return;
            }
            for (int line = 0; line < g.lineCount(); ++line) {
                QString sql;
                if (orderLines) {
                    // The one gate: a line is booked only with a choice for its remainder.
                    const QString finish =
                        gfSpreadCellText(SP3, g.row(line, LineRow::Received), EntFinish);
                    if (finish.isEmpty()) {
                        continue;
                    }
                    sql = u" UPDATE T_ORDER SET FINISHGB = "_s +
                          (finish == u"재입고예정"_s ? u"'I'"_s : u"'E'"_s) +
                          u", UPDDT = GETDATE(), UPDUSER = "_s + quoted(session().gsUserId) +
                          u"  WHERE COMPANY = "_s + quotedCompany() + u" AND STORECD = "_s +
                          quoted(m_band->storeCode()) + u" AND ORDERDT = "_s +
                          quoted(fullDate(g.common(line, EntOrderDt))) + u" AND ORDERSEQ = "_s +
                          numeric(g.common(line, EntOrderSeq)) + u" ; "_s +
                          receiptInsertSql(line, true);
                } else {
                    sql = receiptInsertSql(line, false);
                }
                if (!gfbSqlExecuteDB(sql)) {
                    return; // the unit rolls back
                }
            }
            if (!unit.commit()) {
                return;
            }
            m_Search();
        },
        true);
}
