// torvix-demo --scale N --out DIR [--seed S] [--date YYYY-MM-DD]: writes a demo chain into
// DIR/torvix.db (schema, then the chain) and prints the time taken and the rows per table.
// torvix-demo --ddl sqlserver|sqlite: prints the DDL of both databases (TORVIX and UPDATE).

#include "data/demo/ddlscript.h"
#include "data/demo/demochain.h"
#include "data/recordset.h"
#include "data/schema/schema.h"
#include "data/schema/storefunctions.h"
#include "data/sqlitedatabase.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("torvix-demo"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a deterministic demo chain."));
    parser.addHelpOption();
    const QCommandLineOption scaleOption(QStringLiteral("scale"),
                                         QStringLiteral("Size of the chain (1 = small; %1 = "
                                                        "benchmark size).")
                                             .arg(kDemoBenchmarkScale),
                                         QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption outOption(QStringLiteral("out"),
                                       QStringLiteral("Folder for torvix.db (replaced)."),
                                       QStringLiteral("DIR"), QStringLiteral("."));
    const QCommandLineOption seedOption(QStringLiteral("seed"), QStringLiteral("Random seed."),
                                        QStringLiteral("S"), QStringLiteral("1"));
    const QCommandLineOption dateOption(QStringLiteral("date"),
                                        QStringLiteral("Last day of the chain's history "
                                                       "(default today)."),
                                        QStringLiteral("YYYY-MM-DD"));
    const QCommandLineOption ddlOption(QStringLiteral("ddl"),
                                       QStringLiteral("Print the DDL of both databases for the "
                                                      "engine (sqlserver or sqlite) and end."),
                                       QStringLiteral("ENGINE"));
    parser.addOptions({scaleOption, outOption, seedOption, dateOption, ddlOption});
    parser.process(app);

    if (parser.isSet(ddlOption)) {
        const QString engine = parser.value(ddlOption);
        if (engine != QLatin1String("sqlserver") && engine != QLatin1String("sqlite")) {
            std::fprintf(stderr, "torvix-demo: --ddl takes sqlserver or sqlite\n");
            return 2;
        }
        const QByteArray text =
            engine == QLatin1String("sqlserver") ? serverDdlFile() : sqliteDdlScript().toUtf8();
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        return 0;
    }

    bool ok = false;
    const int scale = parser.value(scaleOption).toInt(&ok);
    if (!ok || scale < 1) {
        std::fprintf(stderr, "torvix-demo: --scale takes a whole number of 1 or more\n");
        return 2;
    }
    const int seed = parser.value(seedOption).toInt(&ok);
    if (!ok) {
        std::fprintf(stderr, "torvix-demo: --seed takes a whole number\n");
        return 2;
    }
    QDate today = QDate::currentDate();
    if (parser.isSet(dateOption)) {
        today = QDate::fromString(parser.value(dateOption), Qt::ISODate);
        if (!today.isValid()) {
            std::fprintf(stderr, "torvix-demo: --date takes YYYY-MM-DD\n");
            return 2;
        }
    }
    QDir out(parser.value(outOption));
    if (!out.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "torvix-demo: cannot make %s\n", qPrintable(out.path()));
        return 1;
    }
    const QString path = out.filePath(QStringLiteral("torvix.db"));
    for (const char* suffix : {"", "-wal", "-shm"}) {
        QFile::remove(path + QString::fromLatin1(suffix));
    }

    try {
        QElapsedTimer clock;
        clock.start();
        // One statement of a large chain runs longer than the program's 90 s limit on a slow
        // or busy machine: the generator waits for it.
        SqliteDatabase db(path, SqliteDatabase::OpenMode::CreateIfMissing, 24 * 60 * 60);
        registerStoreFunctions(db.handle());
        createSchema(db, QStringLiteral("TORVIX"));
        generateDemoChain(db, seed, scale, today);
        db.execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        const qint64 ms = clock.elapsed();
        std::printf("scale %d, seed %d, last day %s: %.2f s, %s (%.1f MB)\n", scale, seed,
                    qPrintable(today.toString(Qt::ISODate)), ms / 1000.0, qPrintable(path),
                    QFileInfo(path).size() / 1048576.0);
        for (const TableDef& table : schemaTables()) {
            if (table.database != QLatin1String("TORVIX")) {
                continue;
            }
            const RecordSet rs = db.select(QStringLiteral("SELECT COUNT(*) FROM ") + table.name);
            std::printf("  %-24s %10s\n", qPrintable(table.name), qPrintable(rs.at(0, 0)));
        }
    } catch (const DbError& error) {
        std::fprintf(stderr, "torvix-demo: %s\n", qPrintable(error.description()));
        return 1;
    }
    return 0;
}
