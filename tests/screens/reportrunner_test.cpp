// Reports that run off the window thread: the stock report through the main window as a user
// drives it, over a slip table slowed down to run for minutes; and a list through the ODBC road.
#include "screenfixture.h"
#include "userinput.h"

#include "data/connectionconfig.h"
#include "data/recordset.h"
#include "data/session.h"
#include "grid/gridcolumns.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS330.h"
#include "shell/reportrunner.h"
#include "shell/screenregistry.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// A scalar the engine needs minutes for, whatever the tables hold.
const QString kEndless = QStringLiteral(
    "(WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 2000000000) "
    "SELECT MAX(I) FROM N)");

QAction* toolAction(MAINMDI* window, const QString& key) {
    const auto actions = window->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->data().toString() == key) {
            return action;
        }
    }
    return nullptr;
}

// Esc as a user presses it, on whatever holds the focus.
void pressEscape() {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::keyClick(focus, Qt::Key_Escape);
}

} // namespace

class ReportRunnerTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
        loadFixture(QStringLiteral("stock_moves.sql"));
        openStock();
        presenter->boxes.clear(); // the empty program tree's message
    }
    void openStock() {
        screen = openByNumber<BAMAS330>(330);
        ASSERT_NE(screen, nullptr);
        grid = child<Spread>(screen, QStringLiteral("SP31"));
        child<QComboBox>(screen, QStringLiteral("cboBrand"))->setCurrentIndex(1);
        child<QComboBox>(screen, QStringLiteral("cboStore"))->setCurrentIndex(1);
        auto* low = child<QComboBox>(screen, QStringLiteral("cboYY1_0"));
        low->setCurrentIndex(low->findText(QStringLiteral("22")));
    }
    // The slip lines, as every statement reads them, now take minutes to come.
    void slowDownSlips() {
        exec(QStringLiteral("PRAGMA legacy_alter_table = ON; "
                            "ALTER TABLE S_ORDERDETAIL RENAME TO S_ORDERDETAIL_DATA; "
                            "CREATE VIEW S_ORDERDETAIL AS SELECT * FROM S_ORDERDETAIL_DATA "
                            "WHERE ") +
             kEndless + QStringLiteral(" > 0"));
    }
    void speedUpSlips() {
        exec(QStringLiteral("DROP VIEW S_ORDERDETAIL; "
                            "ALTER TABLE S_ORDERDETAIL_DATA RENAME TO S_ORDERDETAIL; "
                            "PRAGMA legacy_alter_table = OFF"));
    }
    void report() {
        QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSale1")),
                          Qt::LeftButton);
    }
    QStringList rows() const {
        QStringList out;
        for (int r = 1; r <= grid->maxRows(); ++r) {
            out << gfSpreadText(grid, r, 5) + QLatin1Char('|') + gfSpreadText(grid, r, 7);
        }
        return out;
    }
    QString note() const { return screen->statusPanel(1)->text(); }

    BAMAS330* screen = nullptr;
    Spread* grid = nullptr;
};

