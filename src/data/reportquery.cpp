#include "data/reportquery.h"

#include "data/connections.h"

#include <chrono>

namespace {

// A batch goes over when this much time has passed since the last: a report of a few hundred
// milliseconds hands its rows over once, at the end.
constexpr qint64 kBatchMs = 100;
// Between two asks to stop, while the worker has not stopped yet.
constexpr int kRepeatMs = 50;

} // namespace

// The worker's side of the hand-over: rows gather in a batch of its own, which goes over under
// the lock when its time has come.
class ReportQuery::Batches : public RowReceiver {
public:
    explicit Batches(ReportQuery& query) : q(query) { clock.start(); }

    void columns(const QStringList& names) override {
        const std::lock_guard lock(q.m_lock);
        q.m_columns = names;
        q.m_haveColumns = true;
    }
    void row(std::vector<QString>& cells) override {
        for (QString& cell : cells) {
            batch.push_back(std::move(cell));
        }
        // The clock is read every 64th row only.
        if ((++rows & 63) == 0 && clock.elapsed() >= kBatchMs) {
            handOver();
        }
    }
    void handOver() {
        clock.restart();
        if (batch.empty()) {
            return;
        }
        {
            const std::lock_guard lock(q.m_lock);
            if (q.m_handed.empty()) {
                q.m_handed.swap(batch);
            } else {
                q.m_handed.insert(q.m_handed.end(), std::make_move_iterator(batch.begin()),
                                  std::make_move_iterator(batch.end()));
            }
        }
        batch.clear();
        if (!q.m_posted.exchange(true)) {
            QMetaObject::invokeMethod(&q, &ReportQuery::drain, Qt::QueuedConnection);
        }
    }

private:
    ReportQuery& q;
    std::vector<QString> batch;
    quint64 rows = 0;
    QElapsedTimer clock;
};

ReportQuery::ReportQuery(QObject* parent) : QObject(parent) {
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        m_timedOut = true;
        interruptEngine();
        m_repeat.start();
    });
    m_repeat.setInterval(kRepeatMs);
    connect(&m_repeat, &QTimer::timeout, this, [this] { interruptEngine(); });
}

ReportQuery::~ReportQuery() {
    cancelAndWait();
    // The connection goes with the object, on the window thread, once the worker is gone.
}

bool ReportQuery::start(const QString& sql, const ConnectionConfig& config) {
    if (isRunning()) {
        return false;
    }
    join();
    m_rows = RecordSet();
    m_rowsHaveColumns = false;
    m_error.reset();
    m_timedOut = false;
    m_cancelled = false;
    {
        const std::lock_guard lock(m_lock);
        m_columns.clear();
        m_haveColumns = false;
        m_handed.clear();
        m_workerError.reset();
        m_workerConnected = false;
    }
    m_outcome = Outcome::Running;
    m_limitSeconds = config.statementTimeoutSeconds;
    m_clock.start();
    m_limit.start(config.statementTimeoutSeconds * 1000);
    m_workerDone = false;
    const quint64 run = ++m_run;
    m_worker = std::thread([this, sql, config, run] { work(sql, config, run); });
    return true;
}

void ReportQuery::work(QString sql, ConnectionConfig config, quint64 run) {
    bool connected = true;
    std::optional<DbError> failure;
    try {
        if (!m_db) {
            auto db = openDatabase(config.torvix, config);
            const std::lock_guard lock(m_lock);
            m_db = std::move(db);
        }
    } catch (const DbError&) {
        connected = false;
    }
    if (connected && !m_cancelled) {
        Batches batches(*this);
        try {
            m_db->setStatementTimeout(config.statementTimeoutSeconds);
            m_db->select(sql, batches);
            batches.handOver();
        } catch (const DbError& error) {
            failure = error;
            if (error.number() == ConnectionLost::GeneralFailure) {
                // Dropped, so that the next run connects anew.
                const std::lock_guard lock(m_lock);
                m_db.reset();
            }
        }
    }
    {
        const std::lock_guard lock(m_lock);
        m_workerError = failure;
        m_workerConnected = connected;
    }
    m_workerDone = true;
    QMetaObject::invokeMethod(
        this, [this, run] { finish(run); }, Qt::QueuedConnection);
}

void ReportQuery::interruptEngine() {
    const std::lock_guard lock(m_lock);
    if (m_db) {
        m_db->cancel();
    }
}

void ReportQuery::cancel() {
    if (!isRunning() || m_cancelled) {
        return;
    }
    m_cancelled = true;
    interruptEngine();
    // A statement that had not reached the engine yet missed the first ask.
    m_repeat.start();
}

void ReportQuery::cancelAndWait() {
    if (isRunning()) {
        m_cancelled = true;
        while (!m_workerDone) {
            interruptEngine();
            std::this_thread::sleep_for(std::chrono::milliseconds(kRepeatMs / 5));
        }
        m_outcome = Outcome::Cancelled;
        ++m_run; // the finish the worker posted finds a newer run and leaves
    }
    m_limit.stop();
    m_repeat.stop();
    join();
}

void ReportQuery::join() {
    if (m_worker.joinable()) {
        m_worker.join();
    }
}

void ReportQuery::drain() {
    m_posted = false;
    std::vector<QString> cells;
    {
        const std::lock_guard lock(m_lock);
        if (m_haveColumns && !m_rowsHaveColumns) {
            m_rows = RecordSet(m_columns);
            m_rowsHaveColumns = true;
        }
        cells.swap(m_handed);
    }
    if (cells.empty()) {
        return;
    }
    m_rows.appendRows(std::move(cells));
    emit rowsArrived(m_rows.recordCount());
}

void ReportQuery::finish(quint64 run) {
    if (run != m_run || !isRunning()) {
        return;
    }
    join();
    m_limit.stop();
    m_repeat.stop();
    drain();
    bool connected = true;
    {
        const std::lock_guard lock(m_lock);
        m_error = m_workerError;
        connected = m_workerConnected;
    }
    if (m_cancelled) {
        m_outcome = Outcome::Cancelled;
        m_error.reset();
        m_rows = RecordSet();
    } else if (!connected) {
        m_outcome = Outcome::NoConnection;
    } else if (m_error) {
        m_outcome = Outcome::Failed;
        if (m_timedOut && !m_error->description().contains(QStringLiteral("timeout"))) {
            m_error = DbError(m_error->number(), QStringLiteral("Query timeout expired (%1 s): %2")
                                                     .arg(m_limitSeconds)
                                                     .arg(m_error->description()));
        }
        m_rows = RecordSet();
    } else {
        m_outcome = Outcome::Done;
    }
    emit finished();
}
