#include "data/dialect.h"

QString Dialect::cat(const QStringList& parts) const {
    return parts.join(isSqlServer() ? QStringLiteral(" + ") : QStringLiteral(" || "));
}

QString Dialect::toChar(const QString& expr, int width) const {
    const int n = width > 0 ? width : 30;
    if (isSqlServer()) {
        return width > 0 ? QStringLiteral("CONVERT(CHAR(%1), %2)").arg(n).arg(expr)
                         : QStringLiteral("CONVERT(CHAR, %1)").arg(expr);
    }
    // CHAR pads with blanks and cuts at its width.
    return QStringLiteral("SUBSTR(CAST(%1 AS TEXT) || REPLICATE(' ', %2), 1, %2)").arg(expr).arg(n);
}

QString Dialect::toVarchar(const QString& expr) const {
    return isSqlServer() ? QStringLiteral("CONVERT(VARCHAR, %1)").arg(expr)
                         : QStringLiteral("CAST(%1 AS TEXT)").arg(expr);
}

QString Dialect::ymd(const QString& expr) const {
    return isSqlServer() ? QStringLiteral("CONVERT(CHAR(8), %1, 112)").arg(expr)
                         : QStringLiteral("STRFTIME('%Y%m%d', %1)").arg(expr);
}

QString Dialect::iso(const QString& expr) const {
    return isSqlServer() ? QStringLiteral("CONVERT(VARCHAR, %1, 120)").arg(expr)
                         : QStringLiteral("STRFTIME('%Y-%m-%d %H:%M:%S', %1)").arg(expr);
}

QString Dialect::toInt(const QString& expr) const {
    return isSqlServer() ? QStringLiteral("CONVERT(INT, %1)").arg(expr)
                         : QStringLiteral("CAST(%1 AS INTEGER)").arg(expr);
}

QString Dialect::nolock() const {
    return isSqlServer() ? QStringLiteral(" WITH(NOLOCK) ") : QStringLiteral(" ");
}

QString Dialect::addDaysYmd(const QString& ymdExpr, const QString& days) const {
    if (isSqlServer()) {
        return QStringLiteral("CONVERT(CHAR(8), DATEADD(DAY, %2, CONVERT(DATETIME, %1)), 112)")
            .arg(ymdExpr, days);
    }
    return QStringLiteral("STRFTIME('%Y%m%d', SUBSTR(%1,1,4) || '-' || SUBSTR(%1,5,2) || '-' || "
                          "SUBSTR(%1,7,2), (%2) || ' days')")
        .arg(ymdExpr, days);
}

QString Dialect::listAgg(const QString& expr, const QString& separator) const {
    if (isSqlServer()) {
        return QStringLiteral("STRING_AGG(%1, '%2')").arg(expr, separator);
    }
    return QStringLiteral("GROUP_CONCAT(%1, '%2')").arg(expr, separator);
}

QString Dialect::topPrefix(int n) const {
    return isSqlServer() ? QStringLiteral(" TOP %1 ").arg(n) : QStringLiteral(" ");
}

QString Dialect::limitSuffix(int n) const {
    return isSqlServer() ? QString() : QStringLiteral(" LIMIT %1").arg(n);
}

QString Dialect::insertIfMissing(const QString& table, const QString& columns,
                                 const QString& values, const QString& existsWhere) const {
    return QStringLiteral("INSERT INTO %1 (%2) SELECT %3 WHERE NOT EXISTS (SELECT 1 FROM %1 WHERE %4)")
        .arg(table, columns, values, existsWhere);
}
