#include "data/connectionconfig.h"

#include <QDir>
#include <QSettings>

namespace {
QString fromEnvironment(const char* name) { return qEnvironmentVariable(name).trimmed(); }
} // namespace

ConnectionConfig ConnectionConfig::load(const QString& dataFolder) {
    ConnectionConfig config;
    const QString iniPath = QDir(dataFolder).filePath(QStringLiteral("database.ini"));
    if (QFile::exists(iniPath)) {
        QSettings ini(iniPath, QSettings::IniFormat);
        ini.beginGroup(QStringLiteral("DATABASE"));
        config.torvix = ini.value(QStringLiteral("TORVIX")).toString().trimmed();
        config.update = ini.value(QStringLiteral("UPDATE")).toString().trimmed();
        config.statementTimeoutSeconds =
            ini.value(QStringLiteral("STATEMENT_TIMEOUT"), 90).toInt();
        ini.endGroup();
    }
    if (!fromEnvironment("TORVIX_DB").isEmpty()) {
        config.torvix = fromEnvironment("TORVIX_DB");
    }
    if (!fromEnvironment("TORVIX_UPDATE_DB").isEmpty()) {
        config.update = fromEnvironment("TORVIX_UPDATE_DB");
    }
    bool ok = false;
    const int timeout = fromEnvironment("TORVIX_STATEMENT_TIMEOUT").toInt(&ok);
    if (ok && timeout > 0) {
        config.statementTimeoutSeconds = timeout;
    }
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
