#include "benchsupport.h"

#include "data/connectionconfig.h"
#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/embedded.h"
#include "data/schema/schema.h"
#include "data/schema/storefunctions.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"

#include <QDir>
#include <QElapsedTimer>

#include <cstdio>

void report(const char* name, double value, const char* unit) {
    std::printf("BENCH %s %.6g %s\n", name, value, unit);
    std::fflush(stdout);
}

void openBenchSession(const QString& subfolder) {
    const QString base = qEnvironmentVariable("TORVIX_BENCH_DIR", QDir::tempPath());
    const QString folder = QDir(base).filePath(subfolder);
    qputenv("TORVIX_HOME", folder.toUtf8());
    resetSession();
    Session& s = session();
    s.config = ConnectionConfig::load(folder);
    const QString problem = prepareEmbeddedDatabases(s.config, folder);
    if (!problem.isEmpty()) {
        std::fprintf(stderr, "%s\n", problem.toLocal8Bit().constData());
        std::exit(1);
    }
    s.gsCompany = QStringLiteral("01");
    s.gsUserId = QStringLiteral("bench");
    gfbConnectDB();
}

int benchScale() {
    bool ok = false;
    const int scale = qEnvironmentVariableIntValue("BENCH_SCALE", &ok);
    return ok && scale > 0 ? scale : kDemoBenchmarkScale;
}

void openBenchChain(const QString& folder, int scale) {
    constexpr int kNoLimitSeconds = 24 * 3600;
    QDir().mkpath(folder);
    try {
        SqliteDatabase db(QDir(folder).filePath(QStringLiteral("torvix.db")),
                          SqliteDatabase::OpenMode::CreateIfMissing, kNoLimitSeconds);
        registerStoreFunctions(db.handle());
        QElapsedTimer clock;
        clock.start();
        createSchema(db, QStringLiteral("TORVIX"));
        report("schema_s", clock.nsecsElapsed() / 1e9, "s");
        if (demoChainMissing(db)) {
            clock.restart();
            generateDemoChain(db, 1, scale);
            report("demo_chain_s", clock.nsecsElapsed() / 1e9, "s");
        }
    } catch (const DbError& error) {
        std::fprintf(stderr, "%s\n", error.description().toLocal8Bit().constData());
        std::exit(1);
    }
    openBenchSession(folder);
    // The questions that find the largest store read the whole history too.
    if (auto* db = dynamic_cast<SqliteDatabase*>(session().gDb.get())) {
        db->setStatementTimeout(kNoLimitSeconds);
    }
}
