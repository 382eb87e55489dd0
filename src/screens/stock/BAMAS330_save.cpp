// BAMAS330 tab 0's writes: registration as receipts, correction and "DATA삭제" as outbound
// rows, all of kind 'D' and each save one unit.
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS330.h"
#include "screens/stock/BAMAS330_entry.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString sizeColumn(const QString& prefix, int position) {
    return prefix + u"%1"_s.arg(position, 2, 10, QLatin1Char('0'));
}

// A movement row of kind 'D' of the store on the day: receipts into T_INBOUND, corrections and
// clearings out of T_OUTBOUND. A negative outbound quantity raises stock.
QString kindDInsert(bool inbound, const QString& store, const QString& day, const QString& school,
                    const QString& sex, const QString& item, const QString& year,
                    const QString& sizeTab, const std::array<qint64, kSizePositions>& quantities) {
    const QString table = inbound ? u"T_INBOUND"_s : u"T_OUTBOUND"_s;
    const QString date = inbound ? u"INBOUNDDT"_s : u"OUTBOUNDDT"_s;
    const QString seq = inbound ? u"INBOUNDSEQ"_s : u"OUTBOUNDSEQ"_s;
    Assignments a{
        {u"COMPANY"_s, quotedCompany()},
        {u"STORECD"_s, quoted(store)},
        {date, quoted(day)},
        {seq, nextSequence(table, seq,
                           u" WHERE COMPANY = "_s + quotedCompany() + u" AND STORECD = "_s +
                               quoted(store) + u" AND "_s + date + u" = "_s + quoted(day))},
        {u"SCHOOLCD"_s, quoted(school)},
        {u"SUDIVIDE"_s, quoted(sex)},
        {u"UNIFORMCD"_s, quoted(item)},
        {inbound ? u"INYYYY"_s : u"OUTYYYY"_s, quoted(year)},
    };
    if (inbound) {
        a.append({u"SIZETAB"_s, quoted(sizeTab)});
    }
    for (int p = 1; p <= kSizePositions; ++p) {
        a.append({sizeColumn(inbound ? u"I"_s : u"O"_s, p), QString::number(quantities[p - 1])});
    }
    if (inbound) {
        a.append({u"ORDERDT"_s, u"''"_s});
        a.append({u"OUTBOUNDSTORE"_s, u"''"_s});
        a.append({u"INBOUNDGB"_s, u"'D'"_s});
    } else {
        a.append({u"INBOUNDSTORE"_s, u"''"_s});
        a.append({u"OUTBOUNDGB"_s, u"'D'"_s});
    }
    a.append(auditOnInsert(table));
    return sqlInsert(table, a);
}

} // namespace

QString BAMAS330::entryInsertSql(int line) const {
    const LineGrid& g = entryLines();
    const bool correcting = mode() == kCorrectMode;
    std::array<qint64, kSizePositions> quantities{};
    for (int p = 1; p <= kSizePositions; ++p) {
        if (!correcting) {
            quantities[p - 1] = g.quantity(line, LineRow::Quantity, p);
        } else if (!g.cellText(line, LineRow::Correction, p).isEmpty()) {
            // What is on file less what was counted goes out; a size left empty stays as it is.
            quantities[p - 1] =
                g.quantity(line, LineRow::Stock, p) - g.quantity(line, LineRow::Correction, p);
        }
    }
    return kindDInsert(!correcting, gfComboCode(cboStore0, m_store0),
                       QString(txtRegDT->text()).remove(u'-'), g.common(line, SenSchoolCd),
                       g.common(line, SenSex) == u"여"_s ? u"2"_s : u"1"_s,
                       g.common(line, SenUniformCd), g.common(line, SenModelYear),
                       g.common(line, SenSizeTab), quantities);
}

void BAMAS330::cmdSave2_Click() {
    finishEditing();
    const QString day = QString(txtRegDT->text()).remove(u'-').trimmed();
    if (day.isEmpty()) {
        gfsMessage(22);
        txtRegDT->clear();
        txtRegDT->setFocus();
        return;
    }
    if (day > QDate::currentDate().toString(u"yyyyMMdd"_s)) {
        gfsMessage(8083);
        txtRegDT->clear();
        txtRegDT->setFocus();
        return;
    }
    if (cboStore0->currentIndex() < 1) {
        gfsMessage(8066);
        return;
    }
    LineGrid& g = entryLines();
    if (const auto bad = g.findBadQuantity(true)) {
        gfsMsgBox(u"%1 %2의 수량 \"%3\"은(는) 받을 수 없습니다.\r\n정수로 입력하시오."_s.arg(
            g.common(bad->line, SenSchool), g.common(bad->line, SenUniform), bad->text));
        SP3->setActiveCell(bad->row, SenFirstSize + bad->position - 1);
        return;
    }
    g.recompute();
    const bool correcting = mode() == kCorrectMode;
    bool saved = false;
    guarded(
        u"sSaveQuery"_s,
        [&] {
            Transaction unit;
            if (!unit.ok()) {
                return;
            }
            for (int line = 0; line < g.lineCount(); ++line) {
                if (correcting ? g.isBlank(line, LineRow::Correction)
                               : g.total(line, LineRow::Quantity) <= 0) {
                    continue;
                }
                const QString sql = entryInsertSql(line);
                if (!gfbSqlExecuteDB(sql)) {
                    return; // nothing stays; the grid keeps what was typed
                }
            }
            saved = unit.commit();
        },
        true);
    if (!saved) {
        return;
    }
    if (correcting) {
        m_Search();
    }
    cmdSave2->setEnabled(false);
}

void BAMAS330::cmdDelete_Click() {
    if (cboChack->currentIndex() < 1 || gfsMessage(8084) != u"OK"_s) {
        return;
    }
    ViewSch_PartDelete();
    m_Search();
}

// Every line of the scope with stock (or with stock below zero) gets an outbound row that takes
// it to zero: a clearing adds rows, it deletes none.
void BAMAS330::ViewSch_PartDelete() {
    const bool negativesOnly = cboChack->currentIndex() == 2;
    const QString day = QString(txtRegDT->text()).remove(u'-').trimmed();
    guarded(
        u"ViewSch_PartDelete"_s,
        [&] {
            RecordSet rs;
            if (!gfbSqlSelectDB(
                    stockEntrySql(entryFilter(), entrySchool(), StockEntryMode::Clear, dialect()),
                    rs)) {
                return;
            }
            const int first = rs.fieldIndex(u"C01QTY"_s);
            Transaction unit;
            if (!unit.ok()) {
                return;
            }
            for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
                std::array<qint64, kSizePositions> quantities{};
                bool any = false;
                for (int p = 0; p < kSizePositions; ++p) {
                    const qint64 stock = rs.value(first + p).toLongLong();
                    if (negativesOnly ? stock < 0 : stock != 0) {
                        quantities[p] = stock;
                        any = true;
                    }
                }
                if (!any) {
                    continue;
                }
                const QString sql = kindDInsert(
                    false, gfComboCode(cboStore0, m_store0), day, rs.field(u"SCHOOLCD"_s).trimmed(),
                    rs.field(u"SUDIVIDE"_s).trimmed(), rs.field(u"CD"_s).trimmed(),
                    rs.field(u"BSYYYY"_s).trimmed(), QString(), quantities);
                if (!gfbSqlExecuteDB(sql)) {
                    return;
                }
            }
            unit.commit();
        },
        true);
}
