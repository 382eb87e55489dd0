#include "screens/stock/sizeheadings.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlvalue.h"
#include "grid/spreadroutines.h"

namespace {

QString storeBrands(const QString& store, const QString& brand, const QString& yearExpr) {
    QString sql =
        QStringLiteral("(SELECT DISTINCT BRANDCD, %1 CURRYYYY FROM C_STORE %2 WHERE COMPANY = %3")
            .arg(yearExpr, dialect().nolock(), quoted(session().gsCompany));
    if (!store.isEmpty()) {
        sql += QStringLiteral(" AND STORECD = ") + quoted(store);
    }
    if (!brand.isEmpty()) {
        sql += QStringLiteral(" AND BRANDCD = ") + quoted(brand);
    }
    return sql + QStringLiteral(") XX");
}

QString labelsOf(const QString& order, const QString& yearRule, const QString& brands,
                 const QString& teenScope, const QString& sizeTab) {
    return QStringLiteral(
               " SELECT %1 ORD, CB.SIZETAB, %2 FROM C_BRANDSIZE CB %3, %4 "
               "  WHERE CB.COMPANY = %5 AND CB.BRANDCD = XX.BRANDCD AND CB.TEENSCOPE = %6 "
               "    AND CB.SIZETAB = %7 AND CB.YYYY = %8 ")
        .arg(order, eachSize(QStringLiteral("CB.C%1")), dialect().nolock(), brands,
             quoted(session().gsCompany), quoted(teenScope), quoted(sizeTab), yearRule);
}

} // namespace

bool readSizeHeadings(const QString& store, const QString& brand, const QString& teenScope,
                      QList<SizeHeadingRow>& rows) {
    const QString company = quoted(session().gsCompany);
    // The year in force for the store, and the oldest label year within its last four years.
    const QString inForce =
        QStringLiteral(
            "(SELECT ISNULL(MAX(BS.YYYY), YEAR(GETDATE())) FROM C_BRANDSIZE BS "
            "WHERE BS.COMPANY = %1 AND BS.BRANDCD = XX.BRANDCD AND BS.YYYY <= XX.CURRYYYY)")
            .arg(company);
    const QString oldest =
        QStringLiteral(
            "(SELECT ISNULL(MIN(BS.YYYY), YEAR(GETDATE())) FROM C_BRANDSIZE BS "
            "WHERE BS.COMPANY = %1 AND BS.BRANDCD = XX.BRANDCD AND BS.YYYY > XX.CURRYYYY)")
            .arg(company);
    QString sql = labelsOf(QStringLiteral("0"), oldest,
                           storeBrands(store, brand, QStringLiteral("CURRYYYY - 4")), teenScope,
                           QStringLiteral("J"));
    int order = 1;
    for (const char* table : {"X", "J", "P", "T"}) {
        sql += QStringLiteral(" UNION ALL ") +
               labelsOf(QString::number(order++), inForce,
                        storeBrands(store, brand, QStringLiteral("CURRYYYY")), teenScope,
                        QString::fromLatin1(table));
    }
    sql += QStringLiteral(" ORDER BY 1");
    RecordSet rs;
    if (!gfbSqlSelectDB(sql, rs)) {
        return false;
    }
    rows.clear();
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        SizeHeadingRow row{rs.value(1).trimmed(), {}};
        for (int n = 0; n < kSizePositions; ++n) {
            row.labels << rs.value(2 + n).trimmed();
        }
        rows << row;
    }
    return true;
}

void writeSizeHeadings(Spread* grid, const QList<SizeHeadingRow>& rows, const QStringList& leading,
                       const QStringList& trailing) {
    const int headRows = qMax(1, int(rows.size()));
    grid->setHeadRows(headRows);
    const int sizeTabCol = int(leading.size()) + 1;
    for (int r = 0; r < headRows; ++r) {
        const int row = gfHeadRow(r);
        for (int c = 0; c < leading.size(); ++c) {
            gsSpreadSetText(grid, row, c + 1, leading.at(c));
        }
        const SizeHeadingRow heading = r < rows.size() ? rows.at(r) : SizeHeadingRow{};
        gsSpreadSetText(grid, row, sizeTabCol, heading.sizeTab);
        for (int n = 0; n < kSizePositions; ++n) {
            gsSpreadSetText(grid, row, sizeTabCol + 1 + n, heading.labels.value(n));
        }
        for (int c = 0; c < trailing.size(); ++c) {
            gsSpreadSetText(grid, row, sizeTabCol + 1 + kSizePositions + c, trailing.at(c));
        }
    }
    gsSpreadHeaderColMerge(grid, 1, int(leading.size()));
    gsSpreadHeaderColMerge(grid, sizeTabCol + 1 + kSizePositions,
                           sizeTabCol + kSizePositions + int(trailing.size()));
}
