#include "data/connectionconfig.h"

#include <QDir>
#include <QFile>
#include <QHash>

namespace {

QString fromEnvironment(const char* name) { return qEnvironmentVariable(name).trimmed(); }

// The keys of one section of an ini file, each value the whole rest of its line. A connection
// string is written unquoted, with ";" between its keys and "," in its values, and a Windows
// path has backslashes: a general ini reader takes ";" for a comment, "," for a list and "\" for
// an escape. A value in double quotes loses them. Section and key names ignore case.
QHash<QString, QString> iniSection(const QString& path, const QString& section) {
    QHash<QString, QString> values;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return values;
    }
    bool inSection = false;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (QString line : lines) {
        line = line.trimmed();
        if (line.startsWith(QChar(0xFEFF))) {
            line = line.mid(1).trimmed();
        }
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')) ||
            line.startsWith(QLatin1Char('#'))) {
            continue;
        }
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            inSection =
                line.mid(1, line.size() - 2).trimmed().compare(section, Qt::CaseInsensitive) == 0;
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (!inSection || equals <= 0) {
            continue;
        }
        QString value = line.mid(equals + 1).trimmed();
        if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) &&
            value.endsWith(QLatin1Char('"'))) {
            value = value.mid(1, value.size() - 2);
        }
        values.insert(line.left(equals).trimmed().toUpper(), value);
    }
    return values;
}

} // namespace

ConnectionConfig ConnectionConfig::load(const QString& dataFolder) {
    ConnectionConfig config;
    const QHash<QString, QString> ini = iniSection(
        QDir(dataFolder).filePath(QStringLiteral("database.ini")), QStringLiteral("DATABASE"));
    config.torvix = ini.value(QStringLiteral("TORVIX"));
    config.update = ini.value(QStringLiteral("UPDATE"));
    bool ok = false;
    if (const int timeout = ini.value(QStringLiteral("STATEMENT_TIMEOUT")).toInt(&ok);
        ok && timeout > 0) {
        config.statementTimeoutSeconds = timeout;
    }
    if (!fromEnvironment("TORVIX_DB").isEmpty()) {
        config.torvix = fromEnvironment("TORVIX_DB");
    }
    if (!fromEnvironment("TORVIX_UPDATE_DB").isEmpty()) {
        config.update = fromEnvironment("TORVIX_UPDATE_DB");
    }
    const int timeout = fromEnvironment("TORVIX_STATEMENT_TIMEOUT").toInt(&ok);
    if (ok && timeout > 0) {
        config.statementTimeoutSeconds = timeout;
    }
    config.torvixConfigured = !config.torvix.isEmpty();
    config.updateConfigured = !config.update.isEmpty();
    if (config.torvix.isEmpty()) {
        config.torvix = QDir(dataFolder).filePath(QStringLiteral("torvix.db"));
    }
    if (config.update.isEmpty()) {
        config.update = QDir(dataFolder).filePath(QStringLiteral("update.db"));
    }
    return config;
}

bool ConnectionConfig::isOdbc(const QString& target) {
    return target.startsWith(QStringLiteral("odbc:"), Qt::CaseInsensitive);
}

QString ConnectionConfig::sqlitePath(const QString& target) {
    return target.startsWith(QStringLiteral("sqlite:"), Qt::CaseInsensitive) ? target.mid(7)
                                                                             : target;
}
