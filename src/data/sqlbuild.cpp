#include "data/sqlbuild.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/schema/schema.h"
#include "data/session.h"
#include "data/sqlvalue.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool hasColumn(const QString& table, const QString& column) {
    const TableDef* def = findTable(table);
    if (!def) {
        return false;
    }
    for (const ColumnDef& c : def->columns) {
        if (c.name == column) {
            return true;
        }
    }
    return false;
}

Assignments audit(const QString& table, const QStringList& stamps) {
    const QString user = quoted(session().gsUserId);
    Assignments out;
    for (const QString& stamp : stamps) {
        if (hasColumn(table, stamp + u"DT"_s)) {
            out.append({stamp + u"DT"_s, u"GETDATE()"_s});
        }
        if (hasColumn(table, stamp + u"USER"_s)) {
            out.append({stamp + u"USER"_s, user});
        }
    }
    return out;
}

QString padded(const QString& number, int width) {
    return u"RTRIM("_s +
           dialect().cat({u"REPLICATE('0', %1 - LEN(%2))"_s.arg(width).arg(number),
                          u" CAST(%1 AS CHAR)"_s.arg(number)}) +
           u")"_s;
}

} // namespace

QString sqlInsert(const QString& table, const Assignments& columns) {
    QStringList names, values;
    for (const Assignment& a : columns) {
        names << a.column;
        values << a.value;
    }
    return u" INSERT INTO "_s + table + u" ("_s + names.join(u", "_s) + u") "_s + u" VALUES ("_s +
           values.join(u", "_s) + u")"_s;
}

QString sqlUpdate(const QString& table, const Assignments& columns, const QString& where) {
    QStringList sets;
    for (const Assignment& a : columns) {
        sets << a.column + u" = "_s + a.value;
    }
    return u" UPDATE "_s + table + u" SET "_s + sets.join(u", "_s) + where;
}

Assignments auditOnInsert(const QString& table) {
    return audit(table, {u"REG"_s, u"UPD"_s});
}

Assignments auditOnUpdate(const QString& table) {
    return audit(table, {u"UPD"_s});
}

QString whereCompany() {
    return u"  WHERE COMPANY = "_s + quoted(session().gsCompany);
}

QString andEquals(const QString& column, const QString& value) {
    return u"    AND "_s + column + u" = "_s + quoted(value);
}

QString nextCodeByMax(const QString& table, const QString& column, int width,
                      const QString& scope) {
    return u"(SELECT "_s + padded(u"ISNULL(MAX(%1),0)+1"_s.arg(column), width) + u" FROM "_s +
           table + u" "_s + dialect().nolock() + scope + u")"_s;
}

QString nextCodeByCount(const QString& table, int width, const QString& scope) {
    return u"(SELECT "_s + padded(u"COUNT(*)+1"_s, width) + u" FROM "_s + table + u" "_s +
           dialect().nolock() + scope + u")"_s;
}

QString nextSequence(const QString& table, const QString& column, const QString& scope) {
    return u"(SELECT CASE WHEN COUNT(%1) = 0 THEN  1 ELSE MAX(%1) + 1 END FROM "_s.arg(column) +
           table + u" "_s + dialect().nolock() + scope + u")"_s;
}

QString quotedCompany() {
    return quoted(session().gsCompany);
}