TEST_F(ReportRunnerTest, escCancelsTheRunningReportAndTheGridKeepsItsRows) {
    report();
    ASSERT_TRUE(waitForReport(screen));
    const QStringList before = rows();
    ASSERT_EQ(before, QStringList{QStringLiteral("동복자켓|11")});
    slowDownSlips();
    presenter->boxes.clear();

    report();
    ASSERT_TRUE(screen->reportRunning());
    // While it runs the screen's controls and the tool bar's commands wait; Exit does not.
    EXPECT_FALSE(child<QPushButton>(screen, QStringLiteral("cmdViewSale2"))->isEnabled());
    EXPECT_FALSE(child<QComboBox>(screen, QStringLiteral("cboStore"))->isEnabled());
    EXPECT_FALSE(toolAction(main.get(), QStringLiteral("Search"))->isEnabled());
    EXPECT_TRUE(toolAction(main.get(), QStringLiteral("Exit"))->isEnabled());
    QToolButton* cancel = screen->reportRunner()->cancelButton();
    EXPECT_FALSE(cancel->isVisible()); // not before half a second
    QTest::qWait(800);
    ASSERT_TRUE(screen->reportRunning());
    EXPECT_TRUE(cancel->isVisible());
    EXPECT_TRUE(note().startsWith(QStringLiteral("조회 중"))) << note().toStdString();

    QElapsedTimer clock;
    clock.start();
    pressEscape();
    ASSERT_TRUE(waitForReport(screen, 5000)) << "the engine went on after Esc";
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(note(), QStringLiteral("조회를 취소했습니다."));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);
    EXPECT_FALSE(cancel->isVisible());
    EXPECT_TRUE(child<QComboBox>(screen, QStringLiteral("cboStore"))->isEnabled());
    EXPECT_TRUE(toolAction(main.get(), QStringLiteral("Search"))->isEnabled());

    // The next report runs, by the status bar's control this time, and then to its end.
    report();
    QTest::qWait(700);
    ASSERT_TRUE(cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen, 5000));
    EXPECT_EQ(note(), QStringLiteral("조회를 취소했습니다."));
    speedUpSlips();
    child<QComboBox>(screen, QStringLiteral("cboStore"))->setCurrentIndex(0);
    report();
    ASSERT_TRUE(waitForReport(screen));
    EXPECT_EQ(grid->maxRows(), 0); // store row 0: an empty report replaces the rows
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(ReportRunnerTest, theWindowAnswersWhileAReportRuns) {
    slowDownSlips();
    report();
    ASSERT_TRUE(screen->reportRunning());
    QElapsedTimer clock;
    clock.start();
    qint64 firedAt = -1;
    bool runningThen = false;
    QTimer::singleShot(200, [&] {
        firedAt = clock.elapsed();
        runningThen = screen->reportRunning();
    });
    QTRY_VERIFY_WITH_TIMEOUT(firedAt >= 0, 5000);
    EXPECT_TRUE(runningThen);
    EXPECT_LT(firedAt, 1500);
    // Another screen opens and closes meanwhile.
    auto* other = openByNumber(310);
    ASSERT_NE(other, nullptr);
    other->m_Close();
    QApplication::processEvents();
    EXPECT_TRUE(screen->reportRunning());
    // The tool bar's Search waits rather than start a second report.
    main->gsFormShow(QStringLiteral("BAMAS330"));
    clickToolButton(main.get(), QStringLiteral("Search"));
    EXPECT_TRUE(screen->reportRunning());
    screen->cancelReport();
    ASSERT_TRUE(waitForReport(screen, 5000));
    speedUpSlips();
}

TEST_F(ReportRunnerTest, closingTheScreenStopsItsReportAndTheProgramGoesOn) {
    slowDownSlips();
    report();
    QTest::qWait(300);
    ASSERT_TRUE(screen->reportRunning());
    QElapsedTimer clock;
    clock.start();
    clickToolButton(main.get(), QStringLiteral("Exit"));
    QApplication::processEvents();
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(main->openScreen(QStringLiteral("BAMAS330")), nullptr);
    EXPECT_TRUE(presenter->boxes.isEmpty()) << presenter->boxes.value(0).text.toStdString();
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);

    speedUpSlips();
    openStock();
    report();
    ASSERT_TRUE(waitForReport(screen));
    EXPECT_EQ(rows(), QStringList{QStringLiteral("동복자켓|11")});

    // The program closing while a report runs waits for it too.
    slowDownSlips();
    report();
    ASSERT_TRUE(screen->reportRunning());
    clock.restart();
    main->closeWithoutAsking();
    EXPECT_LT(clock.elapsed(), 3000);
    main.reset();
    speedUpSlips();
}

