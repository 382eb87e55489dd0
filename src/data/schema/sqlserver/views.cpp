#include "data/schema/views.h"

#include "data/dialect.h"
#include "data/schema/stockqty.h"

// View and function bodies in T-SQL, the same meaning as the SQLite ones beside them.

namespace {

QString itemCode(const QString& alias) {
    return QStringLiteral("RTRIM(%1.SEASON) + RTRIM(%1.DIVIDE) + CONVERT(CHAR(2), "
                          "RTRIM(%1.UNIFORMSEQ)) + RTRIM(%1.UNIFORMCOMSEQ)")
        .arg(alias);
}

// No recursion: a view cannot carry OPTION (MAXRECURSION), and the default limit of 100
// would end the list of a long-lived chain. Three digit columns count up to 1,000 years.
// TRY_CONVERT, because the server may convert before it filters.
QString bsyyyy() {
    return QStringLiteral(R"(
WITH
BOUNDS (LO, HI) AS (
    SELECT MIN(Y), MAX(Y)
      FROM (SELECT TRY_CONVERT(INT, YYYY) Y FROM C_BRANDSIZE
             WHERE YYYY LIKE '[0-9][0-9][0-9][0-9]'
            UNION ALL
            SELECT TRY_CONVERT(INT, CURRYYYY) + 1 FROM C_STORE
             WHERE CURRYYYY LIKE '[0-9][0-9][0-9][0-9]') B),
DIGITS (D) AS (
    SELECT D FROM (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) V (D))
SELECT CONVERT(CHAR(4), B.LO + 100 * H.D + 10 * T.D + U.D)
  FROM BOUNDS B
 CROSS JOIN DIGITS H CROSS JOIN DIGITS T CROSS JOIN DIGITS U
 WHERE B.LO + 100 * H.D + 10 * T.D + U.D <= B.HI)");
}

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
  CROSS JOIN VIW_BSYYYY YY
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

QString inbound() {
    return QStringLiteral(R"(
SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, INYYYY, UNIFORMCD, ORDERDT, OUTBOUNDSTORE, ORDERSEQ,
       %1
  FROM T_INBOUND
 WHERE INBOUNDGB = 'A'
 GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, INYYYY, UNIFORMCD, ORDERDT, OUTBOUNDSTORE,
          ORDERSEQ)")
        .arg(eachSize(QStringLiteral("SUM(ISNULL(I%1, 0))")));
}

QString storeFunction(const char* name, const char* column, int width) {
    return QStringLiteral(R"(CREATE FUNCTION DBO.%1 (@COMPANY VARCHAR(10), @STORECD VARCHAR(10))
RETURNS VARCHAR(%3)
AS
BEGIN
    RETURN (SELECT MAX(%2) FROM C_STORE WHERE COMPANY = @COMPANY AND STORECD = @STORECD)
END
)")
        .arg(QLatin1String(name), QLatin1String(column))
        .arg(width);
}

} // namespace

QString sqlServerViewBody(const QString& name) {
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
        return stockQtySelect(Dialect(Dialect::Engine::SqlServer));
    }
    return QString();
}

QStringList sqlServerFunctionDdl() {
    return {storeFunction("FN_STOREFULLNAME", "STOREFULLNAME", 50),
            storeFunction("FN_STOREADDRES", "STOREADDRES", 100),
            storeFunction("FN_STORETEL", "STORETEL", 20)};
}
