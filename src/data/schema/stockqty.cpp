#include "data/schema/stockqty.h"

#include "data/dialect.h"
#include "data/schema/views.h"
#include "data/sqlvalue.h"

// The text is kept to functions both engines have built in (the embedded database stores it as
// a view that other tools may open), spelled per engine where the names differ.

namespace {

struct Spelling {
    QString nz;     // ISNULL / IFNULL
    QString substr; // SUBSTRING / SUBSTR
    QString seq;    // the item sequence padded to two characters, of alias %1
    QString shortReservation; // a reservation date of fewer than five characters, of RD
};

Spelling spelling(const Dialect& d) {
    if (d.isSqlServer()) {
        return {QStringLiteral("ISNULL"), QStringLiteral("SUBSTRING"),
                QStringLiteral("CONVERT(CHAR(2), RTRIM(%1.UNIFORMSEQ))"),
                QStringLiteral("LEN(RD.RESERVEDT) < 5")};
    }
    return {QStringLiteral("IFNULL"), QStringLiteral("SUBSTR"),
            QStringLiteral("SUBSTR(RTRIM(%1.UNIFORMSEQ) || '  ', 1, 2)"),
            QStringLiteral("LENGTH(RTRIM(RD.RESERVEDT)) < 5")};
}

QString itemCode(const Dialect& d, const Spelling& s, const QString& alias) {
    return d.cat({QStringLiteral("RTRIM(%1.SEASON)").arg(alias),
                  QStringLiteral("RTRIM(%1.DIVIDE)").arg(alias), s.seq.arg(alias),
                  QStringLiteral("RTRIM(%1.UNIFORMCOMSEQ)").arg(alias)});
}

// " AND A.COMPANY = '..' AND A.STORECD = '..' AND A.<year> = '..'" for the fields set.
QString scoped(const StockQtyScope& scope, const QString& alias, const QString& yearColumn) {
    QString where;
    if (!scope.company.isEmpty()) {
        where += QStringLiteral(" AND %1.COMPANY = ").arg(alias) + quoted(scope.company);
    }
    if (!scope.store.isEmpty()) {
        where += QStringLiteral(" AND %1.STORECD = ").arg(alias) + quoted(scope.store);
    }
    if (!scope.year.isEmpty()) {
        where += QStringLiteral(" AND %1.%2 = ").arg(alias, yearColumn) + quoted(scope.year);
    }
    return where;
}

// Every sellable line with its labels: sales, opening stock and receipts are read against it.
QString titles(const Dialect& d, const Spelling& s, const StockQtyScope& scope) {
    return QStringLiteral(R"(SELECT DISTINCT BS.SCHOOLCD, BS.SUDIVIDE, BS.CD, BS.COMPANY, BS.STORECD, BS.BSYYYY,
                 BS.SIZETAB, %1
            FROM C_UNIFORM UF, VIW_SCHUNIFOMSIZE2 BS
           WHERE UF.USEYN = 'Y' AND UF.COMPANY = BS.COMPANY AND UF.SIZETAB = BS.SIZETAB
             AND BS.CD = %2%3)")
        .arg(eachSize(QStringLiteral("BS.C%1")), itemCode(d, s, QStringLiteral("UF")),
             scoped(scope, QStringLiteral("BS"), QStringLiteral("BSYYYY")));
}

// Completed sales by item, year and size label, less reservations whose goods are still on the
// shelf; a common item's sales gather under the greatest school that offers it.
QString sales(const Spelling& s, const StockQtyScope& scope) {
    StockQtyScope slips = scope;
    slips.year.clear(); // the year is the line's, below
    return QStringLiteral(R"(SELECT COMPANY, STORECD, SCHOOLCD, SCHDIV, UNIFORMCD, YYYY, SIZETAB, SIZE, SUM(CNT) CNT
            FROM (SELECT OH.COMPANY, OH.STORECD,
                         CASE WHEN RTRIM({SUBSTR}(OD.UNIFORMCD, 5, 2)) > ''
                              THEN (SELECT MAX(SU.SCHOOLCD) FROM C_SCHOOLUNIFORM SU
                                     WHERE SU.COMPANY = OD.COMPANY
                                       AND SU.SEASON = {SUBSTR}(OD.UNIFORMCD, 1, 1)
                                       AND SU.DIVIDE = {SUBSTR}(OD.UNIFORMCD, 2, 1)
                                       AND SU.UNIFORMSEQ = RTRIM({SUBSTR}(OD.UNIFORMCD, 3, 2))
                                       AND SU.UNIFORMCOMSEQ = RTRIM({SUBSTR}(OD.UNIFORMCD, 5, 2)))
                              ELSE OH.SCHOOLCD END SCHOOLCD,
                         CASE {SUBSTR}(OD.UNIFORMCD, 2, 1) WHEN 'B' THEN '1' WHEN 'G' THEN '2' END SCHDIV,
                         OD.UNIFORMCD, OD.YYYY, OD.SIZETAB, OD.SIZE,
                         OD.CNT - {NZ}((SELECT COUNT(RD.RESERVEDT) FROM S_REPAIRDETAIL RD
                                         WHERE RD.COMPANY = OD.COMPANY AND RD.STORECD = OD.STORECD
                                           AND RD.ORDDT = OD.ORDDT AND RD.ORDSEQ = OD.ORDSEQ
                                           AND RD.PKEY = OD.PKEY
                                           AND {NZ}(RD.RESERVEDT, '') > ''
                                           AND {SHORT}), 0) CNT
                    FROM S_ORDERHEAD OH
                    JOIN S_ORDERDETAIL OD ON OD.COMPANY = OH.COMPANY AND OD.STORECD = OH.STORECD
                                         AND OD.SCHOOLCD = OH.SCHOOLCD AND OD.ORDDT = OH.ORDDT
                                         AND OD.ORDSEQ = OH.ORDSEQ
                   WHERE OH.STATNM = '완료' AND {NZ}(OH.BILLNO, '') > ''
                     AND {NZ}(OH.CANCELDT, '') = ''{SLIPS}{YEAR}) SL
           GROUP BY COMPANY, STORECD, SCHOOLCD, SCHDIV, UNIFORMCD, YYYY, SIZETAB, SIZE)")
        .replace(QStringLiteral("{SUBSTR}"), s.substr)
        .replace(QStringLiteral("{NZ}"), s.nz)
        .replace(QStringLiteral("{SHORT}"), s.shortReservation)
        .replace(QStringLiteral("{SLIPS}"), scoped(slips, QStringLiteral("OH"), QString()))
        .replace(QStringLiteral("{YEAR}"),
                 scope.year.isEmpty() ? QString()
                                      : QStringLiteral(" AND OD.YYYY = ") + quoted(scope.year));
}

} // namespace

