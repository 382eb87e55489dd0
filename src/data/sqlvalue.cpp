#include "data/sqlvalue.h"

QString quoted(const QString& value) {
    QString text = value;
    text.replace(QLatin1Char('\''), QStringLiteral("''"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString numeric(const QString& value) {
    QString text = value.trimmed();
    text.remove(QLatin1Char(','));
    bool ok = false;
    text.toDouble(&ok);
    return ok ? text : QStringLiteral("0");
}
