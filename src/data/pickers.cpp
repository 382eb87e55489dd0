#include "data/pickers.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/sqlvalue.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace {

QString levelAndStore(const PickerScope& s) {
    QString sql;
    if (s.schoolLevel >= 1 && s.schoolLevel <= 3) {
        sql += u" AND SC.SCHOOLLEVEL IN ('%1')"_s.arg(s.schoolLevel);
    }
    if (!s.store.isEmpty()) {
        sql += u" AND ST.STORECD = "_s + quoted(s.store);
    }
    if (!s.brand.isEmpty()) {
        sql += u" AND ST.BRANDCD = "_s + quoted(s.brand);
    }
    return sql;
}

} // namespace

QString schoolPickerSql(const PickerScope& s) {
    QString sql =
        u" SELECT DISTINCT SC.SCHOOLCD, SC.SCHOOLNAME FROM C_SCHOOL SC %1, C_STORE ST %1, "
        "C_STORESCHOOL SS %1 WHERE SC.COMPANY = ST.COMPANY AND SS.COMPANY = SC.COMPANY "
        "AND SS.STORECD = ST.STORECD AND SS.SCHOOLCD = SC.SCHOOLCD AND SC.USEYN = 'Y' "
        "AND ST.USEYN = 'Y' AND SS.USEYN = 'Y' AND SC.COMPANY = %2"_s.arg(dialect().nolock(),
                                                                          quoted(s.company));
    if (s.schoolLevel >= 1 && s.schoolLevel <= 3) {
        sql += u" AND SC.SCHOOLLEVEL IN ('%1')"_s.arg(s.schoolLevel);
    }
    if (s.sex == u"B"_s) {
        sql += u" AND SC.SCHOOLDIVIDE IN ('1','3')"_s;
    } else if (s.sex == u"G"_s) {
        sql += u" AND SC.SCHOOLDIVIDE IN ('2','3')"_s;
    }
    PickerScope stores = s;
    stores.schoolLevel = 0;
    sql += levelAndStore(stores);
    if (s.contractRow == 2 || s.contractRow == 3) {
        const QString today = quoted(QDate::currentDate().toString(u"yyyy-MM-dd"_s));
        sql += u" AND SC.SCHOOLCD "_s + (s.contractRow == 2 ? u"NOT IN"_s : u"IN"_s) +
               u" (SELECT SCHOOLCD FROM C_G2B WHERE COMPANY = SC.COMPANY AND YYYY = "_s +
               quoted(s.contractYear) +
               (s.season.isEmpty() ? QString() : u" AND SEASON = "_s + quoted(s.season)) +
               u" AND "_s + today + u" BETWEEN STARTDT AND ENDDT)"_s;
    }
    return sql + u" ORDER BY SC.SCHOOLNAME"_s;
}

QString itemPickerSql(const PickerScope& s) {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    // Code first, then the name: the order of every picker's rows.
    QString sql = u" SELECT DISTINCT "_s + itemBaseCode(d, u"UN"_s) +
                  u" CD, UN.UNIFORMNAME, UN.SUBMAIN, UN.UNITYPE FROM C_UNIFORM UN "_s + nl +
                  u" WHERE UN.COMPANY = "_s + quoted(s.company) +
                  u" AND UN.UNIFORMCOMSEQ = '' AND UN.USEYN = 'Y'"_s;
    // Only the items that the schools of the chosen store (brand, level) offer.
    sql += u" AND EXISTS (SELECT 1 FROM C_SCHOOLUNIFORM SU %1, C_STORESCHOOL SS %1, "
           "C_STORE ST %1, C_SCHOOL SC %1 WHERE SU.COMPANY = UN.COMPANY "
           "AND SU.SEASON = UN.SEASON AND SU.DIVIDE = UN.DIVIDE "
           "AND SU.UNIFORMSEQ = UN.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = '' "
           "AND SU.USEYN = 'Y' AND SS.COMPANY = SU.COMPANY "
           "AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.USEYN = 'Y' "
           "AND ST.COMPANY = SS.COMPANY AND ST.STORECD = SS.STORECD "
           "AND SC.COMPANY = SS.COMPANY AND SC.SCHOOLCD = SS.SCHOOLCD"_s.arg(nl) +
           levelAndStore(s) + u")"_s;
    if (!s.subMain.isEmpty()) {
        sql += u" AND UN.SUBMAIN IN ("_s + quoted(s.subMain) + u")"_s;
    }
    if (s.sex == u"B"_s || s.sex == u"G"_s) {
        sql += u" AND (UN.DIVIDE = "_s + quoted(s.sex) + u" OR UN.MIXUNIFORM = '1')"_s;
    }
    if (s.season == u"N"_s || s.season == u"S"_s) {
        sql += u" AND UN.SEASON IN ("_s + quoted(s.season) + u",'A')"_s;
    }
    return sql + u" ORDER BY UN.SUBMAIN, UN.UNITYPE, UN.UNIFORMNAME"_s;
}
