// The main window driven as a user drives it: tree by rights, opening by number and by tree,
// the menu panel, the tool bars and their twins, closing.
#include "screenfixture.h"

#include "data/session.h"
#include "shell/placeholderscreen.h"

#include <QAction>
#include <QImage>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTreeWidget>

namespace {

QStringList treeTexts(QTreeWidget* tree) {
    QStringList texts;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        texts << (*it)->text(0);
    }
    return texts;
}

QTreeWidgetItem* node(QTreeWidget* tree, const QString& key) {
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->data(0, Qt::UserRole).toString() == key) {
            return *it;
        }
    }
    return nullptr;
}

// A screen that counts the commands the tool bars send it.
class CountingScreen : public Screen {
public:
    CountingScreen() : Screen(QStringLiteral("BAMAS105"), QStringLiteral("매장코드 관리")) {}
    void m_Search() override { calls << QStringLiteral("Search"); }
    void m_Save() override { calls << QStringLiteral("Save"); }
    void m_Delete() override { calls << QStringLiteral("Delete"); }
    void m_Print(int mode) override { calls << QStringLiteral("Print%1").arg(mode); }
    QStringList calls;

protected:
    void setupScreen() override {}
};

} // namespace

class MainWindow : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("menu_tree.sql"));
    }
};

TEST_F(MainWindow, classSSeesEveryProgramInUseFullyOpen) {
    QTreeWidget* tree = mainWindow()->tree();
    EXPECT_EQ(treeTexts(tree),
              (QStringList{QStringLiteral("기준정보"), QStringLiteral("조직관리"),
                           QStringLiteral("(105)매장등록"), QStringLiteral("(170)브랜드등록"),
                           QStringLiteral("재고관리"), QStringLiteral("(310)발주관리")}));
    EXPECT_TRUE(node(tree, QStringLiteral("M300"))->isExpanded());
    EXPECT_EQ(node(tree, QStringLiteral("BAMAS105"))->data(0, Qt::UserRole + 1).toString(),
              QStringLiteral("P"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(MainWindow, otherUserSeesOnlyRightsRowsAndGoneProgramsDrop) {
    session().gsUserId = QStringLiteral("clerk");
    session().gsUserClass = QStringLiteral("s"); // lower case is not the class "S"
    // BAMAS170's right is off and GONE999 has no program row; the stock menu shows through a
    // right row of its own.
    exec(QStringLiteral("UPDATE C_USER_AUTH SET PROGID = 'M300' WHERE PROGID = 'BAMAS315'"));
    EXPECT_EQ(treeTexts(mainWindow()->tree()),
              (QStringList{QStringLiteral("기준정보"), QStringLiteral("조직관리"),
                           QStringLiteral("(105)매장등록"), QStringLiteral("재고관리")}));
}

TEST_F(MainWindow, noRightsShowsMessage15AndAnEmptyTree) {
    session().gsUserId = QStringLiteral("nobody");
    session().gsUserClass = QString();
    EXPECT_EQ(mainWindow()->tree()->topLevelItemCount(), 0);
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(
        presenter->boxes[0].text.startsWith(QStringLiteral("사용 등록된 프로그램이 없습니다.")));
}

TEST_F(MainWindow, unknownNumberClearsTheBoxAndASecondOpenRaisesTheSameScreen) {
    MAINMDI* window = mainWindow();
    window->programBox()->setText(QStringLiteral("165"));
    window->cmdRun_Click();
    EXPECT_TRUE(window->programBox()->text().isEmpty());
    EXPECT_TRUE(window->mdiArea()->subWindowList().isEmpty());

    Screen* first = openByNumber(310);
    ASSERT_NE(first, nullptr);
    openByNumber(105);
    Screen* again = openByNumber(310);
    EXPECT_EQ(again, first);
    EXPECT_EQ(window->mdiArea()->subWindowList().size(), 2);
    EXPECT_EQ(session().gActiveForm.data(), first);
    EXPECT_EQ(first->windowTitle(), QStringLiteral("(310)발주관리"));
    EXPECT_TRUE(window->mdiArea()->currentSubWindow()->isMaximized());
}

TEST_F(MainWindow, menuPanelAfterOpeningByNumberAndByTree) {
    MAINMDI* window = mainWindow();
    openByNumber(105);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("ON")); // wide screen keeps it
    // By the tree the toggle follows, so the outcome is reversed.
    window->tree()->itemClicked(node(window->tree(), QStringLiteral("BAMAS170")), 0);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("OFF"));
    EXPECT_TRUE(window->menuPanel()->isHidden());

    window->setScreenWidth(1024); // the boundary itself counts as wide
    window->mnuMenu_Click();
    openByNumber(310);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("ON"));
    window->setScreenWidth(1023);
    openByNumber(310);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("OFF"));
    window->tree()->itemClicked(node(window->tree(), QStringLiteral("BAMAS105")), 0);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("ON"));
    EXPECT_TRUE(window->programBox()->text().isEmpty());
}

