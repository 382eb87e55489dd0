#include "data/schema/views.h"

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

// Stock per store, school, sex, item and model year: opening stock and receipts in, sales
// (less reservations not yet secured, still on the shelf) and every outbound row out. The
// arithmetic is the stock report's, quirks included, so that a screen reading this view
// agrees with the report: opening stock is counted once per receipt row of its line, outbound
// rows that agree in every column but the date count once unless they are corrections, and a
// common item's sales gather under the greatest school that offers it.
QString stockQty() {
    const QString sdCode =
        QStringLiteral("SU.COMPANY = OD.COMPANY AND SU.SEASON = SUBSTR(OD.UNIFORMCD, 1, 1) "
                       "AND SU.DIVIDE = SUBSTR(OD.UNIFORMCD, 2, 1) "
                       "AND SU.UNIFORMSEQ = RTRIM(SUBSTR(OD.UNIFORMCD, 3, 2)) "
                       "AND SU.UNIFORMCOMSEQ = RTRIM(SUBSTR(OD.UNIFORMCD, 5, 2))");
    QString sql = QStringLiteral(R"(
WITH
V_SALE AS NOT MATERIALIZED (
    SELECT OH.COMPANY, OH.STORECD,
           CASE WHEN RTRIM(SUBSTR(OD.UNIFORMCD, 5, 2)) > ''
                THEN (SELECT MAX(SU.SCHOOLCD) FROM C_SCHOOLUNIFORM SU WHERE {SDCODE})
                ELSE OH.SCHOOLCD END SCHOOLCD,
           CASE SUBSTR(OD.UNIFORMCD, 2, 1) WHEN 'B' THEN '1' WHEN 'G' THEN '2' END SCHDIV,
           OD.UNIFORMCD, OD.YYYY, OD.SIZETAB, OD.SIZE,
           SUM(OD.CNT - IFNULL((SELECT COUNT(RD.RESERVEDT) FROM S_REPAIRDETAIL RD
                                 WHERE RD.COMPANY = OD.COMPANY AND RD.STORECD = OD.STORECD
                                   AND RD.ORDDT = OD.ORDDT AND RD.ORDSEQ = OD.ORDSEQ
                                   AND RD.PKEY = OD.PKEY
                                   AND IFNULL(RD.RESERVEDT, '') > ''
                                   AND LENGTH(RTRIM(RD.RESERVEDT)) < 5), 0)) CNT
      FROM S_ORDERHEAD OH
      JOIN S_ORDERDETAIL OD ON OD.COMPANY = OH.COMPANY AND OD.STORECD = OH.STORECD
                           AND OD.SCHOOLCD = OH.SCHOOLCD AND OD.ORDDT = OH.ORDDT
                           AND OD.ORDSEQ = OH.ORDSEQ
     WHERE OH.STATNM = '완료' AND IFNULL(OH.BILLNO, '') > '' AND IFNULL(OH.CANCELDT, '') = ''
     GROUP BY 1, 2, 3, 4, 5, 6, 7, 8),
V_TITLE AS NOT MATERIALIZED (
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
      LEFT JOIN V_SALE VS ON VS.COMPANY = VT.COMPANY AND VS.STORECD = VT.STORECD
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
             WHERE VST.SIZETAB IS NOT NULL)
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
                             AND TIN.INYYYY = AA.BSYYYY)
 GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, YYYY, UNIFORMCD)");
    sql.replace(QStringLiteral("{SDCODE}"), sdCode);
    sql.replace(QStringLiteral("{BSLABELS}"), eachSize(QStringLiteral("BS.C%1")));
    sql.replace(QStringLiteral("{UFCODE}"), itemCode(QStringLiteral("UF")));
    sql.replace(QStringLiteral("{STOCK}"), eachSize(QStringLiteral("SUM(B%1) - SUM(O%1)")));
    sql.replace(QStringLiteral("{SOLD}"),
                eachSize(QStringLiteral("CASE WHEN VT.C%1 = IFNULL(VS.SIZE, '') "
                                        "THEN IFNULL(VS.CNT, 0) ELSE 0 END O%1")));
    sql.replace(QStringLiteral("{ZEROB}"), eachSize(QStringLiteral("0 B%1")));
    sql.replace(QStringLiteral("{ZEROO}"), eachSize(QStringLiteral("0 O%1")));
    sql.replace(QStringLiteral("{OUTCOLS}"), eachSize(QStringLiteral("IFNULL(OB.O%1, 0) Q%1")));
    sql.replace(QStringLiteral("{OUTQ}"), eachSize(QStringLiteral("Q%1")));
    sql.replace(QStringLiteral("{INQ}"),
                eachSize(QStringLiteral("IFNULL(BS.C%1, 0) + IFNULL(TIN.I%1, 0) B%1")));
    return sql;
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
        return stockQty();
    }
    return QString();
}
