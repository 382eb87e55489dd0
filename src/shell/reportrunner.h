#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QToolButton>

#include <functional>

class QLabel;
class QShortcut;
class QTimer;
class QWidget;
class RecordSet;
class ReportQuery;
class Screen;

// A screen's list statement run off the window thread (ReportQuery), and what the screen does
// meanwhile. The window stays live; the status bar shows the time gone and the rows read, with a
// cancel control after half a second; Esc on the screen cancels too. Until the rows are in, the
// screen's controls wait: buttons, lists, boxes and dates are off, grids take no clicks or keys
// (they still scroll), tabs still switch, and the tool bar's commands other than Exit do nothing.
//
// When the statement is through, the grid is filled from all its rows on the window thread. A
// failure goes to gsErrorLog as a failed select does; a cancel leaves the grid as it was, shows
// no box, logs nothing and says "조회를 취소했습니다." in panel 1.
class ReportRunner : public QObject {
    Q_OBJECT
public:
    using Fill = std::function<void(const RecordSet&)>;

    explicit ReportRunner(Screen* screen);
    ~ReportRunner() override;

    // Starts `sql`; `fill` gets every row once the statement is through, inside the error trap
    // of `place` ("BAMAS330 : sSelectQuery"). False, and nothing runs, while a report runs or for
    // an empty statement (message 16, as a select says).
    bool run(const QString& place, const QString& sql, Fill fill);
    bool isRunning() const;
    // The user's cancel: the button, Esc.
    void cancel();
    // The screen closes: cancel and wait for the worker; nothing follows.
    void stop();
    // The tool bar's commands off while a report runs; the screen calls it when it becomes the
    // active one.
    void holdToolBars() const;

    // The status bar's cancel control and the query, for the tests.
    QToolButton* cancelButton() const { return m_cancel.data(); }
    ReportQuery* query() const { return m_query; }

signals:
    // A run ended, however it ended; the grid is filled by then.
    void finished();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onFinished();
    void showProgress();
    void hold(bool on);

    Screen* m_screen;
    ReportQuery* m_query;
    QLabel* m_note;
    QPointer<QToolButton> m_cancel; // it goes with the status panels
    QShortcut* m_escape;
    QTimer* m_tick;
    Fill m_fill;
    QString m_place;
    QString m_noteBefore;
    QList<QPointer<QWidget>> m_held;
    QList<QPointer<QWidget>> m_grids;
    QPointer<QWidget> m_focus;
};