TEST_F(MainWindow, theProgramBoxTakesAnyLengthAndANonNumberOpensNothing) {
    MAINMDI* window = mainWindow();
    QLineEdit* box = window->programBox();
    box->setFocus();
    QTest::keyClicks(box, QStringLiteral("000105"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_NE(window->openScreen(QStringLiteral("BAMAS105")), nullptr);

    box->setText(QStringLiteral("1o5"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->text().isEmpty()); // treated as a number not found
    EXPECT_EQ(window->mdiArea()->subWindowList().size(), 1);
}

TEST_F(MainWindow, everyRowOfTheToolBarTableLeavesItsOwnButtonsOn) {
    MAINMDI* window = mainWindow();
    const auto buttons = [window] {
        QString on;
        for (auto bar : {MAINMDI::TobToolBar1, MAINMDI::TobToolBar2}) {
            for (int b = 1; b <= 4; ++b) {
                on += window->toolButton(bar, b)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
            }
            on += QLatin1Char('/');
        }
        return on;
    };
    // One screen of each row, opened one after the other: nothing stays from the last. A
    // screen with a report grid also has preview and print on, whatever its row says.
    const std::pair<int, const char*> rows[] = {
        {310, "0000/0111/"}, {105, "1111/1111/"}, {110, "1110/0111/"}, {330, "1000/0111/"},
        {170, "1111/1111/"}, {162, "1110/0001/"}, {505, "0000/0001/"}};
    for (const auto& [number, expected] : rows) {
        openByNumber(number);
        EXPECT_EQ(buttons(), QString::fromLatin1(expected)) << number;
    }
}

TEST_F(MainWindow, theWindowMenuStacksTilesAndCascadesAtOneSize) {
    MAINMDI* window = mainWindow();
    for (int number : {105, 170, 310}) {
        openByNumber(number);
    }
    const QSize area = window->mdiArea()->viewport()->size();
    const auto windows = window->mdiArea()->subWindowList();
    ASSERT_EQ(windows.size(), 3);
    const auto arrange = [window](const char* item) {
        window->menuAction(QString::fromLatin1(item))->trigger();
        QApplication::processEvents();
    };

    arrange("mnuWindowTileHorizontal"); // one above the other, each the full width
    const int h = area.height() / 3;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(windows[i]->geometry(),
                  QRect(0, h * i, area.width(), i < 2 ? h : area.height() - 2 * h));
    }
    arrange("mnuWindowTileVertical"); // side by side, each the full height
    const int w = area.width() / 3;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(windows[i]->geometry(),
                  QRect(w * i, 0, i < 2 ? w : area.width() - 2 * w, area.height()));
    }
    arrange("mnuWindowCascade"); // one size, each a step further down and right
    for (int i = 1; i < 3; ++i) {
        EXPECT_EQ(windows[i]->size(), windows[0]->size());
        EXPECT_GT(windows[i]->y(), windows[i - 1]->y());
        EXPECT_GT(windows[i]->x(), windows[i - 1]->x());
    }
    EXPECT_GE(windows[0]->width(), area.width() / 2);
    EXPECT_GE(windows[0]->height(), area.height() / 2);
    EXPECT_LE(windows[2]->geometry().bottom(), area.height());
}

TEST_F(MainWindow, theTreeDrawsLinesToItsNodes) {
    MAINMDI* window = mainWindow();
    QTreeWidget* tree = window->tree();
    QApplication::processEvents();
    const QImage image = tree->viewport()->grab().toImage();
    const QColor base = tree->viewport()->palette().color(QPalette::Base);
    // A program has no children, so left of it only a line is drawn, never a sign.
    const QRect item = tree->visualItemRect(node(tree, QStringLiteral("BAMAS105")));
    const double scale = image.devicePixelRatio();
    int inked = 0;
    for (int x = item.left() - tree->indentation(); x < item.left(); ++x) {
        for (int y = item.top(); y <= item.bottom(); ++y) {
            inked += image.pixelColor(QPoint(int(x * scale), int(y * scale))) != base;
        }
    }
    EXPECT_GT(inked, 4);
}

TEST_F(MainWindow, panelStaysWithoutScreens) {
    MAINMDI* window = mainWindow();
    window->mnuMenu_Click();
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("ON"));
}

