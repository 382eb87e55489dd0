#include "data/sqlitedatabase.h"

#include "data/schema/storefunctions.h"
#include "data/sqlitefunctions.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace {

bool isLostConnection(int code) {
    switch (code & 0xff) {
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return true;
    default:
        return false;
    }
}

// Finalises a statement on every path out of a scope.
struct Statement {
    sqlite3_stmt* stmt = nullptr;
    ~Statement() { sqlite3_finalize(stmt); }
};

} // namespace

SqliteDatabase::SqliteDatabase(const QString& path, OpenMode mode, int statementTimeoutSeconds)
    : m_path(path), m_timeoutMs(qint64(statementTimeoutSeconds) * 1000) {
    int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX;
    if (mode == OpenMode::CreateIfMissing) {
        flags |= SQLITE_OPEN_CREATE;
    }
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &m_db, flags, nullptr);
    if (rc != SQLITE_OK) {
        const QString text = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
        sqlite3_close(m_db);
        m_db = nullptr;
        throw ConnectionLost(text + QStringLiteral(": ") + path);
    }
    sqlite3_extended_result_codes(m_db, 1);
    // Several program instances may share one file: wait for a writer rather than fail.
    setLockWait(int(qMin<qint64>(m_timeoutMs, 90000)));
    sqlite3_progress_handler(m_db, 4000, &SqliteDatabase::progress, this);
    registerTsqlFunctions(m_db);
    registerStoreFunctions(m_db);
    try {
        // Reading the journal mode touches the file header: a file that is no database fails here.
        execute(QStringLiteral("PRAGMA journal_mode=WAL; PRAGMA foreign_keys=OFF; "
                               "PRAGMA synchronous=NORMAL"));
    } catch (const DbError& error) {
        sqlite3_close(m_db);
        m_db = nullptr;
        throw ConnectionLost(error.description() + QStringLiteral(": ") + path);
    }
}

SqliteDatabase::~SqliteDatabase() { sqlite3_close_v2(m_db); }

void SqliteDatabase::startClock() {
    m_timedOut = false;
    m_clock.start();
}

int SqliteDatabase::progress(void* self) {
    auto* db = static_cast<SqliteDatabase*>(self);
    if (db->m_clock.isValid() && db->m_clock.elapsed() > db->m_timeoutMs) {
        db->m_timedOut = true;
        return 1;
    }
    return 0;
}

void SqliteDatabase::fail(int code) const {
    QString text = QString::fromUtf8(sqlite3_errmsg(m_db));
    if (m_timedOut) {
        text = QStringLiteral("Query timeout expired (%1 s): %2").arg(m_timeoutMs / 1000).arg(text);
    }
    if (isLostConnection(code)) {
        throw ConnectionLost(text + QStringLiteral(": ") + m_path);
    }
    DbError::Cause cause = DbError::Cause::Other;
    if ((code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED) {
        cause = DbError::Cause::Busy;
    } else if ((code & 0xff) == SQLITE_FULL) {
        cause = DbError::Cause::Full;
    }
    throw DbError(code, text, cause);
}

namespace {

// Keeps the rows of a select in a record set.
class Collect : public RowReceiver {
public:
    void columns(const QStringList& names) override { rs = RecordSet(names); }
    void row(std::vector<QString>& cells) override { rs.appendRow(std::move(cells)); }
    RecordSet rs;
};

} // namespace

RecordSet SqliteDatabase::select(const QString& sql) {
    Collect collect;
    select(sql, collect);
    return std::move(collect.rs);
}

void SqliteDatabase::select(const QString& sql, RowReceiver& receiver) {
    const QByteArray text = rewriteForSqlite(sql).toUtf8();
    startClock();
    Statement st;
    const char* tail = nullptr;
    int rc = sqlite3_prepare_v2(m_db, text.constData(), int(text.size()), &st.stmt, &tail);
    if (rc != SQLITE_OK) {
        fail(rc);
    }
    if (!st.stmt) {
        receiver.columns({});
        return;
    }
    const int columns = sqlite3_column_count(st.stmt);
    QStringList names;
    names.reserve(columns);
    for (int i = 0; i < columns; ++i) {
        names << QString::fromUtf8(sqlite3_column_name(st.stmt, i));
    }
    receiver.columns(names);
    std::vector<QString> row;
    while ((rc = sqlite3_step(st.stmt)) == SQLITE_ROW) {
        row.assign(size_t(columns), QString());
        for (int i = 0; i < columns; ++i) {
            const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(st.stmt, i));
            if (value) {
                row[size_t(i)] = QString::fromUtf8(value, sqlite3_column_bytes(st.stmt, i));
            }
        }
        receiver.row(row);
    }
    if (rc != SQLITE_DONE) {
        fail(rc);
    }
}

void SqliteDatabase::cancel() { sqlite3_interrupt(m_db); }

qint64 SqliteDatabase::execute(const QString& sql) {
    const QByteArray text = rewriteForSqlite(sql).toUtf8();
    startClock();
    const char* next = text.constData();
    const char* end = next + text.size();
    const sqlite3_int64 before = sqlite3_total_changes64(m_db);
    while (next < end) {
        Statement st;
        const char* tail = nullptr;
        int rc = sqlite3_prepare_v2(m_db, next, int(end - next), &st.stmt, &tail);
        if (rc != SQLITE_OK) {
            fail(rc);
        }
        next = tail;
        if (!st.stmt) {
            continue; // blanks or a lone ";"
        }
        while ((rc = sqlite3_step(st.stmt)) == SQLITE_ROW) {
        }
        if (rc != SQLITE_DONE) {
            fail(rc);
        }
    }
    return sqlite3_total_changes64(m_db) - before;
}

void SqliteDatabase::begin() { execute(QStringLiteral("BEGIN IMMEDIATE")); }

void SqliteDatabase::commit() { execute(QStringLiteral("COMMIT")); }

void SqliteDatabase::rollback() {
    if (inTransaction()) {
        execute(QStringLiteral("ROLLBACK"));
    }
}

void SqliteDatabase::setStatementTimeout(int seconds) {
    m_timeoutMs = qint64(seconds) * 1000;
    setLockWait(int(qMin<qint64>(m_timeoutMs, 90000)));
}

void SqliteDatabase::setLockWait(int milliseconds) { sqlite3_busy_timeout(m_db, milliseconds); }

bool SqliteDatabase::inTransaction() const {
    return m_db && !sqlite3_get_autocommit(m_db);
}
