#include "data/schema/views.h"

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

QString stockQty() {
    const QString sdCode =
        QStringLiteral("SU.COMPANY = OD.COMPANY AND SU.SEASON = SUBSTRING(OD.UNIFORMCD, 1, 1) "
                       "AND SU.DIVIDE = SUBSTRING(OD.UNIFORMCD, 2, 1) "
                       "AND SU.UNIFORMSEQ = RTRIM(SUBSTRING(OD.UNIFORMCD, 3, 2)) "
                       "AND SU.UNIFORMCOMSEQ = RTRIM(SUBSTRING(OD.UNIFORMCD, 5, 2))");
    QString sql = QStringLiteral(R"(
WITH
V_SALE AS (
    SELECT OH.COMPANY, OH.STORECD,
           CASE WHEN RTRIM(SUBSTRING(OD.UNIFORMCD, 5, 2)) > ''
                THEN (SELECT MAX(SU.SCHOOLCD) FROM C_SCHOOLUNIFORM SU WHERE {SDCODE})
                ELSE OH.SCHOOLCD END SCHOOLCD,
           CASE SUBSTRING(OD.UNIFORMCD, 2, 1) WHEN 'B' THEN '1' WHEN 'G' THEN '2' END SCHDIV,
           OD.UNIFORMCD, OD.YYYY, OD.SIZETAB, OD.SIZE,
           OD.CNT - ISNULL((SELECT COUNT(RD.RESERVEDT) FROM S_REPAIRDETAIL RD
                             WHERE RD.COMPANY = OD.COMPANY AND RD.STORECD = OD.STORECD
                               AND RD.ORDDT = OD.ORDDT AND RD.ORDSEQ = OD.ORDSEQ
                               AND RD.PKEY = OD.PKEY
                               AND ISNULL(RD.RESERVEDT, '') > ''
                               AND LEN(RD.RESERVEDT) < 5), 0) CNT
      FROM S_ORDERHEAD OH
      JOIN S_ORDERDETAIL OD ON OD.COMPANY = OH.COMPANY AND OD.STORECD = OH.STORECD
                           AND OD.SCHOOLCD = OH.SCHOOLCD AND OD.ORDDT = OH.ORDDT
                           AND OD.ORDSEQ = OH.ORDSEQ
     WHERE OH.STATNM = '완료' AND ISNULL(OH.BILLNO, '') > '' AND ISNULL(OH.CANCELDT, '') = ''),
V_SALE_SUM AS (
    SELECT COMPANY, STORECD, SCHOOLCD, SCHDIV, UNIFORMCD, YYYY, SIZETAB, SIZE, SUM(CNT) CNT
      FROM V_SALE
     GROUP BY COMPANY, STORECD, SCHOOLCD, SCHDIV, UNIFORMCD, YYYY, SIZETAB, SIZE),
V_TITLE AS (
    SELECT DISTINCT BS.SCHOOLCD, BS.SUDIVIDE, BS.CD, BS.COMPANY, BS.STORECD, BS.BSYYYY,
           BS.SIZETAB, {BSLABELS}
      FROM C_UNIFORM UF, VIW_SCHUNIFOMSIZE2 BS
     WHERE UF.USEYN = 'Y' AND UF.COMPANY = BS.COMPANY AND UF.SIZETAB = BS.SIZETAB
       AND BS.CD = {UFCODE})
SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, YYYY, UNIFORMCD,
       {STOCK}
  FROM (
    SELECT VT.COMPANY, VT.STORECD, VT.SCHOOLCD, VT.SUDIVIDE, VT.CD UNIFORMCD, VT.BSYYYY YYYY,
           {SOLD},
           {ZEROB}
      FROM V_TITLE VT
      LEFT JOIN V_SALE_SUM VS ON VS.COMPANY = VT.COMPANY AND VS.STORECD = VT.STORECD
                             AND VS.SCHOOLCD = VT.SCHOOLCD AND VS.SCHDIV = VT.SUDIVIDE
                             AND VS.UNIFORMCD = VT.CD AND VS.YYYY = VT.BSYYYY
    UNION ALL
    SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, UNIFORMCD, OUTYYYY, {OUTQ}, {ZEROB}
      FROM (SELECT DISTINCT OB.COMPANY, OB.STORECD, OB.SCHOOLCD, OB.SUDIVIDE, OB.UNIFORMCD,
                   OB.OUTYYYY, VST.SIZETAB, {OUTCOLS},
                   CASE WHEN OB.OUTBOUNDGB = 'D' THEN (OB.OUTBOUNDDT) ELSE '' END UPDDT
              FROM T_OUTBOUND OB
              LEFT JOIN VIW_SCHUNIFOMSIZE VST ON VST.COMPANY = OB.COMPANY
                                             AND VST.STORECD = OB.STORECD
                                             AND VST.CD = OB.UNIFORMCD
                                             AND VST.BSYYYY = OB.OUTYYYY
             WHERE VST.SIZETAB IS NOT NULL) OB
    UNION ALL
    SELECT AA.COMPANY, AA.STORECD, AA.SCHOOLCD, AA.SUDIVIDE, AA.CD, AA.BSYYYY,
           {ZEROO},
           {INQ}
      FROM V_TITLE AA
      LEFT JOIN T_BASSTOCKQTY BS ON BS.COMPANY = AA.COMPANY AND BS.STORECD = AA.STORECD
                                AND BS.SCHOOLCD = AA.SCHOOLCD AND BS.UNIFORMCD = AA.CD
                                AND BS.YYYY = AA.BSYYYY
      LEFT JOIN T_INBOUND TIN ON TIN.COMPANY = AA.COMPANY AND TIN.STORECD = AA.STORECD
                             AND TIN.SCHOOLCD = AA.SCHOOLCD AND TIN.UNIFORMCD = AA.CD
                             AND TIN.INYYYY = AA.BSYYYY) Q
 GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, YYYY, UNIFORMCD)");
    sql.replace(QStringLiteral("{SDCODE}"), sdCode);
    sql.replace(QStringLiteral("{BSLABELS}"), eachSize(QStringLiteral("BS.C%1")));
    sql.replace(QStringLiteral("{UFCODE}"), itemCode(QStringLiteral("UF")));
    sql.replace(QStringLiteral("{STOCK}"), eachSize(QStringLiteral("SUM(B%1) - SUM(O%1)")));
    sql.replace(QStringLiteral("{SOLD}"),
                eachSize(QStringLiteral("CASE WHEN VT.C%1 = ISNULL(VS.SIZE, '') "
                                        "THEN ISNULL(VS.CNT, 0) ELSE 0 END O%1")));
    sql.replace(QStringLiteral("{ZEROB}"), eachSize(QStringLiteral("0 B%1")));
    sql.replace(QStringLiteral("{ZEROO}"), eachSize(QStringLiteral("0 O%1")));
    sql.replace(QStringLiteral("{OUTCOLS}"), eachSize(QStringLiteral("ISNULL(OB.O%1, 0) Q%1")));
    sql.replace(QStringLiteral("{OUTQ}"), eachSize(QStringLiteral("Q%1")));
    sql.replace(QStringLiteral("{INQ}"),
                eachSize(QStringLiteral("ISNULL(BS.C%1, 0) + ISNULL(TIN.I%1, 0) B%1")));
    return sql;
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
        return stockQty();
    }
    return QString();
}

QStringList sqlServerFunctionDdl() {
    return {storeFunction("FN_STOREFULLNAME", "STOREFULLNAME", 50),
            storeFunction("FN_STOREADDRES", "STOREADDRES", 100),
            storeFunction("FN_STORETEL", "STORETEL", 20)};
}