TEST_F(MainWindow, toolBarModesResetOnActivationAndTheCrossedTwin) {
    MAINMDI* window = mainWindow();
    openByNumber(505); // everything but Exit off
    EXPECT_FALSE(window->toolButton(MAINMDI::TobToolBar1, 1)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 4)->isEnabled());
    // Preview and Print, off by the store list's ranges, come back on for its report grid.
    openByNumber(105);
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar1, 1)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 1)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 2)->isEnabled());
    EXPECT_TRUE(window->menuAction(QStringLiteral("mnuPrint"))->isEnabled());
    openByNumber(505); // back to everything but Exit off
    EXPECT_FALSE(window->toolButton(MAINMDI::TobToolBar2, 2)->isEnabled());
    EXPECT_FALSE(window->menuAction(QStringLiteral("mnuPrint"))->isEnabled());

    window->gsToolBarSet(MAINMDI::TobToolBar1, 1);
    window->gsToolBarSet(MAINMDI::TobToolBar1, 2, 4, 4);
    EXPECT_FALSE(window->toolButton(MAINMDI::TobToolBar1, 4)->isEnabled());
    EXPECT_FALSE(window->menuAction(QStringLiteral("mnuSave"))->isEnabled());
    EXPECT_TRUE(window->menuAction(QStringLiteral("mnuDelete"))->isEnabled());
    window->gsToolBarSet(MAINMDI::TobToolBar1, 0);
    EXPECT_FALSE(window->menuAction(QStringLiteral("mnuSearch"))->isEnabled());
    window->gsToolBarSet(MAINMDI::TobToolBar1, 3, 1, 2);
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar1, 2)->isEnabled());
    EXPECT_FALSE(window->toolButton(MAINMDI::TobToolBar1, 3)->isEnabled());
}

TEST_F(MainWindow, toolBarsAndMenuTwinsReachTheActiveScreen) {
    registerScreenFactory(QStringLiteral("BAMAS105"), [] { return new CountingScreen; });
    auto* screen = dynamic_cast<CountingScreen*>(openByNumber(105));
    ASSERT_NE(screen, nullptr);
    MAINMDI* window = mainWindow();
    window->gsToolBarClick(MAINMDI::TobToolBar1, QStringLiteral("Search"));
    window->menuAction(QStringLiteral("mnuSave"))->trigger();
    window->menuAction(QStringLiteral("mnuDelete"))->trigger();
    window->menuAction(QStringLiteral("mnuExcel"))
        ->trigger(); // presses "Preview", though it is off
    window->menuAction(QStringLiteral("mnuPrint"))->trigger(); // off with its button: nothing
    EXPECT_EQ(screen->calls, (QStringList{QStringLiteral("Search"), QStringLiteral("Save"),
                                          QStringLiteral("Delete"), QStringLiteral("Print2")}));
    registerScreenFactory(QStringLiteral("BAMAS105"), {});
    registerScreens();
}

