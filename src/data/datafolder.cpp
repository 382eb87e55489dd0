#include "data/datafolder.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

QString dataFolder() {
    QString folder = qEnvironmentVariable("TORVIX_HOME");
    if (folder.isEmpty()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                 QStringLiteral("/Torvix");
    }
    return QDir::cleanPath(folder);
}

QString dataFile(const QString& name) { return QDir(dataFolder()).filePath(name); }

QString iniVersionValue(const QString& key) {
    const QString path = dataFile(QStringLiteral("Torvix.ini"));
    if (!QFile::exists(path)) {
        return QString();
    }
    QSettings ini(path, QSettings::IniFormat);
    // The old reader took at most 29 characters into its 30-character buffer.
    return ini.value(QStringLiteral("VERSION/") + key).toString().left(29).trimmed();
}

QString versionString() {
    return QStringLiteral("ver. ") + iniVersionValue(QStringLiteral("VERSIONMAJOR")) +
           QLatin1Char('.') + iniVersionValue(QStringLiteral("VERSIONMINOR")) + QLatin1Char('.') +
           iniVersionValue(QStringLiteral("VERSIONREVISION"));
}
