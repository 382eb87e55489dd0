#include "screens/stock/stockstatement.h"

#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/schema/views.h"
#include "data/sqlvalue.h"

namespace {

// Sales by item, year and size label, less reservations whose goods are still on the shelf.
//
// A store's sales grow with every year it keeps, so the work per sale line is kept to reading
// two indexes (S_ORDERHEAD and S_ORDERDETAIL cover every column read) and one grouping by the
// columns as stored. The reservations, far fewer, come as a second leg of negative counts for
// the lines they belong to, rather than a look-up for every line; the school of a common item
// and the sex are worked out once per group rather than once per line. A common item sold at
// two schools may so give two rows for one school: the report adds them up either way.
// A line without a count stays without one, reservations or not. The joins are spelled as
// CROSS JOIN with their conditions in WHERE, the same inner join on both engines; SQLite reads
// it as the order to take the tables in (heads, then their lines; reservations, then their
// slips), which it might not find by itself on a database without statistics.
QString saleStep(const StockFilter& f, const Dialect& d) {
    const QString nl = d.nolock();
    QString sql = QStringLiteral(
        " V_SALE AS ( "
        "   SELECT VS.COMPANY, VS.STORECD, "
        "          CASE WHEN RTRIM(SUBSTRING(VS.UNIFORMCD, 5, 2)) > '' THEN SS.SCHOOLCD "
        "ELSE VS.SCHOOLCD END SCHOOLCD, "
        "          CASE WHEN SUBSTRING(VS.UNIFORMCD, 2, 1) = 'B' THEN '1' "
        "               WHEN SUBSTRING(VS.UNIFORMCD, 2, 1) = 'G' THEN '2' END SCHDIV, "
        "          VS.UNIFORMCD, VS.YYYY, VS.SIZETAB, VS.SIZE, VS.CNT "
        "     FROM (SELECT LN.COMPANY, LN.STORECD, LN.SCHOOLCD, LN.UNIFORMCD, LN.YYYY, "
        "LN.SIZETAB, LN.SIZE, SUM(LN.CNT) CNT "
        "             FROM (SELECT OH.COMPANY, OH.STORECD, OH.SCHOOLCD, OD.UNIFORMCD, OD.YYYY, "
        "OD.SIZETAB, OD.SIZE, OD.CNT "
        "                     FROM S_ORDERHEAD OH {NL} CROSS JOIN S_ORDERDETAIL OD {NL} "
        "                    WHERE OD.COMPANY = OH.COMPANY AND OD.STORECD = OH.STORECD "
        "                      AND OD.SCHOOLCD = OH.SCHOOLCD AND OD.ORDDT = OH.ORDDT "
        "AND OD.ORDSEQ = OH.ORDSEQ "
        "                      AND {COUNTS} "
        "                   UNION ALL "
        "                   SELECT OH.COMPANY, OH.STORECD, OH.SCHOOLCD, OD.UNIFORMCD, OD.YYYY, "
        "OD.SIZETAB, OD.SIZE, -RP.RPCNT "
        "                     FROM (SELECT COMPANY, STORECD, ORDDT, ORDSEQ, PKEY, "
        "COUNT(RESERVEDT) RPCNT "
        "                             FROM S_REPAIRDETAIL {NL} "
        "                            WHERE ISNULL(RESERVEDT, '') > '' AND LEN(RESERVEDT) < 5 " // 예약 미확보분
        "                              AND COMPANY = {CO} AND STORECD = {ST} "
        "                            GROUP BY COMPANY, STORECD, ORDDT, ORDSEQ, PKEY) RP "
        "                     CROSS JOIN S_ORDERHEAD OH {NL} CROSS JOIN S_ORDERDETAIL OD {NL} "
        "                    WHERE OH.COMPANY = RP.COMPANY AND OH.STORECD = RP.STORECD "
        "                      AND OH.ORDDT = RP.ORDDT AND OH.ORDSEQ = RP.ORDSEQ "
        "                      AND OD.COMPANY = OH.COMPANY AND OD.STORECD = OH.STORECD "
        "                      AND OD.SCHOOLCD = OH.SCHOOLCD AND OD.ORDDT = OH.ORDDT "
        "AND OD.ORDSEQ = OH.ORDSEQ AND OD.PKEY = RP.PKEY "
        "                      AND {COUNTS} AND OD.CNT IS NOT NULL) LN "
        "            GROUP BY LN.COMPANY, LN.STORECD, LN.SCHOOLCD, LN.UNIFORMCD, LN.YYYY, "
        "LN.SIZETAB, LN.SIZE) VS "
        "     LEFT OUTER JOIN (SELECT COMPANY, {CODE} UNIFORMCD, MAX(SCHOOLCD) SCHOOLCD "
        "                        FROM C_SCHOOLUNIFORM SU {NL} "
        "                       WHERE RTRIM(SU.UNIFORMCOMSEQ) > '' "
        "                       GROUP BY COMPANY, {CODE}) SS "
        "       ON SS.COMPANY = VS.COMPANY AND SS.UNIFORMCD = RTRIM(VS.UNIFORMCD)) ");
    // Completed, billed and not cancelled slips of the store, lines of the report's years.
    sql.replace(QStringLiteral("{COUNTS}"),
                QStringLiteral("OH.STATNM = '완료' AND ISNULL(OH.BILLNO, '') > '' "
                               "AND ISNULL(OH.CANCELDT, '') = '' "
                               "AND OH.COMPANY = {CO} AND OH.STORECD = {ST} "
                               "AND OD.YYYY BETWEEN {FROM} AND {TO}"));
    sql.replace(QStringLiteral("{NL}"), nl);
    sql.replace(QStringLiteral("{CO}"), quoted(f.company));
    sql.replace(QStringLiteral("{ST}"), quoted(f.store));
    sql.replace(QStringLiteral("{FROM}"), quoted(f.yearFrom));
    sql.replace(QStringLiteral("{TO}"), quoted(f.yearTo));
    sql.replace(QStringLiteral("{CODE}"), itemFullCode(d, QStringLiteral("SU")));
    return sql;
}

// Every sellable line of the store with its labels: sales and receipts are read against it.
// Each step keeps to the report's model years itself, so that no step reads the store's other
// years only for the last one to drop them.
QString titleStep(const StockFilter& f, const Dialect& d) {
    return QStringLiteral(
               " V_Title AS ( "
               "   SELECT DISTINCT BS.SCHOOLCD, BS.SUDIVIDE, BS.CD, BS.COMPANY, BS.STORECD, "
               "BS.BSYYYY, "
               "          BS.SIZETAB, %1 "
               "     FROM C_UNIFORM UF %2, VIW_SCHUNIFOMSIZE2 BS %2 "
               "    WHERE UF.USEYN = 'Y' AND UF.COMPANY = BS.COMPANY AND UF.SIZETAB = BS.SIZETAB "
               "      AND BS.CD = %3 AND BS.COMPANY = %4 AND BS.STORECD = %5 "
               "      AND BS.BSYYYY BETWEEN %6 AND %7) ")
        .arg(eachSize(QStringLiteral("BS.C%1")), d.nolock(), itemFullCode(d, QStringLiteral("UF")),
             quoted(f.company), quoted(f.store), quoted(f.yearFrom), quoted(f.yearTo));
}

// Three legs over the same 24 positions: sales out, outbound rows out, opening stock and
// receipts in.
QString arithmeticStep(const StockFilter& f, const Dialect& d) {
    const QString nl = d.nolock();
    QString legs = QStringLiteral(
        "   SELECT VT.COMPANY, VT.STORECD, VT.SCHOOLCD, VT.SUDIVIDE, VT.CD, VT.BSYYYY YYYY, "
        "VT.SIZETAB, {SOLD}, {ZEROB}, "
        "          '' UPDDT "
        "     FROM V_Title VT "
        "     LEFT OUTER JOIN V_SALE VS ON VS.COMPANY = VT.COMPANY AND VS.STORECD = VT.STORECD "
        "      AND VS.SCHOOLCD = VT.SCHOOLCD AND VS.SCHDIV = VT.SUDIVIDE AND VS.UNIFORMCD = VT.CD "
        "      AND VS.YYYY = VT.BSYYYY "
        "   UNION ALL "
        "   SELECT DISTINCT OB.COMPANY, OB.STORECD, OB.SCHOOLCD, OB.SUDIVIDE, OB.UNIFORMCD, "
        "OB.OUTYYYY, VST.SIZETAB, "
        "          {OUT}, {ZEROB}, CASE WHEN OB.OUTBOUNDGB = 'D' THEN (OB.OUTBOUNDDT) ELSE '' END "
        "UPDDT "
        "     FROM T_OUTBOUND OB {NL} "
        "     LEFT OUTER JOIN VIW_SCHUNIFOMSIZE VST {NL} ON VST.COMPANY = OB.COMPANY AND "
        "VST.STORECD = OB.STORECD "
        "      AND VST.CD = OB.UNIFORMCD AND VST.BSYYYY = OB.OUTYYYY "
        "    WHERE VST.SIZETAB IS NOT NULL AND OB.COMPANY = {CO} AND OB.STORECD = {ST} "
        "      AND OB.OUTYYYY BETWEEN {FROM} AND {TO} "
        "   UNION ALL "
        "   SELECT AA.COMPANY, AA.STORECD, AA.SCHOOLCD, AA.SUDIVIDE, AA.CD, AA.BSYYYY, AA.SIZETAB, "
        "{ZEROO}, {IN}, '' "
        "     FROM V_Title AA "
        "     LEFT OUTER JOIN T_BASSTOCKQTY BS {NL} ON BS.COMPANY = AA.COMPANY AND BS.STORECD = "
        "AA.STORECD "
        "      AND BS.SCHOOLCD = AA.SCHOOLCD AND BS.UNIFORMCD = AA.CD AND BS.YYYY = AA.BSYYYY "
        "     LEFT OUTER JOIN T_INBOUND TIN {NL} ON TIN.COMPANY = AA.COMPANY AND TIN.STORECD = "
        "AA.STORECD "
        "      AND TIN.SCHOOLCD = AA.SCHOOLCD AND TIN.UNIFORMCD = AA.CD AND TIN.INYYYY = "
        "AA.BSYYYY ");
    legs.replace(
        QStringLiteral("{SOLD}"),
        eachSize(QStringLiteral(
            "CASE WHEN VT.C%1 = ISNULL(VS.SIZE, '') THEN ISNULL(VS.CNT, 0) ELSE 0 END O%1QTY")));
    legs.replace(QStringLiteral("{ZEROB}"), eachSize(QStringLiteral("0 B%1QTY")));
    legs.replace(QStringLiteral("{ZEROO}"), eachSize(QStringLiteral("0 O%1QTY")));
    legs.replace(QStringLiteral("{OUT}"), eachSize(QStringLiteral("ISNULL(OB.O%1, 0) O%1QTY")));
    legs.replace(QStringLiteral("{IN}"),
                 eachSize(QStringLiteral("ISNULL(BS.C%1, 0) + ISNULL(TIN.I%1, 0) B%1QTY")));
    legs.replace(QStringLiteral("{NL}"), nl);
    legs.replace(QStringLiteral("{CO}"), quoted(f.company));
    legs.replace(QStringLiteral("{ST}"), quoted(f.store));
    legs.replace(QStringLiteral("{FROM}"), quoted(f.yearFrom));
    legs.replace(QStringLiteral("{TO}"), quoted(f.yearTo));
    return QStringLiteral(
               " T_VIEW_STOCKQTY AS ( "
               "   SELECT COMPANY, STORECD, SCHOOLCD, SUDIVIDE, CD UNIFORMCD, YYYY, SIZETAB, %1, "
               "          MAX(UPDDT) UPDDT "
               "     FROM ( ")
               .arg(eachSize(QStringLiteral("SUM(B%1QTY) - SUM(O%1QTY) C%1QTY"))) +
           legs +
           QStringLiteral(
               " ) LEGS GROUP BY COMPANY, STORECD, SCHOOLCD, SUDIVIDE, CD, YYYY, SIZETAB) ");
}

// Names and filters: common items in the first leg, school items with the school filters in the
// second, so a school filter never hides common items.
QString namesStep(const StockFilter& f, StockReport report, const Dialect& d) {
    const QString nl = d.nolock();
    QString itemFilters;
    if (!f.sex.isEmpty()) {
        itemFilters += QStringLiteral(" AND UF.DIVIDE = ") + quoted(f.sex);
    }
    if (!f.season.isEmpty()) {
        itemFilters +=
            QStringLiteral(" AND UF.SEASON IN ('A', ") + quoted(f.season) + QStringLiteral(")");
    }
    itemFilters += f.subMain.isEmpty() ? QStringLiteral(" AND UF.SUBMAIN IN ('1', '2')")
                                       : QStringLiteral(" AND UF.SUBMAIN IN (") +
                                             quoted(f.subMain) + QStringLiteral(")");
    if (!f.uniform.isEmpty()) {
        itemFilters += QStringLiteral(" AND ") + itemBaseCode(d, QStringLiteral("UF")) +
                       QStringLiteral(" = ") + quoted(f.uniform);
    }
    QString schoolFilters;
    if (!f.school.isEmpty()) {
        schoolFilters = QStringLiteral(" AND SC.SCHOOLCD = ") + quoted(f.school);
    } else {
        if (!f.schoolLevel.isEmpty()) {
            schoolFilters += QStringLiteral(" AND CS.SCHOOLLEVEL = ") + quoted(f.schoolLevel);
        }
        if (f.contractRow == 2 || f.contractRow == 3) {
            schoolFilters +=
                QStringLiteral(" AND SC.SCHOOLCD ") +
                (f.contractRow == 2 ? QStringLiteral("NOT IN") : QStringLiteral("IN")) +
                QStringLiteral(" (SELECT SCHOOLCD FROM C_G2B %1 WHERE COMPANY = SC.COMPANY "
                               "AND BRANDCD = ST.BRANDCD AND YYYY = %2")
                    .arg(nl, quoted(f.currentYear)) +
                (f.season.isEmpty() ? QString()
                                    : QStringLiteral(" AND SEASON = ") + quoted(f.season)) +
                QStringLiteral(")");
        }
    }
    const QString yearName =
        report == StockReport::CarryOver ? QStringLiteral("BSYYYY") : QStringLiteral("YYYY");
    const auto leg = [&](bool common) -> QString {
        return QStringLiteral("   SELECT SC.SCHOOLCD, %1 SCHOOLNAME, "
                              "          CASE WHEN UF.DIVIDE = 'B' THEN '남' WHEN UF.DIVIDE = 'G' "
                              "THEN '여' END GRP_NAM, "
                              "          UF.UNIFORMNAME, SC.UNIFORMCD CD, ST.STORENAME, SC.YYYY "
                              "%2, UF.SEASON, UF.UNIFORMCOMSEQ, "
                              "          %3 SCHOOLLEVEL, SC.SIZETAB, %4, UF.SUBMAIN, UF.UNITYPE, "
                              "UF.DISP_SEQ, %5 VI_SEQ, SC.UPDDT "
                              "     FROM C_UNIFORM UF %6, T_VIEW_STOCKQTY SC "
                              "     LEFT OUTER JOIN C_SCHOOL CS %6 ON CS.COMPANY = SC.COMPANY AND "
                              "CS.SCHOOLCD = SC.SCHOOLCD, "
                              "          C_STORE ST %6 "
                              "    WHERE UF.USEYN = 'Y' AND UF.COMPANY = SC.COMPANY AND SC.STORECD "
                              "= ST.STORECD "
                              "      AND SC.COMPANY = ST.COMPANY AND %7 = SC.UNIFORMCD "
                              "      AND SC.COMPANY = %8 AND ST.BRANDCD = %9 AND SC.STORECD = %10 "
                              "      AND SC.YYYY BETWEEN %11 AND %12 ")
                   .arg(common ? QStringLiteral("'공통'") : QStringLiteral("CS.SCHOOLNAME"),
                        yearName, common ? QStringLiteral("'1'") : QStringLiteral("CS.SCHOOLLEVEL"),
                        eachSize(QStringLiteral("SC.C%1QTY")),
                        common ? QStringLiteral("1") : QStringLiteral("2"), nl,
                        itemFullCode(d, QStringLiteral("UF")), quoted(f.company), quoted(f.brand))
                   .arg(quoted(f.store), quoted(f.yearFrom), quoted(f.yearTo)) +
               itemFilters +
               (common ? QStringLiteral(" AND RTRIM(UF.UNIFORMCOMSEQ) > ''")
                       : schoolFilters + QStringLiteral(" AND RTRIM(UF.UNIFORMCOMSEQ) = ''"));
    };
    return QStringLiteral(" VIW_STOCK AS ( ") + leg(true) + QStringLiteral(" UNION ALL ") +
           leg(false) + QStringLiteral(" ) ");
}

} // namespace

