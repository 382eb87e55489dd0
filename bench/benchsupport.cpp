#include "benchsupport.h"

#include "data/connectionconfig.h"
#include "data/dbroutines.h"
#include "data/embedded.h"
#include "data/session.h"

#include <QDir>

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
