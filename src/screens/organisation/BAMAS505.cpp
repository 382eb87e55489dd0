#include "screens/organisation/BAMAS505.h"

#include "data/dbroutines.h"
#include "data/messages.h"
#include "data/schema/schema.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QStringList kCodes123{u"1"_s, u"2"_s, u"3"_s};

// A code of the company's school numbering: "001" to "999".
bool isSchoolCode(const QString& code) {
    if (code.size() != 3) {
        return false;
    }
    for (const QChar c : code) {
        if (!c.isDigit() || c.unicode() > '9') {
            return false;
        }
    }
    return code != u"000"_s;
}

} // namespace

// The sheet's columns in the order it is pasted; the last one is the upload's findings.
const GridColumns& BAMAS505::columns() {
    static const GridColumns table{
        {u"SCHOOLCD"_s, u"코드"_s, CellType::Edit, 6, Align::Centre},
        {u"SCHOOLLEVEL"_s, u"등급"_s, CellType::Edit, 6, Align::Centre},
        {u"SCHOOLFULLNAME"_s, u"학교명"_s, CellType::Edit, 22},
        {u"SCHOOLNAME"_s, u"단축명"_s, CellType::Edit, 12},
        {u"SCHOOLDIVIDE"_s, u"구분"_s, CellType::Edit, 6, Align::Centre},
        {u"REMARK"_s, u"비고"_s, CellType::Edit, 34},
    };
    return table;
}

BAMAS505::BAMAS505() : Screen(u"BAMAS505"_s, u"학교 업로드"_s) {}

void BAMAS505::setupScreen() {
    SP1 = grid(u"SP1"_s, columns(), 3, true, false);
    SP1->setMaxRows(kEmptyRows);
    // A chain's whole school list is pasted at once: the sheet grows to take every row.
    SP1->setPasteAddsRows(true);

    auto* help = new QGroupBox(u"입력 방법"_s, this);
    help->setObjectName(u"fraHelp"_s);
    auto* lines = new QVBoxLayout(help);
    for (const QString& line :
         {u"코드/등급/구분은 아래와 같이"_s, u"숫자로 입력 후 저장버튼 클릭"_s, QString(),
          u"▷코드   001부터 999까지"_s, QString(), u"▷등급   중등 --> 1"_s,
          u"          고등 --> 2"_s, u"          Kids --> 3"_s, QString(), u"▷구분   남학 --> 1"_s,
          u"          여학 --> 2"_s, u"          공학 --> 3"_s}) {
        auto* label = new QLabel(line, help);
        label->setTextFormat(Qt::PlainText);
        lines->addWidget(label);
    }
    lines->addStretch(1);

    auto* cmdUpload = new QPushButton(u"업로드"_s, this);
    cmdUpload->setObjectName(u"cmdUpload"_s);
    connect(cmdUpload, &QPushButton::clicked, this, &BAMAS505::cmdUpload_Click);
    auto* cmdViewSale2 = new QPushButton(u"초기화"_s, this);
    cmdViewSale2->setObjectName(u"cmdViewSale2"_s);
    connect(cmdViewSale2, &QPushButton::clicked, this, &BAMAS505::cmdViewSale2_Click);
    auto* cmdExit = new QPushButton(u"닫기"_s, this);
    cmdExit->setObjectName(u"cmdExit"_s);
    connect(cmdExit, &QPushButton::clicked, this, [this] { m_Close(); });

    auto* side = new QVBoxLayout;
    side->addWidget(help, 1);
    side->addWidget(cmdUpload);
    side->addWidget(cmdViewSale2);
    side->addWidget(cmdExit);
    auto* row = new QHBoxLayout;
    row->addWidget(SP1, 1);
    row->addLayout(side);
    contentLayout()->addLayout(row, 1);
}

QString BAMAS505::formatCode(const QString& text) {
    const QString t = text.trimmed();
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v) || std::abs(v) > 1e15) {
        return t;
    }
    const qint64 n = qRound64(v);
    return (n < 0 ? u"-"_s : QString()) + u"%1"_s.arg(qAbs(n), 3, 10, QLatin1Char('0'));
}

