// The frame every screen stands on: loading, the one trap per routine, input behaviour.
#include "screenfixture.h"
#include "userinput.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/recordset.h"
#include "data/session.h"
#include "shell/screenregistry.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

// A screen whose list query can be made to fail, and whose combo would search on change.
class ProbeScreen : public Screen {
public:
    ProbeScreen() : Screen(QStringLiteral("BAMAS310"), QStringLiteral("발주관리")) {}
    void sSelectQuery() override {
        ++searches;
        guarded(QStringLiteral("sSelectQuery"), [this] {
            RecordSet rs;
            const QString table =
                failNext ? QStringLiteral("NO_SUCH_TABLE") : QStringLiteral("C_BRAND");
            failNext = false;
            if (!gfbSqlSelectDB(QStringLiteral("SELECT COUNT(*) FROM ") + table, rs)) {
                return;
            }
            rows = rs.value(0).toInt();
        });
    }
    void sSaveQuery() override {
        guarded(
            QStringLiteral("sSaveQuery"),
            [] {
                session().gDb->begin();
                session().gDb->execute(QStringLiteral(
                    "INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) VALUES ('01', '09', 'x')"));
                throw DbError(7, QStringLiteral("저장 중 오류"));
            },
            true);
    }
    void cmdDelete_Click() override {
        deleteRow(QStringLiteral("01"), 14,
                  QStringLiteral("DELETE FROM C_BRAND WHERE COMPANY = '01' AND BRANDCD = '01'"));
    }
    void clearScreen(bool defaults) override { clears.append(defaults); }
    QList<bool> clears;
    QComboBox* combo = nullptr;
    QLineEdit* first = nullptr;
    QLineEdit* second = nullptr;
    int searches = 0;
    int rows = -1;
    bool failNext = false;

protected:
    void setupScreen() override {
        combo = new QComboBox(this);
        connect(combo, &QComboBox::currentIndexChanged, this, [this] {
            if (mbLoaded) {
                sSelectQuery();
            }
        });
        combo->addItems({QStringLiteral("가"), QStringLiteral("나")}); // filling must not search
        first = textBox(QStringLiteral("txtFirst"), 10);
        second = textBox(QStringLiteral("txtSecond"), 10);
        contentLayout()->addWidget(combo);
        contentLayout()->addWidget(first);
        contentLayout()->addWidget(second);
    }
};

// The main connection, noting at each begin and commit whether the wait cursor shows.
class CursorWatch : public Database {
public:
    explicit CursorWatch(std::unique_ptr<Database> real) : real(std::move(real)) {}
    RecordSet select(const QString& sql) override { return real->select(sql); }
    qint64 execute(const QString& sql) override { return real->execute(sql); }
    void begin() override {
        note();
        real->begin();
    }
    void commit() override {
        note();
        real->commit();
    }
    void rollback() override { real->rollback(); }
    bool inTransaction() const override { return real->inTransaction(); }
    const Dialect& dialect() const override { return real->dialect(); }
    void setStatementTimeout(int seconds) override { real->setStatementTimeout(seconds); }
    void setLockWait(int milliseconds) override { real->setLockWait(milliseconds); }

    std::unique_ptr<Database> real;
    QStringList seen;

private:
    void note() {
        seen << (QGuiApplication::overrideCursor() ? QStringLiteral("wait") : QStringLiteral("-"));
    }
};

} // namespace

class ScreenFrame : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        registerScreenFactory(QStringLiteral("BAMAS310"), [] { return new ProbeScreen; });
        probe = dynamic_cast<ProbeScreen*>(openByNumber(310));
        ASSERT_NE(probe, nullptr);
        presenter->boxes.clear();
    }
    void TearDown() override {
        registerScreenFactory(QStringLiteral("BAMAS310"), {});
        registerScreens();
        ScreenTest::TearDown();
    }
    ProbeScreen* probe = nullptr;
};

TEST_F(ScreenFrame, fillingDuringLoadDoesNotSearchButAChangeAfterwardsDoes) {
    EXPECT_EQ(probe->searches, 0);
    probe->combo->setCurrentIndex(1);
    EXPECT_EQ(probe->searches, 1);
    EXPECT_EQ(probe->statusPanel(2)->text(), QStringLiteral("tester / 시험자"));
    EXPECT_EQ(probe->statusPanel(3)->text().size(), 8); // hh:mm:ss
}

