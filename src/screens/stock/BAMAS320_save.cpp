// BAMAS320 tab 0's save: the checks, then every line that sends something, as one unit.
#include "data/dbroutines.h"
#include "data/messages.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS320.h"
#include "screens/stock/BAMAS320_grid.h"
#include "screens/stock/stockentry.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>

using namespace Qt::StringLiterals;

QString BAMAS320::transferKind() const {
    const QString sender = m_outStore[0].name(cboOutStore[0]->currentIndex());
    const QString receiver = m_inStore[0].name(cboInStore[0]->currentIndex());
    return sender == receiver ? u"M"_s : u"T"_s;
}

QString BAMAS320::transferInsertSql(int line) const {
    const LineGrid& g = *m_entry;
    const QString store = gfComboCode(cboOutStore[0], m_outStore[0]);
    const QString receiver = gfComboCode(cboInStore[0], m_inStore[0]);
    const QString day = ymdOf(dtpStart[0]);
    // The receiver's name, address and telephone as they are today, through the store functions.
    const auto storeData = [&receiver](const char* function) -> QString {
        return u"DBO."_s + QString::fromLatin1(function) + u"("_s + quotedCompany() + u", "_s +
               quoted(receiver) + u")"_s;
    };
    Assignments a{
        {u"COMPANY"_s, quotedCompany()},
        {u"STORECD"_s, quoted(store)},
        {u"OUTBOUNDDT"_s, quoted(day)},
        {u"OUTBOUNDSEQ"_s,
         nextSequence(u"T_OUTBOUND"_s, u"OUTBOUNDSEQ"_s,
                      u" WHERE COMPANY = "_s + quotedCompany() + u" AND STORECD = "_s +
                          quoted(store) + u" AND OUTBOUNDDT = "_s + quoted(day))},
        {u"SCHOOLCD"_s, quoted(g.common(line, TrnSchoolCd))},
        {u"SUDIVIDE"_s, quoted(g.common(line, TrnSudivide))},
        {u"UNIFORMCD"_s, quoted(g.common(line, TrnUniformCd))},
        {u"OUTYYYY"_s, quoted(entryYear(cboYY[0]))},
    };
    for (int p = 1; p <= kSizePositions; ++p) {
        a.append({u"O%1"_s.arg(p, 2, 10, QLatin1Char('0')),
                  QString::number(g.quantity(line, LineRow::Outgoing, p))});
    }
    a.append({u"INBOUNDSTORE"_s, quoted(receiver)});
    a.append({u"OUTBOUNDGB"_s, quoted(transferKind())});
    a.append({u"INSTOREFULLNAME"_s, storeData("FN_STOREFULLNAME")});
    a.append({u"INSTOREADDRES"_s, storeData("FN_STOREADDRES")});
    a.append({u"INSTORETEL"_s, storeData("FN_STORETEL")});
    a.append(auditOnInsert(u"T_OUTBOUND"_s));
    return sqlInsert(u"T_OUTBOUND"_s, a);
}

void BAMAS320::cmdSave2_Click() {
    finishEditing();
    LineGrid& g = *m_entry;
    // A transfer may be dated ahead, never back.
    if (ymdOf(dtpStart[0]) < QDate::currentDate().toString(u"yyyyMMdd"_s)) {
        gfsMessage(8062);
        dtpStart[0]->setDate(QDate::currentDate());
        return;
    }
    if (entryYear(cboYY[0]).isEmpty()) {
        gfsMessage(8064);
        return;
    }
    if (cboInStore[0]->currentIndex() < 1) {
        gfsMessage(8066);
        return;
    }
    // Sending more than there is, or taking back with a negative, is the user's call; text that
    // is no number is not.
    if (const auto bad = g.findBadQuantity(true)) {
        gfsMsgBox(u"%1 %2의 출고량 \"%3\"은(는) 받을 수 없습니다.\r\n정수로 입력하시오."_s.arg(
            g.common(bad->line, TrnFirstName), g.common(bad->line, TrnSecondName), bad->text));
        SP3->setActiveCell(bad->row, TrnFirstSize + bad->position - 1);
        return;
    }
    g.recompute();
    bool saved = false;
    guarded(
        u"sSaveQuery"_s,
        [&] {
            Transaction unit;
            if (!unit.ok()) {
                return;
            }
            for (int line = 0; line < g.lineCount(); ++line) {
                if (g.total(line, LineRow::Outgoing) == 0) {
                    continue;
                }
                const QString sql = transferInsertSql(line);
                if (!gfbSqlExecuteDB(sql)) {
                    // The unit rolls back and the grid keeps what was typed; the trap logs
                    // this command beside the statement routine's own row.
                    return;
                }
            }
            saved = unit.commit();
        },
        true);
    if (saved) {
        m_Search();
    }
}
