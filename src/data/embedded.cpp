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

QString prepare(const QString& target, const ConnectionConfig& config, const QString& database,
                DemoData demo = DemoData::Leave) {
    if (ConnectionConfig::isOdbc(target)) {
        return QString(); // the server's schema is the DBA's
    }
    const QString path = ConnectionConfig::sqlitePath(target);
    try {
        auto db = openDatabase(target, config, SqliteDatabase::OpenMode::CreateIfMissing);
        createSchema(*db, database);
        if (demo == DemoData::Fill && demoChainMissing(*db)) {
            generateDemoChain(*db, 1, 1);
        }
        return QString();
    } catch (const DbError& error) {
        return QStringLiteral("데이터베이스 파일을 사용할 수 없습니다.\r\n") +
               QDir::toNativeSeparators(path) + QStringLiteral("\r\n") + error.description();
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

QString prepareEmbeddedDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                 DemoData demo) {
    QDir folder(dataFolder);
    QTemporaryFile probe(folder.filePath(QStringLiteral(".write-test-XXXXXX")));
    if (!folder.mkpath(QStringLiteral(".")) || !probe.open()) {
        return QStringLiteral("자료 폴더에 쓸 수 없습니다.\r\n") +
               QDir::toNativeSeparators(dataFolder);
    }
    probe.close();
    writeDefaultIni(folder.filePath(QStringLiteral("Torvix.ini")));
    folder.mkpath(QStringLiteral("Report"));
    folder.mkpath(QStringLiteral("Report Form"));
    QString error = prepare(config.torvix, config, QStringLiteral("TORVIX"), demo);
    if (error.isEmpty()) {
        error = prepare(config.update, config, QStringLiteral("UPDATE"));
    }
    return error;
}