QString stockQtySelect(const Dialect& d, const StockQtyScope& scope) {
    const Spelling s = spelling(d);
    QString sql = QStringLiteral(R"(
SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, YYYY, UNIFORMCD,
       {STOCK}
  FROM (
    SELECT VT.COMPANY, VT.STORECD, VT.SCHOOLCD, VT.SUDIVIDE, VT.CD UNIFORMCD, VT.BSYYYY YYYY,
           {SOLD},
           {ZEROB}
      FROM ({TITLES}) VT
      LEFT JOIN ({SALES}) VS
        ON VS.COMPANY = VT.COMPANY AND VS.STORECD = VT.STORECD
       AND VS.SCHOOLCD = VT.SCHOOLCD AND VS.SCHDIV = VT.SUDIVIDE
       AND VS.UNIFORMCD = VT.CD AND VS.YYYY = VT.BSYYYY
    UNION ALL
    SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, UNIFORMCD, OUTYYYY, {OUTQ}, {ZEROB}
      FROM (SELECT DISTINCT OB.COMPANY, OB.STORECD, OB.SCHOOLCD, OB.SUDIVIDE, OB.UNIFORMCD,
                   OB.OUTYYYY, VST.SIZETAB, {OUTCOLS},
                   CASE WHEN OB.OUTBOUNDGB = 'D' THEN OB.OUTBOUNDDT ELSE '' END UPDDT
              FROM T_OUTBOUND OB
              LEFT JOIN VIW_SCHUNIFOMSIZE VST ON VST.COMPANY = OB.COMPANY
                                             AND VST.STORECD = OB.STORECD
                                             AND VST.CD = OB.UNIFORMCD
                                             AND VST.BSYYYY = OB.OUTYYYY
             WHERE VST.SIZETAB IS NOT NULL{OUTSCOPE}) OB
    UNION ALL
    SELECT AA.COMPANY, AA.STORECD, AA.SCHOOLCD, AA.SUDIVIDE, AA.CD, AA.BSYYYY,
           {ZEROO},
           {INQ}
      FROM ({TITLES}) AA
      LEFT JOIN T_BASSTOCKQTY BS ON BS.COMPANY = AA.COMPANY AND BS.STORECD = AA.STORECD
                                AND BS.SCHOOLCD = AA.SCHOOLCD AND BS.UNIFORMCD = AA.CD
                                AND BS.YYYY = AA.BSYYYY
      LEFT JOIN T_INBOUND TIN ON TIN.COMPANY = AA.COMPANY AND TIN.STORECD = AA.STORECD
                             AND TIN.SCHOOLCD = AA.SCHOOLCD AND TIN.UNIFORMCD = AA.CD
                             AND TIN.INYYYY = AA.BSYYYY) Q
 GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, YYYY, UNIFORMCD)");
    sql.replace(QStringLiteral("{TITLES}"), titles(d, s, scope));
    sql.replace(QStringLiteral("{SALES}"), sales(s, scope));
    sql.replace(QStringLiteral("{OUTSCOPE}"),
                scoped(scope, QStringLiteral("OB"), QStringLiteral("OUTYYYY")));
    sql.replace(QStringLiteral("{STOCK}"), eachSize(QStringLiteral("SUM(B%1) - SUM(O%1)")));
    sql.replace(QStringLiteral("{SOLD}"),
                eachSize(QStringLiteral("CASE WHEN VT.C%1 = ") + s.nz +
                         QStringLiteral("(VS.SIZE, '') THEN ") + s.nz +
                         QStringLiteral("(VS.CNT, 0) ELSE 0 END O%1")));
    sql.replace(QStringLiteral("{ZEROB}"), eachSize(QStringLiteral("0 B%1")));
    sql.replace(QStringLiteral("{ZEROO}"), eachSize(QStringLiteral("0 O%1")));
    sql.replace(QStringLiteral("{OUTCOLS}"),
                eachSize(s.nz + QStringLiteral("(OB.O%1, 0) Q%1")));
    sql.replace(QStringLiteral("{OUTQ}"), eachSize(QStringLiteral("Q%1")));
    sql.replace(QStringLiteral("{INQ}"), eachSize(s.nz + QStringLiteral("(BS.C%1, 0) + ") + s.nz +
                                                  QStringLiteral("(TIN.I%1, 0) B%1")));
    return sql;
}
