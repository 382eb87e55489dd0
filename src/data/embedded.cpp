#include "data/embedded.h"

#include "data/connectionconfig.h"
#include "data/connections.h"
#include "data/demo/demochain.h"
#include "data/schema/schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>

namespace {

QString unusable(const QString& path, const QString& why) {
    return QStringLiteral("데이터베이스 파일을 사용할 수 없습니다.\r\n") +
           QDir::toNativeSeparators(path) + QStringLiteral("\r\n") + why;
}

QString prepare(const QString& target, bool configured, const ConnectionConfig& config,
                const QString& database, DemoData demo = DemoData::Leave) {
    if (ConnectionConfig::isOdbc(target)) {
        return QString(); // the server's schema is the DBA's
    }
    const QString path = ConnectionConfig::sqlitePath(target);
    if (configured && !QFileInfo(path).isFile()) {
        const QString key = database == QLatin1String("TORVIX") ? QStringLiteral("TORVIX")
                                                                : QStringLiteral("UPDATE");
        return QStringLiteral("설정된 데이터베이스 파일이 없습니다.\r\n") +
               QDir::toNativeSeparators(path) +
               QStringLiteral("\r\ndatabase.ini의 %1= 또는 환경변수 %2를 확인하십시오.")
                   .arg(key, key == QLatin1String("TORVIX") ? QStringLiteral("TORVIX_DB")
                                                            : QStringLiteral("TORVIX_UPDATE_DB"));
    }
    try {
        auto db = openDatabase(target, config,
                               configured ? SqliteDatabase::OpenMode::ExistingOnly
                                          : SqliteDatabase::OpenMode::CreateIfMissing);
        createSchema(*db, database);
        if (!configured && demo == DemoData::Fill && demoChainMissing(*db)) {
            generateDemoChain(*db, 1, 1);
        }
        return QString();
    } catch (const DbError& error) {
        return unusable(path, error.description());
    }
}

// A first start leaves the version and vendor that the caption and C_LOG show.
void writeDefaultIni(const QString& path) {
    if (QFile::exists(path)) {
        return;
    }
    QSettings ini(path, QSettings::IniFormat);
    ini.beginGroup(QStringLiteral("VERSION"));
    ini.setValue(QStringLiteral("VERSIONMAJOR"), 1);
    ini.setValue(QStringLiteral("VERSIONMINOR"), 0);
    ini.setValue(QStringLiteral("VERSIONREVISION"), 0);
    ini.setValue(QStringLiteral("VNDRNM"), QStringLiteral("TORVIX"));
    ini.endGroup();
}

} // namespace

PreparedDatabases prepareDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                   DemoData demo) {
    PreparedDatabases result;
    QDir folder(dataFolder);
    QTemporaryFile probe(folder.filePath(QStringLiteral(".write-test-XXXXXX")));
    if (!folder.mkpath(QStringLiteral(".")) || !probe.open()) {
        result.failure = QStringLiteral("자료 폴더에 쓸 수 없습니다.\r\n") +
                         QDir::toNativeSeparators(dataFolder);
        return result;
    }
    probe.close();
    writeDefaultIni(folder.filePath(QStringLiteral("Torvix.ini")));
    folder.mkpath(QStringLiteral("Report"));
    folder.mkpath(QStringLiteral("Report Form"));
    result.failure =
        prepare(config.torvix, config.torvixConfigured, config, QStringLiteral("TORVIX"), demo);
    if (result.failure.isEmpty()) {
        result.traceFailure =
            prepare(config.update, config.updateConfigured, config, QStringLiteral("UPDATE"));
    }
    return result;
}

QString prepareEmbeddedDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                 DemoData demo) {
    const PreparedDatabases prepared = prepareDatabases(config, dataFolder, demo);
    return prepared.failure.isEmpty() ? prepared.traceFailure : prepared.failure;
}