TEST_F(ReportRunnerTest, theStatementLimitStillEndsAReportWithItsMessage) {
    report();
    ASSERT_TRUE(waitForReport(screen));
    const QStringList before = rows();
    slowDownSlips();
    presenter->boxes.clear();
    session().config.statementTimeoutSeconds = 1;
    report();
    ASSERT_TRUE(waitForReport(screen, 10000));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("timeout")))
        << presenter->boxes[0].text.toStdString();
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRPROG FROM C_ERROR")),
              QStringLiteral("basDatabase : gfbSqlSelectDB"));
    EXPECT_EQ(rows(), before);
    session().config.statementTimeoutSeconds = 90;
    speedUpSlips();
}

namespace {

// A list screen whose statement the test chooses.
class ListProbe : public Screen {
public:
    ListProbe() : Screen(QStringLiteral("BAMAS330"), QStringLiteral("재고관리")) {}
    void sSelectQuery() override {
        runReport(QStringLiteral("sSelectQuery"), sql,
                  [this](const RecordSet& rs) { showList(SP1, columns(), rs); });
    }
    static const GridColumns& columns() {
        static const GridColumns table{{QStringLiteral("BRANDCD"), QStringLiteral("코드")}};
        return table;
    }
    QString sql;
    Spread* SP1 = nullptr;

protected:
    void setupScreen() override {
        SP1 = grid(QStringLiteral("SP1"), columns(), 3, false, true);
        contentLayout()->addWidget(SP1);
    }
};

} // namespace

class OdbcReport : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        registerScreenFactory(QStringLiteral("BAMAS330"), [] { return new ListProbe; });
        // The main connection stays embedded; the reports go through the SQLite ODBC driver to
        // the same file.
        session().config.torvix = QStringLiteral("odbc:DRIVER=SQLite3;Database=") +
                                  ConnectionConfig::sqlitePath(session().config.torvix);
        probe = dynamic_cast<ListProbe*>(openByNumber(330));
        ASSERT_NE(probe, nullptr);
        presenter->boxes.clear();
    }
    void TearDown() override {
        registerScreenFactory(QStringLiteral("BAMAS330"), {});
        registerScreens();
        ScreenTest::TearDown();
    }
    ListProbe* probe = nullptr;
};

TEST_F(OdbcReport, escCancelsAndTheLimitHoldsThroughTheDriver) {
    exec(QStringLiteral("INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) VALUES "
                        "('01', '01', '가'), ('01', '02', '나')"));
    probe->sql = QStringLiteral("SELECT BRANDCD FROM C_BRAND ORDER BY BRANDCD");
    clickToolButton(main.get(), QStringLiteral("Search"));
    ASSERT_TRUE(waitForReport(probe));
    ASSERT_EQ(probe->SP1->maxRows(), 2);
    EXPECT_EQ(probe->statusPanel(1)->text(), QStringLiteral("2건의 데이터가 조회되었습니다."));

    probe->sql =
        QStringLiteral("SELECT BRANDCD FROM C_BRAND WHERE ") + kEndless + QStringLiteral(" > 0");
    clickToolButton(main.get(), QStringLiteral("Search"));
    QTest::qWait(400);
    ASSERT_TRUE(probe->reportRunning());
    QElapsedTimer clock;
    clock.start();
    pressEscape();
    ASSERT_TRUE(waitForReport(probe, 5000)) << "the driver went on after Esc";
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(probe->SP1->maxRows(), 2);
    EXPECT_EQ(gfSpreadText(probe->SP1, 2, 1), QStringLiteral("02"));
    EXPECT_EQ(probe->statusPanel(1)->text(), QStringLiteral("조회를 취소했습니다."));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);

    session().config.statementTimeoutSeconds = 1;
    clickToolButton(main.get(), QStringLiteral("Search"));
    ASSERT_TRUE(waitForReport(probe, 10000));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("timeout")))
        << presenter->boxes[0].text.toStdString();
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 1);
    EXPECT_EQ(probe->SP1->maxRows(), 2);
}
