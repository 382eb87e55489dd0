#include "data/sqlvalue.h"

#include <algorithm>

QString storable(const QString& value) {
    const auto unwanted = [](QChar c) {
        return c.unicode() < 0x20 && c != QLatin1Char('\t') && c != QLatin1Char('\r') &&
               c != QLatin1Char('\n');
    };
    if (std::none_of(value.cbegin(), value.cend(), unwanted)) {
        return value;
    }
    QString text = value;
    text.removeIf(unwanted);
    return text;
}

QString quoted(const QString& value) {
    QString text = storable(value);
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