TEST_F(ScreenFrame, aFailedSearchLeavesTheScreenUsable) {
    probe->failNext = true;
    mainWindow()->gsToolBarClick(MAINMDI::TobToolBar1, QStringLiteral("Search"));
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(probe->rows, -1);
    mainWindow()->gsToolBarClick(MAINMDI::TobToolBar1, QStringLiteral("Search"));
    EXPECT_EQ(probe->rows, 0);
    EXPECT_EQ(presenter->boxes.size(), 1);
}

TEST_F(ScreenFrame, theTrapRollsBackAndLogsItsPlace) {
    probe->sSaveQuery();
    EXPECT_FALSE(session().gDb->inTransaction());
    EXPECT_EQ(count(QStringLiteral("C_BRAND")), 0);
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRPROG || '|' || ERRNO FROM C_ERROR")),
              QStringLiteral("BAMAS310 : sSaveQuery|7"));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("저장 중 오류"));
}

TEST_F(ScreenFrame, enterWalksTheFieldsAndFocusSelectsTheText) {
    probe->first->setText(QStringLiteral("첫칸"));
    probe->second->setText(QStringLiteral("둘째칸"));
    probe->first->setFocus();
    QApplication::processEvents();
    QTest::keyClick(probe->first, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_TRUE(probe->second->hasFocus());
    EXPECT_EQ(probe->second->selectedText(), QStringLiteral("둘째칸"));
}

TEST_F(ScreenFrame, theDeleteRunsUnderTheWaitCursorAndThenClearsWithFalse) {
    exec(QStringLiteral(
        "INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) VALUES ('01', '01', 'x')"));
    auto watch = std::make_unique<CursorWatch>(std::move(session().gDb));
    CursorWatch* watching = watch.get();
    session().gDb = std::move(watch);
    mainWindow()->gsToolBarClick(MAINMDI::TobToolBar1, QStringLiteral("Delete"));
    const QStringList seen = watching->seen;
    session().gDb = std::move(watching->real);

    EXPECT_EQ(seen, (QStringList{QStringLiteral("wait"), QStringLiteral("wait")}));
    EXPECT_EQ(count(QStringLiteral("C_BRAND")), 0);
    EXPECT_EQ(probe->clears, QList<bool>{false}); // the clear routine of a delete
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    mainWindow()->gsToolBarClick(MAINMDI::TobToolBar1, QStringLiteral("Clear"));
    EXPECT_EQ(probe->clears, (QList<bool>{false, true}));
}

TEST_F(ScreenFrame, theActiveScreensPanelsStandInTheMainWindowsOneStatusBar) {
    MAINMDI* window = mainWindow();
    EXPECT_EQ(window->findChildren<QStatusBar*>().size(), 1);
    const auto shown = [window](Screen* screen) {
        return screen->statusPanel(1)->window() == window && screen->statusPanel(1)->isVisible();
    };
    EXPECT_TRUE(shown(probe));
    EXPECT_FALSE(window->statusPanel(2)->isVisible());

    // A second screen takes the bar; going back to the first brings its note back.
    probe->combo->setCurrentIndex(1);
    Screen* brands = openByNumber(170);
    ASSERT_NE(brands, nullptr);
    EXPECT_TRUE(shown(brands));
    EXPECT_FALSE(shown(probe));
    EXPECT_EQ(window->findChildren<QStatusBar*>().size(), 1);
    clickToolButton(window, QStringLiteral("Exit"));
    EXPECT_TRUE(shown(probe));
    EXPECT_EQ(probe->statusPanel(2)->text(), QStringLiteral("tester / 시험자"));

    // With no screen left, the window's own panels are back.
    clickToolButton(window, QStringLiteral("Exit"));
    QApplication::processEvents();
    EXPECT_TRUE(window->statusPanel(2)->isVisible());
    EXPECT_TRUE(window->statusPanel(3)->text().startsWith(QStringLiteral("로그인시각 ")));
}
