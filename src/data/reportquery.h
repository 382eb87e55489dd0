#pragma once

#include "data/connectionconfig.h"
#include "data/database.h"
#include "data/recordset.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

// A select that runs off the window thread, over a connection of its own to the same database
// (a second SQLite connection to the file, a second ODBC connection to the server), so that the
// window thread's connection and its transactions are never touched from two threads. The
// connection opens on the first run and stays for the next.
//
// The window thread owns the object and is the only one to call it. Rows come over in batches,
// at most one hand-over every tenth of a second, and pile up here until the statement is through:
// the grid is filled by the caller from takeRows(), on the window thread, in one go, so that a
// cancelled report leaves the grid as it was.
class ReportQuery : public QObject {
    Q_OBJECT
public:
    enum class Outcome { Idle, Running, Done, Cancelled, Failed, NoConnection };

    explicit ReportQuery(QObject* parent = nullptr);
    // Cancels what runs and waits for the worker.
    ~ReportQuery() override;
    ReportQuery(const ReportQuery&) = delete;
    ReportQuery& operator=(const ReportQuery&) = delete;

    // Starts the select on `config.torvix` with its statement limit. False while one runs.
    bool start(const QString& sql, const ConnectionConfig& config);
    // Stops the engine (sqlite3_interrupt, SQLCancel); finished() follows with Cancelled.
    void cancel();
    // cancel(), then waits for the worker; no signal follows. For a closing screen.
    void cancelAndWait();

    bool isRunning() const { return m_outcome == Outcome::Running; }
    Outcome outcome() const { return m_outcome; }
    // Rows handed over so far.
    qint64 rowsRead() const { return m_rows.recordCount(); }
    qint64 elapsedMs() const { return m_clock.isValid() ? m_clock.elapsed() : 0; }
    // The engine's failure (Failed); a statement stopped at its limit says so in its text.
    const std::optional<DbError>& error() const { return m_error; }
    // Every row of a run that is Done; the set is handed over.
    RecordSet takeRows() { return std::move(m_rows); }
    // The worker's connection once a run has opened it; only while none runs (tests put their
    // fakes of the engine's functions on it).
    Database* connection() const { return isRunning() ? nullptr : m_db.get(); }

signals:
    // A batch has come over; `rows` in all so far.
    void rowsArrived(qint64 rows);
    // The run is over: outcome() says how.
    void finished();

private:
    class Batches;
    void work(QString sql, ConnectionConfig config, quint64 run);
    void interruptEngine();
    // Window thread: moves what the worker handed over into m_rows.
    void drain();
    void finish(quint64 run);
    void join();

    // Worker and window thread.
    std::mutex m_lock;
    std::unique_ptr<Database> m_db; // set and dropped by the worker, under m_lock
    QStringList m_columns;
    bool m_haveColumns = false;
    std::vector<QString> m_handed; // cells handed over, not drained yet
    std::optional<DbError> m_workerError;
    bool m_workerConnected = false;
    std::atomic<bool> m_posted{false};
    std::atomic<bool> m_workerDone{true};
    std::atomic<bool> m_cancelled{false};

    // Window thread only.
    std::thread m_worker;
    quint64 m_run = 0;
    Outcome m_outcome = Outcome::Idle;
    RecordSet m_rows;
    bool m_rowsHaveColumns = false;
    std::optional<DbError> m_error;
    bool m_timedOut = false;
    int m_limitSeconds = 90;
    QElapsedTimer m_clock;
    QTimer m_limit;  // the statement limit, kept here too for drivers that ignore theirs
    QTimer m_repeat; // asks the engine again until the worker stops
};