QString stockStatement(const StockFilter& f, StockReport report, const Dialect& d) {
    const QString head = QStringLiteral(" WITH ") + saleStep(f, d) + QLatin1Char(',') +
                         titleStep(f, d) + QLatin1Char(',') + arithmeticStep(f, d) +
                         QLatin1Char(',') + namesStep(f, report, d);
    const QString sums = eachSize(QStringLiteral("SUM(VS.C%1QTY) C%1QTY"));
    const QString having = QStringLiteral(" HAVING ") +
                           eachSize(QStringLiteral("SUM(VS.C%1QTY) <> 0"), QStringLiteral(" OR "));
    const QString lastCorrection =
        QStringLiteral("CASE WHEN MAX(VS.UPDDT) = '1900-01-01 00:00:00.000' THEN '' ELSE "
                       "LEFT(MAX(VS.UPDDT), 10) END UPDDT");
    const QString yearRange = QStringLiteral(" YY.BSYYYY BETWEEN ") + quoted(f.yearFrom) +
                              QStringLiteral(" AND ") + quoted(f.yearTo);
    const QString thisYear =
        QStringLiteral("LEFT(") + d.ymd(QStringLiteral("GETDATE()")) + QStringLiteral(", 4)");
    const QString key = d.cat({QStringLiteral("VS.STORENAME"), QStringLiteral("VS.SCHOOLNAME")});
    const QString groups = QStringLiteral(
        "VS.STORENAME, VS.SCHOOLNAME, VS.GRP_NAM, VS.UNIFORMNAME, %1VS.SEASON, VI_SEQ, "
        "VS.SUBMAIN, VS.UNITYPE, VS.DISP_SEQ, VS.SCHOOLLEVEL");
    const QString order =
        QStringLiteral(" ORDER BY VI_SEQ, VS.SCHOOLLEVEL, VS.SCHOOLNAME, VS.GRP_NAM, VS.SEASON, "
                       "VS.SUBMAIN, VS.UNITYPE, VS.DISP_SEQ, VS.UNIFORMNAME");
    switch (report) {
    case StockReport::Split:
        return head + QStringLiteral(" SELECT ") + key +
               QStringLiteral(" MKEY, VS.STORENAME, VS.SCHOOLNAME, VS.GRP_NAM, "
                              "VS.UNIFORMNAME, ") +
               d.cat({QStringLiteral("SUBSTRING(RTRIM(YY.BSYYYY), 4, 1)"),
                      QStringLiteral("RTRIM(VS.SEASON)")}) +
               QStringLiteral(" ST, '' TOT, MAX(VS.SIZETAB) SIZETAB, ") + sums +
               QStringLiteral(", YY.BSYYYY, ") + lastCorrection +
               QStringLiteral(
                   " FROM VIW_BSYYYY YY LEFT OUTER JOIN VIW_STOCK VS ON YY.BSYYYY = VS.YYYY ") +
               QStringLiteral(" WHERE ") + yearRange + QStringLiteral(" GROUP BY ") +
               groups.arg(QStringLiteral("YY.BSYYYY, ")) + having + order +
               QStringLiteral(", YY.BSYYYY DESC");
    case StockReport::Merged:
        return head + QStringLiteral(" SELECT ") + key +
               QStringLiteral(" MKEY, VS.STORENAME, VS.SCHOOLNAME, VS.GRP_NAM, "
                              "VS.UNIFORMNAME, '통합' ST, '' TOT, "
                              "MAX(VS.SIZETAB) SIZETAB, ") +
               sums + QStringLiteral(", MAX(YY.BSYYYY) BSYYYY, ") + lastCorrection +
               QStringLiteral(
                   " FROM VIW_BSYYYY YY LEFT OUTER JOIN VIW_STOCK VS ON YY.BSYYYY = VS.YYYY ") +
               QStringLiteral(" WHERE ") + yearRange + QStringLiteral(" GROUP BY ") +
               groups.arg(QString()) + having + order;
    case StockReport::CarryOver:
        break;
    }
    // Lines of this calendar year and later by year; everything older as one carried-over line
    // shown under this year minus 3.
    const QString inner =
        QStringLiteral(" SELECT VS.STORENAME, VS.SCHOOLNAME, VS.GRP_NAM, VS.UNIFORMNAME, ") +
        QStringLiteral("CASE WHEN YY.BSYYYY >= %1 THEN ").arg(thisYear) +
        d.cat({QStringLiteral("SUBSTRING(RTRIM(YY.BSYYYY), 4, 1)"),
               QStringLiteral("RTRIM(VS.SEASON)")}) +
        QStringLiteral(" ELSE '이월' END ST, ") +
        QStringLiteral("CASE WHEN YY.BSYYYY >= %1 THEN YY.BSYYYY ELSE %1 - 3 END BSYYYY, ")
            .arg(thisYear) +
        QStringLiteral("VS.SEASON, MAX(VS.SIZETAB) SIZETAB, VI_SEQ, VS.SUBMAIN, VS.UNITYPE, "
                       "VS.DISP_SEQ, VS.SCHOOLLEVEL, ") +
        sums + QStringLiteral(", MAX(VS.UPDDT) UPDDT") +
        QStringLiteral(
            " FROM VIW_BSYYYY YY LEFT OUTER JOIN VIW_STOCK VS ON YY.BSYYYY = VS.BSYYYY ") +
        QStringLiteral(" WHERE ") + yearRange +
        QStringLiteral(" AND STORENAME IS NOT NULL GROUP BY ") +
        groups.arg(QStringLiteral("YY.BSYYYY, "));
    QString outerSums = eachSize(QStringLiteral("SUM(C%1QTY) C%1QTY"));
    return head + QStringLiteral(" SELECT ") +
           d.cat({QStringLiteral("STORENAME"), QStringLiteral("SCHOOLNAME")}) +
           QStringLiteral(
               " MKEY, STORENAME, SCHOOLNAME, GRP_NAM, UNIFORMNAME, ST, '' TOT, SIZETAB, ") +
           outerSums +
           QStringLiteral(", BSYYYY, CASE WHEN MAX(UPDDT) = '1900-01-01 00:00:00.000' THEN '' ELSE "
                          "LEFT(MAX(UPDDT), 10) "
                          "END UPDDT FROM (") +
           inner +
           QStringLiteral(") CO GROUP BY STORENAME, SCHOOLNAME, GRP_NAM, UNIFORMNAME, ST, BSYYYY, "
                          "SEASON, SIZETAB, VI_SEQ, "
                          "SUBMAIN, UNITYPE, DISP_SEQ, SCHOOLLEVEL ") +
           QStringLiteral(" HAVING ") +
           eachSize(QStringLiteral("SUM(C%1QTY) <> 0"), QStringLiteral(" OR ")) +
           QStringLiteral(" ORDER BY VI_SEQ, SCHOOLLEVEL, SCHOOLNAME, GRP_NAM, SEASON, SUBMAIN, "
                          "UNITYPE, DISP_SEQ, "
                          "UNIFORMNAME, BSYYYY DESC");
}

QString stockQuantitySteps(const StockFilter& f, const Dialect& d) {
    return saleStep(f, d) + QLatin1Char(',') + titleStep(f, d) + QLatin1Char(',') +
           arithmeticStep(f, d);
}
