#include "data/itemcode.h"

#include "data/dialect.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString column(const QString& alias, const char* name) {
    return alias.isEmpty() ? QString::fromLatin1(name) : alias + u'.' + QString::fromLatin1(name);
}

QStringList baseParts(const Dialect& d, const QString& alias) {
    return {u"RTRIM(%1)"_s.arg(column(alias, "SEASON")),
            u"RTRIM(%1)"_s.arg(column(alias, "DIVIDE")),
            d.toChar(u"RTRIM(%1)"_s.arg(column(alias, "UNIFORMSEQ")), 2)};
}

} // namespace

QString itemBaseCode(const Dialect& d, const QString& alias) {
    return d.cat(baseParts(d, alias));
}

QString itemFullCode(const Dialect& d, const QString& alias) {
    return d.cat(baseParts(d, alias) << u"RTRIM(%1)"_s.arg(column(alias, "UNIFORMCOMSEQ")));
}

QString itemListCode(const Dialect& d, const QString& alias) {
    return d.cat({u"RTRIM(%1)"_s.arg(column(alias, "SEASON")),
                  u"RTRIM(%1)"_s.arg(column(alias, "DIVIDE")),
                  u"RTRIM(%1)"_s.arg(column(alias, "UNIFORMSEQ"))});
}

QString itemJoinCode(const Dialect& d, const QString& alias) {
    return d.cat({column(alias, "SEASON"), column(alias, "DIVIDE"), column(alias, "UNIFORMSEQ"),
                  column(alias, "UNIFORMCOMSEQ")});
}

QString itemJoin(const Dialect& d, const QString& alias, const QString& otherAlias,
                 const QString& otherCode) {
    return column(alias, "COMPANY") + u" = "_s + column(otherAlias, "COMPANY") + u" AND "_s +
           itemFullCode(d, alias) + u" = "_s + otherAlias + u'.' + otherCode;
}
