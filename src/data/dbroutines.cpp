#include "data/dbroutines.h"

#include "data/connections.h"
#include "data/database.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"

#include <utility>

namespace {

bool connect(std::unique_ptr<Database>& db, const QString& target) {
    if (db) {
        return true;
    }
    try {
        db = openDatabase(target, session().config);
        return true;
    } catch (const DbError&) {
        // The caller sees only the false; the first statement that checks it tells the user.
        db.reset();
        return false;
    }
}

bool blank(const QString& sql) {
    return sql.trimmed().isEmpty();
}

// The trace runs inside the save's write lock: it waits for another user's lock this long at
// most, and after such a wait it rests a while, so that a save of many statements waits once.
constexpr int kTraceLockWaitMs = 250;
constexpr int kTraceRestMs = 5000;

// A lost connection is dropped so that the next call connects anew.
void dropIfLost(const DbError& error, std::unique_ptr<Database>& db) {
    if (error.number() == ConnectionLost::GeneralFailure) {
        db.reset();
    }
}

} // namespace

bool gfbConnectDB() {
    return connect(session().gDb, session().config.torvix);
}

bool gfbConnectUpdateDB() {
    Session& s = session();
    if (s.traceOff) {
        return false;
    }
    const bool fresh = !s.gDbUpdate;
    if (!connect(s.gDbUpdate, s.config.update)) {
        return false;
    }
    if (fresh) {
        try {
            s.gDbUpdate->setLockWait(kTraceLockWaitMs);
        } catch (const DbError&) {
            // The engine's own limit stays; the trace is best effort either way.
        }
    }
    return true;
}

bool gfbSqlSelectDB(const QString& sql, RecordSet& rs, qint64& count) {
    if (blank(sql)) {
        gfsMessage(16);
        return false;
    }
    if (!gfbConnectDB()) {
        return false;
    }
    StatementWait wait;
    try {
        rs = session().gDb->select(sql);
        count = rs.recordCount();
        return true;
    } catch (const DbError& error) {
        gsErrorLog(error, QStringLiteral("basDatabase : gfbSqlSelectDB"), QString());
        dropIfLost(error, session().gDb);
        return false;
    }
}

bool gfbSqlSelectDB(const QString& sql, RecordSet& rs) {
    qint64 count = 0;
    return gfbSqlSelectDB(sql, rs, count);
}

QString gfSelectValue(const QString& sql) {
    RecordSet rs;
    if (!gfbSqlSelectDB(sql, rs) || rs.eof() || rs.fieldCount() == 0) {
        return {};
    }
    return rs.value(0);
}

bool gfbSqlExecuteDB(const QString& sql, qint64& affected) {
    if (blank(sql)) {
        gfsMessage(17);
        return false;
    }
    if (!gfbConnectDB()) {
        return false;
    }
    // The trace comes first and runs on its own connection, so it survives a failing statement
    // and a rolled-back transaction.
    QString traced = storable(sql);
    traced.replace(QLatin1Char('\''), QLatin1Char('`'));
    qint64 traceRows = 0;
    gfbSqlExecuteUpdateDB(QStringLiteral(" INSERT INTO SQLTEXT (SQLTEXT, REGDTTM) VALUES ('") +
                              traced + QStringLiteral("', ") +
                              (session().gDbUpdate && session().gDbUpdate->dialect().isSqlServer()
                                   ? QStringLiteral("convert(varchar, getdate(), 120)")
                                   : QStringLiteral("SUBSTR(GETDATE(), 1, 19)")) +
                              QStringLiteral(" )"),
                          traceRows);
    StatementWait wait;
    try {
        affected = session().gDb->execute(sql);
        return true;
    } catch (const DbError& error) {
        gsErrorLog(error, QStringLiteral("basDatabase : gfbSqlExecuteDB"), sql);
        dropIfLost(error, session().gDb);
        return false;
    }
}

bool gfbSqlExecuteDB(const QString& sql) {
    qint64 affected = 0;
    return gfbSqlExecuteDB(sql, affected);
}

bool gfbSqlExecuteUpdateDB(const QString& sql, qint64& affected) {
    if (blank(sql)) {
        gfsMessage(16);
        return false;
    }
    // Best effort: every failure here is ignored and the main statement goes on.
    Session& s = session();
    if (!s.traceRest.hasExpired() || !gfbConnectUpdateDB()) {
        return false;
    }
    try {
        affected = s.gDbUpdate->execute(sql);
        return true;
    } catch (const DbError& error) {
        if (error.cause() == DbError::Cause::Busy) {
            s.traceRest = QDeadlineTimer(kTraceRestMs);
        }
        dropIfLost(error, s.gDbUpdate);
        return false;
    }
}

QString gfRdoGetDbSysDate() {
    RecordSet rs;
    const QString sql = QStringLiteral(" select /* basCommon gfRdoGetDbSysDate 1 */  ") +
                        (gfbConnectDB() && dialect().isSqlServer()
                             ? QStringLiteral(" convert(char,getdate(),121) as DBDATE ")
                             : QStringLiteral(" GETDATE() as DBDATE "));
    if (!gfbSqlSelectDB(sql, rs) || rs.eof()) {
        return QString();
    }
    QString date = rs.field(QStringLiteral("DBDATE"));
    date.remove(QLatin1Char('-')).remove(QLatin1Char(' ')).remove(QLatin1Char(':'));
    return date.left(8);
}

Database& gDb() {
    return *session().gDb;
}

namespace {
const Dialect* spelledAs = nullptr;
} // namespace

const Dialect& dialect() {
    static const Dialect embedded(Dialect::Engine::Sqlite);
    if (spelledAs) {
        return *spelledAs;
    }
    return session().gDb ? session().gDb->dialect() : embedded;
}

ScopedDialect::ScopedDialect(const Dialect& dialect) : m_previous(spelledAs) {
    spelledAs = &dialect;
}

ScopedDialect::~ScopedDialect() {
    spelledAs = m_previous;
}

Transaction::Transaction() {
    if (!gfbConnectDB()) {
        return;
    }
    try {
        session().gDb->begin();
        m_open = true;
    } catch (const DbError& error) {
        gsErrorLog(error, QStringLiteral("basDatabase : BeginTrans"), QString());
    }
}

Transaction::~Transaction() {
    rollback();
}

bool Transaction::commit() {
    if (!m_open) {
        return false;
    }
    m_open = false;
    try {
        session().gDb->commit();
        gsFlushErrorLog();
        return true;
    } catch (const DbError& error) {
        session().gDb->rollback();
        gsErrorLog(error, QStringLiteral("basDatabase : CommitTrans"), QString());
        gsFlushErrorLog();
        return false;
    }
}

void Transaction::rollback() {
    if (!m_open || !session().gDb) {
        m_open = false;
        return;
    }
    m_open = false;
    try {
        session().gDb->rollback();
    } catch (const DbError&) {
        // A rollback that cannot run leaves nothing to undo.
    }
    gsFlushErrorLog();
}
