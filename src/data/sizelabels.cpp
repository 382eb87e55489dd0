#include "data/sizelabels.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString sizeLabelColumn(int position) {
    return u"C%1"_s.arg(position, 2, 10, QLatin1Char('0'));
}

QString labelYearInForce(const QString& brand, const QString& year) {
    return u"(SELECT ISNULL(MAX(YYYY), YEAR(GETDATE())) FROM C_BRANDSIZE "_s + dialect().nolock() +
           whereCompany() + andEquals(u"BRANDCD"_s, brand) + u" AND YYYY    <= "_s + quoted(year) +
           u")"_s;
}

QString sizeLabelPairsSql(const QString& brand, const QString& year) {
    const QString nolock = dialect().nolock();
    QStringList empty, stored, maxima;
    for (int n = 1; n <= 24; ++n) {
        empty << u"'' "_s + sizeLabelColumn(n);
        stored << u"BS."_s + sizeLabelColumn(n);
        maxima << u"MAX(%1) %1"_s.arg(sizeLabelColumn(n));
    }
    // Every pair as an empty row, the stored rows beside them, one row a pair after grouping.
    return u" SELECT TEENSCOPE, GT27CD, SIZETAB, "_s + maxima.join(u", "_s) +
           u", MAX(DISP_SEQ) DISP_SEQ "_s + u"   FROM ( "_s +
           u"         SELECT GT27.GRP_NAM TEENSCOPE, GT27.S_GRP_COD GT27CD, GT26.S_GRP_COD "_s +
           u"SIZETAB, "_s + empty.join(u", "_s) + u", GT26.DISP_SEQ DISP_SEQ "_s +
           u"           FROM C_GONGTONG GT26"_s + nolock + u", C_GONGTONG GT27"_s + nolock +
           u"          WHERE GT26.L_GRP_COD = '26' AND GT27.L_GRP_COD = '27' "_s +
           u"         Union All "_s +
           u"         SELECT GT27.GRP_NAM, BS.TEENSCOPE, BS.SIZETAB, "_s + stored.join(u", "_s) +
           u", 0 "_s + u"           FROM C_BRANDSIZE BS"_s + nolock +
           u"           LEFT OUTER JOIN C_GONGTONG GT27"_s + nolock +
           u" ON GT27.L_GRP_COD = '27' AND GT27.S_GRP_COD = BS.TEENSCOPE "_s +
           u"          WHERE BS.COMPANY = "_s + quoted(session().gsCompany) +
           u"            AND BS.BRANDCD = "_s + quoted(brand) + u"            AND BS.YYYY = "_s +
           labelYearInForce(brand, year) + u"        ) A "_s +
           u"  GROUP BY TEENSCOPE, GT27CD, SIZETAB "_s + u"  ORDER BY TEENSCOPE, DISP_SEQ "_s;
}
