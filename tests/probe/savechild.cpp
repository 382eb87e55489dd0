// The child of the kill probe (tests/data/faults_test.cpp). It serves forks: for each line "go"
// on its input it forks a saver and prints "pid N"; the saver opens the databases, prints
// "ready" and saves one brand's 24 size rows in one transaction, over and over, each save a new
// generation in C01, until it is killed. For "wait N" it reaps saver N and prints "gone".
// Forking from a process that holds no connection keeps each saver's start to a few
// milliseconds, so that the probe can kill dozens of them quickly.
// Usage: torvix_savechild DATA-FOLDER
#include "data/connectionconfig.h"
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlvalue.h"

#include <cstdio>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void save(const QString& folder) {
    Session& s = session();
    s.config = ConnectionConfig::load(folder);
    if (!gfbConnectDB()) {
        std::fprintf(stderr, "torvix_savechild: no database\n");
        _exit(1);
    }
    int generation = gfSelectValue(u"SELECT MAX(CAST(C01 AS INTEGER)) FROM C_BRANDSIZE "_s
                                   u"WHERE COMPANY = '01' AND BRANDCD = '99'"_s)
                         .toInt();
    std::printf("ready\n");
    std::fflush(stdout);
    for (;;) {
        ++generation;
        Transaction tx;
        bool ok = tx.ok() && gfbSqlExecuteDB(u"DELETE FROM C_BRANDSIZE WHERE COMPANY = '01' "_s
                                             u"AND BRANDCD = '99' AND YYYY = '2024'"_s);
        for (const QString& teens : {u"H"_s, u"M"_s, u"E"_s}) {
            for (const QChar tab : u"ABCDEFGH"_s) {
                ok = ok && gfbSqlExecuteDB(
                               u"INSERT INTO C_BRANDSIZE (COMPANY, BRANDCD, YYYY, TEENSCOPE, "_s
                               u"SIZETAB, C01) VALUES ('01', '99', '2024', "_s +
                               quoted(teens) + u", "_s + quoted(QString(tab)) + u", "_s +
                               quoted(QString::number(generation)) + u")"_s);
            }
        }
        if (ok) {
            tx.commit();
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: torvix_savechild DATA-FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    char line[64];
    while (std::fgets(line, sizeof line, stdin)) {
        if (std::strncmp(line, "go", 2) == 0) {
            std::fflush(stdout);
            const pid_t pid = fork();
            if (pid == 0) {
                save(folder);
            }
            std::printf("pid %d\n", int(pid));
        } else if (std::strncmp(line, "wait ", 5) == 0) {
            waitpid(pid_t(std::atoi(line + 5)), nullptr, 0);
            std::printf("gone\n");
        }
        std::fflush(stdout);
    }
    return 0;
}
