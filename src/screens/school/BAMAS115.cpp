#include "screens/school/BAMAS115.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS115_SUB.h"
#include "screens/school/BAMAS115_Trans.h"
#include "screens/school/buttonface.h"
#include "shell/codechecklist.h"
#include "shell/codeoptionfield.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// A grid cell stays one line: the button text's line break travels as control character 28.
const QString kCellBreak = QString(QChar(28));
const QString kOnHold = u"보류"_s;
constexpr int kListRows = 30;
constexpr int kCommonRows = 25;
constexpr quint32 kHoldColour = gfRGB(192, 0, 0);

QString toCell(const QString& buttonText) {
    return QString(buttonText).replace(u"\r\n"_s, kCellBreak);
}

QString fromCell(const QString& cell) {
    return QString(cell).replace(kCellBreak, u"\r\n"_s);
}

} // namespace

// SP1 in the order of the list statement; the counts and the codes of class and kind ride along
// hidden, the counts turned into the two check columns.
const GridColumns& BAMAS115::columns() {
    static const GridColumns table{
        {u"SEASON"_s, u"시즌"_s, CellType::Static, 7, Align::Centre},
        {u"SUBMAIN"_s, u"품목"_s, CellType::Static, 7, Align::Centre},
        {u"UNITYPE"_s, u"품종"_s, CellType::Static, 7, Align::Centre},
        {u"DIVIDE"_s, u"성별"_s, CellType::Static, 7, Align::Centre},
        {u"CD"_s, u"코드"_s, CellType::Static, 5, Align::Centre},
        {u"UNIFORMNAME"_s, u"품명"_s, CellType::Static, 11},
        {u"UNIFORMBTNVIEW"_s, u"버튼표출"_s, CellType::Static, 11},
        {u"SIZETAB"_s, u"Size탭"_s, CellType::Static, 7, Align::Centre},
        {u"UNIFORMSPEC"_s, u"사양"_s, CellType::Static, 20},
        {u"MIXUNIFORM"_s,
         u"혼용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"1"_s, u"혼용"_s}}, QString()}},
        // A padding row under the list holds nothing and says nothing.
        {u"USEYN"_s,
         u"사용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"Y"_s, QString()}, {QString(), QString()}}, kOnHold}},
        {u"COMMON"_s, u"공통"_s, CellType::Check, 6, Align::Centre},
        {u"TRANS"_s, u"전용"_s, CellType::Check, 6, Align::Centre},
        {u"UNCNT"_s, u"UNCNT"_s, CellType::Static, 0},
        {u"TUCNT"_s, u"TUCNT"_s, CellType::Static, 0},
        {u"SUBMAINCD"_s, u"SUBMAINCD"_s, CellType::Static, 0},
        {u"UNITYPECD"_s, u"UNITYPECD"_s, CellType::Static, 0},
    };
    return table;
}

// SP2, the common items of a base item.
const GridColumns& BAMAS115::commonColumns() {
    static const GridColumns table{
        {u"CD"_s, u"코드"_s, CellType::Static, 10, Align::Centre},
        {u"UNIFORMNAME"_s, u"품명"_s, CellType::Static, 17},
        {u"UNIFORMBTNVIEW"_s, u"버튼표출"_s, CellType::Static, 11},
        {u"UNIFORMSPEC"_s, u"사양"_s, CellType::Static, 14},
        {u"USEYN"_s,
         u"사용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"Y"_s, u"사용"_s}, {QString(), QString()}}, kOnHold}},
    };
    return table;
}

BAMAS115::BAMAS115() : Screen(u"BAMAS115"_s, u"복종코드 관리"_s) {}

QString BAMAS115::listStatement() const {
    const Dialect& d = dialect();
    const QString nolock = d.nolock();
    const QString company = quoted(session().gsCompany);
    QString sql =
        u" SELECT DISTINCT GT22.GRP_NAM AS SEASON, GT28.GRP_NAM AS SUBMAIN, "_s +
        u"CGT01.GRP_NAM AS UNITYPE, GT23.GRP_NAM AS DIVIDE, "_s + itemListCode(d, u"UF"_s) +
        u" AS CD, "_s +
        u"        UF.UNIFORMNAME, UF.UNIFORMBTNVIEW, UF.SIZETAB, UF.UNIFORMSPEC, UF.MIXUNIFORM, "_s +
        u"UF.USEYN, "_s + u"        ISNULL(UN.CNT, '') AS UNCNT, ISNULL(TU.CNT, '') AS TUCNT, "_s +
        u"        GT22.DISP_SEQ, GT28.DISP_SEQ, CGT01.DISP_SEQ, GT23.DISP_SEQ, "_s +
        u"        UF.SUBMAIN AS SUBMAINCD, UF.UNITYPE AS UNITYPECD "_s +
        u"   FROM C_UNIFORM UF "_s + nolock + u"        LEFT OUTER JOIN C_GONGTONG GT22 "_s +
        nolock + u" ON GT22.L_GRP_COD = '22' AND GT22.S_GRP_COD = UF.SEASON "_s +
        u"        LEFT OUTER JOIN C_GONGTONG GT23 "_s + nolock +
        u" ON GT23.L_GRP_COD = '23' AND GT23.S_GRP_COD = UF.DIVIDE "_s +
        u"        LEFT OUTER JOIN C_GONGTONG GT26 "_s + nolock +
        u" ON GT26.L_GRP_COD = '26' AND GT26.S_GRP_COD = UF.SIZETAB "_s +
        u"        LEFT OUTER JOIN C_GONGTONG GT28 "_s + nolock +
        u" ON GT28.L_GRP_COD = '28' AND GT28.S_GRP_COD = UF.SUBMAIN "_s +
        u"        LEFT OUTER JOIN C_COMCODE CGT01 "_s + nolock + u" ON CGT01.COMPANY = "_s +
        company + u" AND CGT01.L_GRP_COD = '01' AND CGT01.S_GRP_COD = UF.UNITYPE "_s +
        // the common items of each base item
        u"        LEFT OUTER JOIN (SELECT COMPANY, SEASON, DIVIDE, UNIFORMSEQ, "_s +
        u"COUNT(UNIFORMCOMSEQ) AS CNT "_s + u"                           FROM C_UNIFORM "_s +
        nolock + u"                          WHERE ISNULL(UNIFORMCOMSEQ, '') <> '' "_s +
        u"                          GROUP BY COMPANY, SEASON, DIVIDE, UNIFORMSEQ) UN "_s +
        u"          ON UN.COMPANY = UF.COMPANY AND UN.SEASON = UF.SEASON "_s +
        u"AND UN.DIVIDE = UF.DIVIDE AND UN.UNIFORMSEQ = UF.UNIFORMSEQ "_s +
        // the exclusive items in use, matched on the code as stored
        u"        LEFT OUTER JOIN (SELECT COMPANY, UNIFORMCD, COUNT(TRANSSEQ) AS CNT "_s +
        u"                           FROM C_TRANSUNIFORM "_s + nolock +
        u"                          WHERE USEYN = 'Y' "_s +
        u"                          GROUP BY COMPANY, UNIFORMCD) TU "_s +
        u"          ON TU.COMPANY = UF.COMPANY AND TU.UNIFORMCD = "_s + itemJoinCode(d, u"UF"_s) +
        u" "_s + u"  WHERE UF.COMPANY = "_s + company + u"    AND UF.UNIFORMCOMSEQ = '' "_s;
    if (!m_chkGT22->list().isEmpty()) {
        // An all-season item belongs to every season.
        sql += u"    AND UF.SEASON IN ('A', "_s + m_chkGT22->quotedCodes() + u") "_s;
    }
    const QString sexes = m_chkGT23->list().trimmed();
    if (!sexes.isEmpty()) {
        // "B" sorts ahead of "G": a "G" past the third character means both were checked, and
        // both sexes is no filter. A mixed item is worn by both.
        const qsizetype g = sexes.indexOf(u'G') + 1;
        if (g > 0 && g <= 3) {
            sql += u"    AND (UF.DIVIDE IN ('G', 'U') OR UF.MIXUNIFORM = '1') "_s;
        } else if (g == 0 && sexes.contains(u'B')) {
            sql += u"    AND (UF.DIVIDE IN ('B', 'U') OR UF.MIXUNIFORM = '1') "_s;
        }
    }
    if (!m_chkGT28->list().isEmpty()) {
        sql += u"    AND UF.SUBMAIN IN ("_s + m_chkGT28->quotedCodes() + u") "_s;
    }
    if (!m_chkCGT01->list().isEmpty()) {
        sql += u"    AND UF.UNITYPE IN ("_s + m_chkCGT01->quotedCodes() + u") "_s;
    }
    sql += u"  ORDER BY GT22.DISP_SEQ , GT28.DISP_SEQ , CGT01.DISP_SEQ , GT23.DISP_SEQ "_s;
    return sql;
}

void BAMAS115::sSelectQuery() {
    guarded(u"sSelectQuery"_s, [this] {
        WaitCursor wait;
        RecordSet rs;
        qint64 count = 0;
        if (!gfbSqlSelectDB(listStatement(), rs, count)) {
            return;
        }
        const GridColumns& c = columns();
        SP1->setRedraw(false);
        c.fill(SP1, rs);
        for (int row = 1; row <= int(count); ++row) {
            c.setValue(SP1, row, u"UNIFORMBTNVIEW"_s,
                       toCell(c.value(SP1, row, u"UNIFORMBTNVIEW"_s)));
            // A count the engine could not match reads empty on one engine and 0 on the other.
            c.setValue(SP1, row, u"COMMON"_s,
                       c.value(SP1, row, u"UNCNT"_s).toInt() != 0 ? u"1"_s : u"0"_s);
            c.setValue(SP1, row, u"TRANS"_s,
                       c.value(SP1, row, u"TUCNT"_s).toInt() != 0 ? u"1"_s : u"0"_s);
            if (c.value(SP1, row, u"USEYN"_s) != u"Y"_s) {
                gsSpreadRowForeColor(SP1, row, kHoldColour);
            }
        }
        if (SP1->maxRows() < kListRows) {
            SP1->setMaxRows(kListRows);
        }
        SP1->setRedraw(true);
        if (count > 0) {
            SP2->setMaxRows(kCommonRows);
        }
        showFound(count);
    });
}

void BAMAS115::sSelectQuery2() {
    guarded(u"sSelectQuery2"_s, [this] {
        const QString sql = u" SELECT "_s + itemFullCode(dialect()) + u" AS CD, "_s +
                            u"UNIFORMNAME, UNIFORMBTNVIEW, UNIFORMSPEC, USEYN "_s +
                            u"   FROM C_UNIFORM "_s + dialect().nolock() + keyWhere() +
                            u"    AND UNIFORMCOMSEQ <> '' "_s +
                            u"  ORDER BY RTRIM(SEASON), RTRIM(DIVIDE), RTRIM(UNIFORMSEQ), "_s +
                            u"RTRIM(UNIFORMCOMSEQ)"_s;
        RecordSet rs;
        if (!gfbSqlSelectDB(sql, rs)) {
            return;
        }
        commonColumns().fill(SP2, rs);
        if (SP2->maxRows() < kCommonRows) {
            SP2->setMaxRows(kCommonRows);
        }
    });
}

void BAMAS115::SP1_Click(int row) {
    const GridColumns& c = columns();
    if (row < 1 || row > SP1->dataRowCnt() || c.value(SP1, row, u"CD"_s).isEmpty()) {
        return;
    }
    sKeyEnable(true);
    const QString code = c.value(SP1, row, u"CD"_s).trimmed();
    lblCode->setText(code.left(2));
    txtCode->setText(code.mid(2, 2));
    txtName->setText(c.value(SP1, row, u"UNIFORMNAME"_s));
    txtButName->setValue(fromCell(c.value(SP1, row, u"UNIFORMBTNVIEW"_s)));
    cmdButton->setText(txtButName->toPlainText());
    txtSpec->setText(c.value(SP1, row, u"UNIFORMSPEC"_s));
    // By code, never by name: two codes of one name would send the save to the wrong key.
    m_gt22->setCode(code.left(1));
    m_gt23->setCode(code.mid(1, 1));
    m_gt26->setCode(c.value(SP1, row, u"SIZETAB"_s));
    m_gt28->setCode(c.value(SP1, row, u"SUBMAINCD"_s));
    m_cgt01->setCode(c.value(SP1, row, u"UNITYPECD"_s));
    chkMix->setChecked(c.value(SP1, row, u"MIXUNIFORM"_s) == u"1"_s);
    m_form.binding(u"USEYN"_s)->setValue(c.value(SP1, row, u"USEYN"_s) == u"Y"_s ? u"Y"_s : u"N"_s);
    sKeyEnable(lblCode->text().trimmed().isEmpty());
}

void BAMAS115::SP1_DblClick(int row, int col) {
    const GridColumns& c = columns();
    if (row < 1 || row > SP1->dataRowCnt() || c.value(SP1, row, u"CD"_s).isEmpty()) {
        return;
    }
    const QString code = c.value(SP1, row, u"CD"_s).trimmed();
    if (col == c.column(u"TRANS"_s)) {
        const QString mixOrSex = c.value(SP1, row, u"MIXUNIFORM"_s) == u"1"_s
                                     ? gfSpreadText(SP1, row, c.column(u"MIXUNIFORM"_s))
                                     : c.value(SP1, row, u"DIVIDE"_s);
        const QString caption = QStringList{c.value(SP1, row, u"SEASON"_s), mixOrSex, code,
                                            c.value(SP1, row, u"UNIFORMNAME"_s)}
                                    .join(u'/');
        BAMAS115_Trans exclusive(code, caption, this);
        exclusive.exec();
    } else if (col == c.column(u"COMMON"_s)) {
        BaseItem base;
        base.code = code;
        base.name = c.value(SP1, row, u"UNIFORMNAME"_s);
        base.season = code.left(1);
        base.divide = code.mid(1, 1);
        base.sequence = code.mid(2, 2);
        base.sizeTab = c.value(SP1, row, u"SIZETAB"_s).trimmed();
        base.subMain = c.value(SP1, row, u"SUBMAINCD"_s).trimmed();
        base.uniType = c.value(SP1, row, u"UNITYPECD"_s).trimmed();
        base.mix = c.value(SP1, row, u"MIXUNIFORM"_s) == u"1"_s;
        BAMAS115_SUB common(base, this);
        common.exec();
    }
}

void BAMAS115::SP2_DblClick(int row, int) {
    if (row >= 1 && commonColumns().value(SP2, row, u"USEYN"_s) == u"Y"_s) {
        BAMAS115_Trans exclusive(QString(), QString(), this);
        exclusive.exec();
    }
}

void BAMAS115::sKeyEnable(bool on) {
    txtCode->setEnabled(on);
    m_gt22->setEditable(on);
    m_gt23->setEditable(on);
}

void BAMAS115::keyChanged() {
    lblCode->setText(m_gt22->code() + m_gt23->code());
}

QString BAMAS115::keyWhere() const {
    return whereCompany() + andEquals(u"SEASON"_s, m_gt22->code()) +
           andEquals(u"DIVIDE"_s, m_gt23->code()) + andEquals(u"UNIFORMSEQ"_s, txtCode->text());
}

QString BAMAS115::saveStatement(bool isNew) {
    if (isNew) {
        return m_form.insertStatement({{u"COMPANY"_s, quoted(session().gsCompany)},
                                       {u"SEASON"_s, quoted(m_gt22->code())},
                                       {u"DIVIDE"_s, quoted(m_gt23->code())},
                                       {u"UNIFORMSEQ"_s, quoted(txtCode->text())},
                                       {u"UNIFORMCOMSEQ"_s, u"''"_s}});
    }
    // The base row, then its common items: on hold they go on hold with it; in use they take
    // its classification. Back in use, a common item stays as it was.
    QString sql = m_form.updateStatement(keyWhere() + u"    AND UNIFORMCOMSEQ = '' "_s) + u"; "_s;
    const QString table = m_form.table();
    if (m_form.binding(u"USEYN"_s)->value() == u"N"_s) {
        sql += sqlUpdate(table, Assignments{{u"USEYN"_s, u"'N'"_s}} + auditOnUpdate(table),
                         keyWhere());
    } else {
        Assignments pushed;
        for (const char* column : {"SIZETAB", "SUBMAIN", "UNITYPE", "MIXUNIFORM"}) {
            const QString name = QString::fromLatin1(column);
            pushed.append({name, quoted(m_form.binding(name)->value())});
        }
        sql += sqlUpdate(table, pushed + auditOnUpdate(table), keyWhere());
    }
    return sql + u"; "_s;
}

void BAMAS115::sSaveQuery() {
    WaitCursor wait;
    if (!m_form.readyToSave()) {
        return;
    }
    guarded(
        u"sSaveQuery"_s,
        [this] {
            // Common rows count too: their sequence is taken.
            const int existing =
                gfTableCount(u"C_UNIFORM"_s, andEquals(u"SEASON"_s, m_gt22->code()) +
                                                 andEquals(u"DIVIDE"_s, m_gt23->code()) +
                                                 andEquals(u"UNIFORMSEQ"_s, txtCode->text()));
            const bool isNew = existing == 0;
            if (isNew) {
                if (gfTableCount(u"C_UNIFORM"_s,
                                 andEquals(u"SEASON"_s, m_gt22->code()) +
                                     andEquals(u"DIVIDE"_s, m_gt23->code()) +
                                     andEquals(u"UNIFORMNAME"_s, txtName->text())) >= 1) {
                    gfsMessage(24);
                    return;
                }
            } else if (txtCode->isEnabled()) {
                gfsMessage(8013);
                return;
            } else if (gfsMessage(12) != u"OK"_s) {
                return;
            }
            Transaction tx;
            if (!tx.ok() || !gfbSqlExecuteDB(saveStatement(isNew)) || !tx.commit()) {
                return;
            }
            sClearInput(false);
            sSelectQuery();
        },
        true);
}

void BAMAS115::cmdDelUnif_Click() {
    guarded(
        u"cmdDelUnif"_s,
        [this] {
            // No sequence, no item: nothing to guard and nothing to ask about.
            if (txtCode->text().trimmed().isEmpty()) {
                return;
            }
            // A sale of the base item or of any of its common items keeps it.
            const QString base = lblCode->text().trimmed() + txtCode->text().trimmed();
            if (gfTableCount(u"S_ORDERDETAIL"_s, u"    AND SUBSTRING(UNIFORMCD, 1, 4) = "_s +
                                                     quoted(base) + u" "_s) > 0) {
                gfsMessage(8080);
                return;
            }
            if (gfsMessage(14) != u"OK"_s) {
                return;
            }
            // The base row and every common row; schools, prices, stock and exclusive items
            // are left as they are.
            Transaction tx;
            if (!tx.ok() ||
                !gfbSqlExecuteDB(u" DELETE FROM C_UNIFORM "_s + whereCompany() +
                                 andEquals(u"SEASON"_s, m_gt22->box()->text()) +
                                 andEquals(u"DIVIDE"_s, m_gt23->box()->text()) +
                                 andEquals(u"UNIFORMSEQ"_s, txtCode->text())) ||
                !tx.commit()) {
                return;
            }
            sClearInput(false);
            sSelectQuery();
        },
        true);
}

void BAMAS115::sClearInput(bool fromClear) {
    m_form.clear();
    lblCode->clear();
    cmdButton->setText(QString());
    for (CodeOptionField* field : {m_gt22, m_gt23, m_gt26, m_gt28, m_cgt01}) {
        field->selectElement(1);
    }
    if (!fromClear) {
        // The filters' click logic: their lists rebuilt from what is checked, then one search.
        for (CodeCheckList* filter : {m_chkGT22, m_chkGT23, m_chkGT28, m_chkCGT01}) {
            const QSignalBlocker quiet(filter);
            filter->rebuild();
        }
        sSelectQuery();
    }
    sKeyEnable(true);
    chkMix->setChecked(false);
    SP2->setMaxRows(0);
    SP2->setMaxRows(kCommonRows);
}
