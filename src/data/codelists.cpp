#include "data/codelists.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/session.h"
#include "data/sqlvalue.h"

void CodeArray::reset(const QString& blank) {
    codes = {blank};
    displays = {blank};
    names = {blank};
}

void CodeArray::append(const QString& code, const QString& display, const QString& name) {
    codes << code;
    displays << display;
    names << name;
}

namespace {

QString company() { return quoted(session().gsCompany); }

QString bracketed(const QString& code, const QString& name) {
    return dialect().cat({QStringLiteral("'['"), code, QStringLiteral("']'"), name});
}

} // namespace

QString codeListSql(const QString& kind, const QString& brandCode) {
    const QString nolock = dialect().nolock();
    if (kind == QStringLiteral("SCHOOL")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode SCHOOL */ ") +
               QStringLiteral("        DISTINCT SCHOOLCD, SCHOOLNAME, '' ") +
               QStringLiteral("   FROM C_SCHOOL") + nolock + QStringLiteral("  WHERE USEYN = 'Y' ") +
               QStringLiteral("    AND COMPANY = ") + company() + QStringLiteral("  ORDER BY 2");
    }
    if (kind == QStringLiteral("BRD")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode BRD */ ") +
               QStringLiteral("        DISTINCT BRANDCD, BRANDNAME, '' ") +
               QStringLiteral("   FROM C_BRAND") + nolock + QStringLiteral("  WHERE USEYN = 'Y' ") +
               QStringLiteral("    AND COMPANY = ") + company() + QStringLiteral("  ORDER BY 2");
    }
    const QString storeJoin = QStringLiteral("   FROM C_STORE CS") + nolock +
                              QStringLiteral(", C_BRAND CB") + nolock +
                              QStringLiteral("  WHERE CS.COMPANY = CB.COMPANY ") +
                              QStringLiteral("    AND CS.BRANDCD = CB.BRANDCD ") +
                              QStringLiteral("    AND CS.COMPANY = ") + company() +
                              QStringLiteral("    AND CS.USEYN = 'Y' ");
    if (kind == QStringLiteral("STORE")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode STORE */ ") +
               QStringLiteral("        DISTINCT CB.BRANDCD, CB.BRANDNAME, '' ") + storeJoin +
               QStringLiteral("  ORDER BY 2");
    }
    if (kind == QStringLiteral("STORE2") || kind == QStringLiteral("BRDSTORE")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode STORE2 */ ") +
               QStringLiteral("        DISTINCT CS.STORECD, CS.STORENAME, CB.BRANDNAME ") +
               storeJoin +
               (kind == QStringLiteral("BRDSTORE")
                    ? QStringLiteral("    AND CS.BRANDCD = ") + quoted(brandCode) + QLatin1Char(' ')
                    : QString()) +
               QStringLiteral("  ORDER BY 2");
    }
    if (kind == QStringLiteral("STORE3")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode STORE3 */ ") +
               QStringLiteral("        DISTINCT CS.STORECD, CS.STORENAME, 'S' GUBUN  ") +
               QStringLiteral("   FROM C_STORE CS") + nolock + QStringLiteral("  WHERE CS.COMPANY = ") +
               company() + QStringLiteral("    AND CS.USEYN = 'Y' ") + QStringLiteral(" UNION ALL ") +
               QStringLiteral(" SELECT ") + QStringLiteral("        DISTINCT CB.BRANDCD, CB.BRANDNAME, 'B' ") +
               QStringLiteral("   FROM C_BRAND CB") + nolock + QStringLiteral("  WHERE CB.COMPANY = ") +
               company() + QStringLiteral("    AND CB.USEYN = 'Y' ") + QStringLiteral("  ORDER BY 3 DESC, 2 ");
    }
    const QString group = quoted(kind.right(2));
    if (kind == QStringLiteral("CGT01")) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCode COMMCODE */ ") +
               QStringLiteral("        S_GRP_COD, ") +
               bracketed(QStringLiteral("S_GRP_COD"), QStringLiteral("GRP_NAM")) +
               QStringLiteral(", GRP_NAM ") + QStringLiteral(" FROM   C_COMCODE") + nolock +
               QStringLiteral(" WHERE  L_GRP_COD = ") + group + QStringLiteral("   AND  COMPANY = ") +
               company() + QStringLiteral("   AND  USEYN = 'Y' ") +
               QStringLiteral(" ORDER BY DISP_SEQ, S_GRP_COD ");
    }
    return QStringLiteral(" SELECT /* baseReadCode gsReadCode GONGTONG */ ") +
           QStringLiteral("        S_GRP_COD, ") +
           bracketed(QStringLiteral("S_GRP_COD"), QStringLiteral("GRP_NAM")) +
           QStringLiteral(", GRP_NAM ") + QStringLiteral("   FROM C_GONGTONG") + nolock +
           QStringLiteral("  WHERE L_GRP_COD = ") + group + QStringLiteral("    AND  USEYN = 'Y' ") +
           QStringLiteral("  ORDER BY DISP_SEQ, S_GRP_COD ");
}

QString codeOptionsSql(const QString& kind) {
    const QString group = quoted(kind.right(2));
    const QString columns = QStringLiteral("        S_GRP_COD, ") +
                            bracketed(QStringLiteral("S_GRP_COD"), QStringLiteral("GRP_NAM")) +
                            QStringLiteral(", GRP_NAM ");
    if (kind.startsWith(QLatin1Char('C'))) {
        return QStringLiteral(" SELECT /* baseReadCode gsReadCodeOptions C */ ") + columns +
               QStringLiteral(" FROM   C_COMCODE ") + QStringLiteral(" WHERE  L_GRP_COD = ") + group +
               QStringLiteral("   AND  COMPANY = ") + company() +
               QStringLiteral("   AND  USEYN = 'Y' ") + QStringLiteral(" ORDER BY DISP_SEQ, S_GRP_COD ");
    }
    // "E" shows stopped codes too: the filter stays in the text, commented out.
    const QString useFilter = kind.startsWith(QLatin1Char('E'))
                                  ? QStringLiteral("\n ----  AND  USEYN = 'Y' \n")
                                  : QStringLiteral("    AND  USEYN = 'Y' ");
    return QStringLiteral(" SELECT /* baseReadCode gsReadCodeOptions G */ ") + columns +
           QStringLiteral("   FROM C_GONGTONG ") + QStringLiteral("  WHERE L_GRP_COD = ") + group +
           useFilter + QStringLiteral("  ORDER BY DISP_SEQ, S_GRP_COD ");
}
