#include "data/schema/views.h"

#include "data/dialect.h"
#include "data/schema/stockqty.h"

// View bodies in SQLite's dialect. Text columns carry the RTRIM collation, so the equalities
// below ignore trailing blanks as the server's CHAR columns do.

namespace {

// The composed item code: season, sex, two-character sequence, common-set sequence.
QString itemCode(const QString& alias) {
    return QStringLiteral("RTRIM(%1.SEASON) || RTRIM(%1.DIVIDE) || "
                          "SUBSTR(RTRIM(%1.UNIFORMSEQ) || '  ', 1, 2) || RTRIM(%1.UNIFORMCOMSEQ)")
        .arg(alias);
}

// Model years: from the first label year of any brand to the year after the latest current
// year of any store, each once. Counted from three digit columns rather than by recursion, as
// the server's twin must be (a view there cannot lift the recursion limit): up to 1,000 years.
QString bsyyyy() {
    return QStringLiteral(R"(
WITH
BOUNDS (LO, HI) AS (
    SELECT MIN(Y), MAX(Y)
      FROM (SELECT CAST(YYYY AS INTEGER) Y FROM C_BRANDSIZE
             WHERE YYYY GLOB '[0-9][0-9][0-9][0-9]'
            UNION ALL
            SELECT CAST(CURRYYYY AS INTEGER) + 1 FROM C_STORE
             WHERE CURRYYYY GLOB '[0-9][0-9][0-9][0-9]')),
DIGITS (D) AS (
    SELECT 0 UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4
    UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9)
SELECT CAST(B.LO + 100 * H.D + 10 * T.D + U.D AS TEXT)
  FROM BOUNDS B, DIGITS H, DIGITS T, DIGITS U
 WHERE B.LO + 100 * H.D + 10 * T.D + U.D <= B.HI)");
}

// One row per store, school, item on sale at that school and model year, with the labels of
// the item's size table of the label year in force for that model year (the greatest label
// year not after it). Kids' schools read the brand's small ("L") range, others the "H" range.
QString schUniformSize() {
    return QStringLiteral(R"(
SELECT SS.COMPANY, SS.STORECD, SS.SCHOOLCD,
       CASE UF.DIVIDE WHEN 'B' THEN '1' WHEN 'G' THEN '2'
            ELSE (SELECT MIN(SU.SUDIVIDE) FROM C_SCHOOLUNIFORM SU
                   WHERE SU.COMPANY = SS.COMPANY AND SU.SCHOOLCD = SS.SCHOOLCD
                     AND SU.SEASON = UF.SEASON AND SU.DIVIDE = UF.DIVIDE
                     AND SU.UNIFORMSEQ = UF.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ
                     AND SU.USEYN = 'Y') END,
       %1,
       YY.BSYYYY, UF.SIZETAB,
       %2
  FROM C_STORESCHOOL SS
  JOIN C_STORE ST ON ST.COMPANY = SS.COMPANY AND ST.STORECD = SS.STORECD
  JOIN C_SCHOOL SC ON SC.COMPANY = SS.COMPANY AND SC.SCHOOLCD = SS.SCHOOLCD
  JOIN C_UNIFORM UF ON UF.COMPANY = SS.COMPANY
  JOIN VIW_BSYYYY YY
  JOIN C_BRANDSIZE CB ON CB.COMPANY = ST.COMPANY AND CB.BRANDCD = ST.BRANDCD
                     AND CB.SIZETAB = UF.SIZETAB
                     AND CB.TEENSCOPE = CASE WHEN SC.SCHOOLLEVEL = '3' THEN 'L' ELSE 'H' END
                     AND CB.YYYY = (SELECT MAX(B2.YYYY) FROM C_BRANDSIZE B2
                                     WHERE B2.COMPANY = ST.COMPANY AND B2.BRANDCD = ST.BRANDCD
                                       AND B2.SIZETAB = UF.SIZETAB
                                       AND B2.TEENSCOPE = CB.TEENSCOPE
                                       AND B2.YYYY <= YY.BSYYYY)
 WHERE SS.USEYN = 'Y'
   AND EXISTS (SELECT 1 FROM C_SCHOOLUNIFORM SU
                WHERE SU.COMPANY = SS.COMPANY AND SU.SCHOOLCD = SS.SCHOOLCD
                  AND SU.SEASON = UF.SEASON AND SU.DIVIDE = UF.DIVIDE
                  AND SU.UNIFORMSEQ = UF.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ
                  AND SU.USEYN = 'Y'))")
        .arg(itemCode(QStringLiteral("UF")), eachSize(QStringLiteral("CB.C%1")));
}

QString schUniformSize2() {
    return QStringLiteral("\nSELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, CD, BSYYYY, SIZETAB, %1\n"
                          "  FROM VIW_SCHUNIFOMSIZE")
        .arg(eachSize(QStringLiteral("C%1")));
}

// What has been received so far against each order line.
QString inbound() {
    return QStringLiteral(R"(
SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, INYYYY, UNIFORMCD, ORDERDT, OUTBOUNDSTORE, ORDERSEQ,
       %1
  FROM T_INBOUND
 WHERE INBOUNDGB = 'A'
 GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, INYYYY, UNIFORMCD, ORDERDT, OUTBOUNDSTORE,
          ORDERSEQ)")
        .arg(eachSize(QStringLiteral("SUM(IFNULL(I%1, 0))")));
}

} // namespace

QString sqliteViewBody(const QString& name) {
    if (name == QLatin1String("VIW_BSYYYY")) {
        return bsyyyy();
    }
    if (name == QLatin1String("VIW_SCHUNIFOMSIZE")) {
        return schUniformSize();
    }
    if (name == QLatin1String("VIW_SCHUNIFOMSIZE2")) {
        return schUniformSize2();
    }
    if (name == QLatin1String("VIW_T_INBOUND")) {
        return inbound();
    }
    if (name == QLatin1String("VIW_STOCKQTY_TEMP")) {
        return stockQtySelect(Dialect(Dialect::Engine::Sqlite));
    }
    return QString();
}
