#pragma once

#include "data/database.h"
#include "data/dialect.h"

#include <QElapsedTimer>

struct sqlite3;

// The embedded engine. WAL mode, a busy timeout and a progress handler that interrupts a
// statement at its time limit. T-SQL functions the statements use are registered on open.
class SqliteDatabase : public Database {
public:
    enum class OpenMode { ExistingOnly, CreateIfMissing };
    // Throws ConnectionLost when the file cannot be opened or is not a database.
    SqliteDatabase(const QString& path, OpenMode mode, int statementTimeoutSeconds = 90);
    ~SqliteDatabase() override;
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    RecordSet select(const QString& sql) override;
    void select(const QString& sql, RowReceiver& receiver) override;
    // sqlite3_interrupt: the statement fails with SQLITE_INTERRUPT.
    void cancel() override;
    qint64 execute(const QString& sql) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    bool inTransaction() const override;
    const Dialect& dialect() const override { return m_dialect; }
    void setStatementTimeout(int seconds) override;
    void setLockWait(int milliseconds) override;

    sqlite3* handle() const { return m_db; }
    // Restarts the statement clock: a caller that steps statements of its own on handle() calls
    // it before each, so that the time limit counts that statement alone.
    void startClock();
    QString path() const { return m_path; }

private:
    [[noreturn]] void fail(int code) const;
    static int progress(void* self);

    sqlite3* m_db = nullptr;
    QString m_path;
    Dialect m_dialect{Dialect::Engine::Sqlite};
    qint64 m_timeoutMs;
    QElapsedTimer m_clock;
    bool m_timedOut = false;
};