TEST_F(MainWindow, exitClosesTheScreenWithItsLogAndThenAsksToEnd) {
    MAINMDI* window = mainWindow();
    Screen* screen = openByNumber(105);
    ASSERT_NE(screen, nullptr);
    exec(QStringLiteral("DELETE FROM C_USERLOG"));
    QTest::qWait(1100);
    window->gsToolBarClick(MAINMDI::TobToolBar2, QStringLiteral("Exit"));
    QApplication::processEvents();
    EXPECT_TRUE(window->mdiArea()->subWindowList().isEmpty());
    EXPECT_EQ(count(QStringLiteral("C_USERLOG"), QStringLiteral("PROGID = 'BAMAS105'")), 1);
    EXPECT_EQ(session().gActiveForm.data(), nullptr);
    EXPECT_EQ(window->menuPanelTag(), QStringLiteral("ON"));

    presenter->answerNo();
    window->gsToolBarClick(MAINMDI::TobToolBar2, QStringLiteral("Exit"));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(presenter->boxes.last().text, QStringLiteral("프로그램을 종료 하시겠습니까?"));
}

TEST_F(MainWindow, frameCloseLogsLikeExit) {
    Screen* screen = openByNumber(170);
    ASSERT_NE(screen, nullptr);
    QTest::qWait(1100);
    mainWindow()->mdiArea()->currentSubWindow()->close();
    QApplication::processEvents();
    EXPECT_EQ(count(QStringLiteral("C_USERLOG"), QStringLiteral("PROGID = 'BAMAS170'")), 1);
    EXPECT_EQ(session().gActiveForm.data(), nullptr);
}

TEST_F(MainWindow, changeCheckAsksOnlyWithTwoScreensAndClosesThemOnYes) {
    MAINMDI* window = mainWindow();
    openByNumber(105);
    EXPECT_TRUE(window->gfbChangeCheck(QStringLiteral("브랜드")));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    openByNumber(170);
    presenter->answerNo();
    EXPECT_FALSE(window->gfbChangeCheck(QStringLiteral("브랜드")));
    EXPECT_EQ(window->mdiArea()->subWindowList().size(), 2);
    presenter->answerYes();
    EXPECT_TRUE(window->gfbChangeCheck(QStringLiteral("브랜드")));
    QApplication::processEvents();
    EXPECT_TRUE(window->mdiArea()->subWindowList().isEmpty());
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("브랜드을 변경하시면")));
}

TEST_F(MainWindow, restartShowsItsBoxAndDoesNothingElse) {
    mainWindow()->menuAction(QStringLiteral("mnuprocRestart"))->trigger();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("TODO : ProcStart 코딩"));
}

TEST_F(MainWindow, aProgramUnderAMissingMenuGoesToTheTrap) {
    exec(QStringLiteral("UPDATE PROGLIST SET UPPROGID = 'M999' WHERE PROGID = 'BAMAS310'"));
    mainWindow();
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRPROG FROM C_ERROR")),
              QStringLiteral("MAINMDI : Menu_Display"));
    EXPECT_GE(main->tree()->topLevelItemCount(), 1); // what came before the fault stays
}

TEST_F(MainWindow, withoutACompanyTheBarsAndTheBoxCloseTheWindowSilently) {
    MAINMDI* window = mainWindow();
    session().gsCompany = QStringLiteral("  ");
    window->programBox()->setText(QStringLiteral("105"));
    window->cmdRun_Click();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(presenter->boxes.isEmpty()); // message 9 has no text
    EXPECT_TRUE(window->mdiArea()->subWindowList().isEmpty());
}
