#pragma once

#include <QDate>
#include <QDateTime>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class QLabel;
class QVBoxLayout;
class DbError;
class PrintablePages;
class RecordSet;
class ReportRunner;
class Spread;

// The base of every child screen of the main window. A screen builds its fields in
// setupScreen(), and the tool bars drive it through the seven public commands. Statements run in
// the screen's s... routines, each inside guarded() which is its one error trap.
class Screen : public QWidget {
    Q_OBJECT
public:
    Screen(const QString& name, const QString& designCaption, QWidget* parent = nullptr);
    ~Screen() override;

    // The grid a screen reports in, with the title printed above it. A screen that declares one
    // (reportGrid() below) gets the tool bar's "미리보기" and "출력" and their menu twins.
    struct ReportGrid {
        Spread* grid = nullptr;
        QString title;
        QString subTitle;
        int lastCol = 0; // 0: every column
    };

    // The seven commands of the tool bars. Search, save and delete run the screen's list query,
    // save and delete routines; the others do nothing unless a screen says otherwise.
    virtual void m_Excel() {}
    // 1 the printer dialog (PDF among its printers), 2 the preview; the screen's report grid.
    virtual void m_Print(int mode);
    virtual void m_Close();
    virtual void m_clear() { clearScreen(true); }
    virtual void m_Search() { sSelectQuery(); }
    virtual void m_Save() { sSaveQuery(); }
    virtual void m_Delete() { cmdDelete_Click(); }

    virtual void sSelectQuery() {}
    virtual void sSaveQuery() {}
    virtual void cmdDelete_Click() {}
    // The screen's clear routine: with true (Clear, a search that found rows, a save) the edit
    // fields go back to their defaults; with false (after a delete) a screen may keep more.
    virtual void clearScreen(bool defaults) { Q_UNUSED(defaults) }

    // The load handler: start time, caption and C_LOG, status bar, setup, the search at load.
    void load();
    // The activate handler: becomes the tool bars' target and sets which buttons work.
    void activateScreen();
    bool isLoaded() const { return mbLoaded; }
    // Commits whatever is still being typed (a grid cell, a date box) before a command runs.
    void finishEditing();
    QDateTime startTime() const { return mdStart; }
    // The screen's three status panels. They stand in the main window's status bar while the
    // screen is the active one.
    QLabel* statusPanel(int index) const;
    QWidget* statusPanels() const { return m_statusPanels; }
    // What the tool bar's preview and print put on paper; no grid: the screen prints nothing.
    virtual ReportGrid reportGrid() const { return {}; }
    // The one print path: mode 1 the printer dialog, 2 the preview dialog; PDF through either.
    void printPages(const PrintablePages& pages, int mode);
    // A list statement of the screen runs off the window thread (runReport below).
    bool reportRunning() const;
    // Cancels it as the status bar's control and Esc do.
    void cancelReport();
    // The runner of the screen's reports; nullptr before the first.
    ReportRunner* reportRunner() const { return m_runner.get(); }

protected:
    // Grids, combos and defaults; runs while mbLoaded is false.
    virtual void setupScreen() = 0;
    // True for the screens that search as soon as they are loaded.
    virtual bool searchesAtLoad() const { return false; }

    // The screen's area; a screen lays its bands out in it.
    QVBoxLayout* contentLayout() const { return m_content; }
    // "BAMAS105 : sSelectQuery"
    QString placeText(const QString& routine) const;
    // The routine's one error trap: runs body; an unexpected failure rolls back an open
    // transaction when asked, goes to gsErrorLog with the place text, and answers false.
    bool guarded(const QString& routine, const std::function<void()>& body, bool rollback = false);
    // guarded() for a command that sends statements: a statement that fails inside it (shown and
    // logged by its statement routine) is logged once more under the command's place, so that
    // the log says which screen and command failed. False after any failure.
    bool command(const QString& routine, const std::function<void()>& body, bool rollback = false);
    // A list statement over the movement and slip tables, run off the window thread: the window
    // stays live, the screen's controls wait, the status bar shows progress and a cancel. `fill`
    // gets every row once the statement is through, on the window thread and inside the
    // routine's error trap; after a failure (shown and logged as a failed select is) or a cancel
    // it is not called, and the grid stays as it was. False when nothing started: a report runs
    // already, or the statement is empty.
    bool runReport(const QString& routine, const QString& sql,
                   std::function<void(const RecordSet&)> fill);
    // The delete command of a list screen: nothing without a key, the screen's question, the
    // statement in a transaction, then the clear routine and the list again.
    void deleteRow(const QString& key, int question, const QString& sql);
    // The rows of a list query: with rows, under the wait cursor, the clear routine and the grid
    // filled from the record set; without, an empty grid. Panel 1 as showFound says.
    void showList(class Spread* grid, const class GridColumns& columns, const class RecordSet& rs,
                  bool withCount = true);
    // Panel 1: the screen's short notes.
    void setStatusNote(const QString& text);
    // Panel 1 after a search: "N건의 데이터가 조회되었습니다." (or nothing, withCount false) when
    // rows were found, "조회된 데이터가 없습니다." when none.
    void showFound(qint64 count, bool withCount = true);
    // A text box of the edit band: its control name, and its column's limit in bytes.
    class QLineEdit* textBox(const QString& name, int bytes);
    // A text box whose limit comes from the column it is bound to (RecordForm::text).
    class QLineEdit* textBox(const QString& name);
    // A combo box with its control name.
    class QComboBox* comboBox(const QString& name);
    // A date box with its control name: "yyyy-MM-dd" with the calendar, today unless given.
    class QDateEdit* dateBox(const QString& name, const QDate& value = QDate::currentDate());
    // A grid with its control name, set up with the sheet settings of gsSpreadInit that differ
    // between grids and then with its column table.
    class Spread* grid(const QString& name, const class GridColumns& columns, int scrollBars,
                       bool headingNumbers, bool readOnly);
    // The green background that marks a field the save requires.
    static void markRequired(QWidget* field);

    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    QDateTime mdStart;
    bool mbLoaded = false;

private:
    void wireInputFields();
    // The field after `from` in the order a user reads the screen: top to bottom, and left to
    // right along a line; after the last, the first.
    QWidget* nextField(QWidget* from) const;

    QVBoxLayout* m_content;
    QPointer<QWidget> m_statusPanels;
    QLabel* m_panels[3];
    std::unique_ptr<ReportRunner> m_runner;
    bool m_logged = false;
};