bool BAMAS505::checkRow(int row) {
    const GridColumns& c = columns();
    const auto cell = [&](const char* field) {
        return c.value(SP1, row, QString::fromLatin1(field)).trimmed();
    };
    const auto setCell = [&](const char* field, const QString& text) {
        gsSpreadSetText(SP1, row, c.column(QString::fromLatin1(field)), text);
    };
    const QString code = formatCode(cell("SCHOOLCD"));
    setCell("SCHOOLCD", code);
    const QString fullName = cell("SCHOOLFULLNAME");
    const QString name = cell("SCHOOLNAME");

    QString findings = c.value(SP1, row, u"REMARK"_s);
    int found = 0;
    if (!gfbTableCount(u"C_SCHOOL"_s, u"   AND SCHOOLCD = "_s + quoted(code), found)) {
        setCell("REMARK", u"코드값 읽기 오류"_s);
        return false;
    }
    if (found > 0) {
        findings += u" 코드값 중복 오류"_s;
    } else if (!isSchoolCode(code)) {
        // The numbering of the school screen reads the greatest code as a number.
        findings += u" 코드값 오류"_s;
    }
    if (!kCodes123.contains(cell("SCHOOLLEVEL"))) {
        findings += u" 등급 오류"_s;
    }
    if (!gfbTableCount(u"C_SCHOOL"_s, u"   AND SCHOOLFULLNAME = "_s + quoted(fullName), found)) {
        setCell("REMARK", u"학교명 읽기 오류"_s);
        return false;
    }
    if (found > 0) {
        findings += u" 학교명 중복 오류"_s;
    }
    if (!gfbTableCount(u"C_SCHOOL"_s, u"   AND SCHOOLNAME = "_s + quoted(name), found)) {
        setCell("REMARK", u"단축명 읽기 오류"_s);
        return false;
    }
    if (found > 0) {
        findings += u" 학교명 중복 오류"_s; // the same words for the short name, on purpose
    }
    if (!kCodes123.contains(cell("SCHOOLDIVIDE"))) {
        findings += u" 구분 오류"_s;
    }
    // A name longer than its column is the sheet's to mend: cut here it would be stored, and
    // checked for duplicates, under a name the sheet does not have.
    if (gfByteLen(fullName) > textColumnBytes(u"C_SCHOOL"_s, u"SCHOOLFULLNAME"_s)) {
        findings += u" 학교명 길이 오류"_s;
    }
    if (gfByteLen(name) > textColumnBytes(u"C_SCHOOL"_s, u"SCHOOLNAME"_s)) {
        findings += u" 단축명 길이 오류"_s;
    }
    setCell("REMARK", findings);
    return true;
}

QString BAMAS505::insertStatement(int row) const {
    const GridColumns& c = columns();
    const auto cell = [&](const char* field) {
        return quoted(c.value(SP1, row, QString::fromLatin1(field)).trimmed());
    };
    return sqlInsert(u"C_SCHOOL"_s, Assignments{{u"COMPANY"_s, quoted(session().gsCompany)},
                                                {u"SCHOOLCD"_s, cell("SCHOOLCD")},
                                                {u"SCHOOLLEVEL"_s, cell("SCHOOLLEVEL")},
                                                {u"SCHOOLFULLNAME"_s, cell("SCHOOLFULLNAME")},
                                                {u"SCHOOLNAME"_s, cell("SCHOOLNAME")},
                                                {u"SCHOOLDIVIDE"_s, cell("SCHOOLDIVIDE")},
                                                {u"USEYN"_s, u"'Y'"_s}} +
                                        auditOnInsert(u"C_SCHOOL"_s));
}

bool BAMAS505::insertRows() {
    // The checks see only the table: two rows of one paste with one code both pass, and the
    // second insert then fails and takes every row of the paste with it.
    bool done = false;
    guarded(
        u"sSelectQuery2"_s,
        [this, &done] {
            Transaction tx;
            if (!tx.ok()) {
                return;
            }
            const int rows = SP1->dataRowCnt();
            for (int row = 1; row <= rows; ++row) {
                if (!gfbSqlExecuteDB(insertStatement(row))) {
                    return;
                }
            }
            done = tx.commit();
        },
        true);
    return done;
}

void BAMAS505::cmdUpload_Click() {
    finishEditing();
    WaitCursor wait;
    const int rows = SP1->dataRowCnt();
    for (int row = 1; row <= rows; ++row) {
        if (!checkRow(row)) {
            return;
        }
    }
    const int remark = columns().column(u"REMARK"_s);
    for (int row = 1; row <= rows; ++row) {
        if (!gfSpreadCellText(SP1, row, remark).isEmpty()) {
            gfsMessage(8071);
            return;
        }
    }
    if (insertRows()) {
        setStatusNote(QString::number(rows) + u"건의 학교가 등록되었습니다."_s);
    }
}

void BAMAS505::cmdViewSale2_Click() {
    SP1->setMaxRows(0);
    SP1->setMaxRows(kEmptyRows);
    setStatusNote(QString());
}
