// The item master's two pop-ups, opened by a double click on the list and really shown modal:
// common items with their schools, and exclusive items with theirs.
#include "screenfixture.h"
#include "userinput.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/dialect.h"
#include "data/session.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS115.h"
#include "screens/school/BAMAS115_SUB.h"
#include "screens/school/BAMAS115_Trans.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <functional>

class Bamas115Popups : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("bamas115_items.sql"));
        screen = openByNumber<BAMAS115>(115);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear();
    }
    int rowOf(const QString& code) {
        for (int row = 1; row <= list->dataRowCnt(); ++row) {
            if (list->model()->value(row, 5) == code) {
                return row;
            }
        }
        return 0;
    }
    // Double clicks the item's cell under the heading and acts on the pop-up it shows modal.
    template <typename T>
    void inPopup(const QString& code, int col, const std::function<void(T*)>& act) {
        bool shown = false;
        QTimer::singleShot(0, [&] {
            auto* popup = qobject_cast<T*>(QApplication::activeModalWidget());
            shown = popup != nullptr;
            if (popup) {
                act(popup);
                popup->reject();
            }
        });
        clickCell(list, rowOf(code), col, true);
        EXPECT_TRUE(shown) << "no modal pop-up";
    }
    static void press(QWidget* popup, const char* name) {
        QTest::mouseClick(popup->findChild<QPushButton*>(QString::fromLatin1(name)),
                          Qt::LeftButton);
        QApplication::processEvents();
    }
    // A click on an option's indicator, where a wide button still takes it.
    static void clickOption(QAbstractButton* option) {
        QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
        QApplication::processEvents();
    }
    static QString cellAt(Spread* grid, int row, int col) { return grid->model()->value(row, col); }
    static QString schools(Spread* grid) {
        QStringList codes;
        for (int row = 1; row <= grid->maxRows(); ++row) {
            if (!cellAt(grid, row, 2).isEmpty()) {
                codes << cellAt(grid, row, 2);
            }
        }
        return codes.join(u',');
    }
    // Fills the three required fields of a common item.
    static void describe(QWidget* popup, const QString& name) {
        auto* nameBox = popup->findChild<QLineEdit*>(QStringLiteral("txtComName"));
        nameBox->clear();
        typeText(nameBox, name);
        auto* button = popup->findChild<QPlainTextEdit*>(QStringLiteral("txtComButName"));
        button->clear();
        typeText(button, name);
        auto* spec = popup->findChild<QLineEdit*>(QStringLiteral("txtComSpec"));
        spec->clear();
        typeText(spec, QStringLiteral("100% 'wool'"));
    }
    BAMAS115* screen = nullptr;
    Spread* list = nullptr;
};

TEST_F(Bamas115Popups, commonItemsAreNumberedFromTheMaximumAndGapsStay) {
    inPopup<BAMAS115_SUB>(QStringLiteral("NB01"), 12, [this](BAMAS115_SUB* sub) {
        EXPECT_EQ(sub->findChild<QLineEdit*>(QStringLiteral("txtcode"))->text(),
                  QStringLiteral("NB01"));
        EXPECT_EQ(sub->findChild<QLabel*>(QStringLiteral("lblGT26"))->text(), QStringLiteral("X"));
        EXPECT_EQ(sub->findChild<QLabel*>(QStringLiteral("lblCodeSeq"))->text(),
                  QStringLiteral("01"));
        // A boys' item lists boys' schools only.
        EXPECT_FALSE(sub->findChild<QGroupBox*>(QStringLiteral("Frame3"))->isEnabled());
        EXPECT_TRUE(sub->findChild<QRadioButton*>(QStringLiteral("optGT23_1"))->isChecked());
        auto* items = sub->findChild<Spread*>(QStringLiteral("SP1"));
        EXPECT_EQ(cellAt(items, 1, 1), QStringLiteral("NB0101"));

        press(sub, "cmdNew");
        press(sub, "cmdSave");
        ASSERT_EQ(presenter->boxes.size(), 1); // message 22
        for (const char* name : {"둘째", "셋째"}) {
            press(sub, "cmdNew");
            describe(sub, QString::fromUtf8(name));
            press(sub, "cmdSave");
        }
        EXPECT_EQ(cellAt(items, 3, 1), QStringLiteral("NB0103"));
        EXPECT_EQ(sub->findChild<QLineEdit*>(QStringLiteral("txtComCode"))->text(),
                  QStringLiteral("03")); // the new item stays chosen
        clickCell(items, 2, 2);
        press(sub, "cmdDel");
        press(sub, "cmdNew");
        describe(sub, QStringLiteral("넷째"));
        press(sub, "cmdSave");
    });
    EXPECT_EQ(
        scalar(QStringLiteral("SELECT group_concat(UNIFORMCOMSEQ || ':' || UNIFORMNAME || ':' "
                              "|| SIZETAB || UNITYPE, ' ') FROM (SELECT * FROM C_UNIFORM "
                              "WHERE SEASON = 'N' AND DIVIDE = 'B' AND UNIFORMSEQ = '01' "
                              "AND UNIFORMCOMSEQ <> '' ORDER BY UNIFORMCOMSEQ)")),
        QStringLiteral("01:동복자켓(특):X01 03:셋째:X01 04:넷째:X01"));
    EXPECT_EQ(
        scalar(QStringLiteral("SELECT UNIFORMSPEC FROM C_UNIFORM WHERE UNIFORMCOMSEQ = '04'")),
        QStringLiteral("100% 'wool'"));
}

TEST_F(Bamas115Popups, schoolsMoveAndSaveAtOnceAndTheDeleteTakesSchoolsAndExclusives) {
    inPopup<BAMAS115_SUB>(QStringLiteral("NB01"), 12, [this](BAMAS115_SUB* sub) {
        auto* items = sub->findChild<Spread*>(QStringLiteral("SP1"));
        auto* assigned = sub->findChild<Spread*>(QStringLiteral("SP2"));
        auto* free = sub->findChild<Spread*>(QStringLiteral("SP3"));
        clickCell(items, 1, 2);
        EXPECT_EQ(schools(assigned), QStringLiteral("001"));
        EXPECT_EQ(schools(free), QStringLiteral("003")); // no girls' school, no closed one
        EXPECT_EQ(cellAt(free, 1, 4), QStringLiteral("남"));
        EXPECT_EQ(free->maxRows(), 35);
        clickCell(free, 1, 1);
        press(sub, "cmdLeft");
        EXPECT_EQ(schools(assigned), QStringLiteral("001,003"));
        EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"),
                        QStringLiteral("UNIFORMCOMSEQ = '01' AND SUDIVIDE = '1' AND SEASON = 'N'")),
                  2);
        // The heading of the check column checks every school; all move back.
        clickCell(assigned, 1, 1);
        clickCell(assigned, 2, 1);
        press(sub, "cmdRight");
        EXPECT_EQ(schools(assigned), QString());
        EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("UNIFORMCOMSEQ = '01'")),
                  0);
        clickCell(free, 1, 1);
        press(sub, "cmdLeft");

        // A sale of the common item keeps it.
        exec(QStringLiteral("INSERT INTO S_ORDERDETAIL (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, "
                            "PKEY, UNIFORMCD) VALUES ('01', '01', '001', '20250302', '1', '1', "
                            "'NB0101')"));
        presenter->boxes.clear();
        press(sub, "cmdDel");
        ASSERT_EQ(presenter->boxes.size(), 1);
        EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("기 처리된")));
        exec(QStringLiteral("DELETE FROM S_ORDERDETAIL WHERE UNIFORMCD = 'NB0101'"));
        press(sub, "cmdDel");
        EXPECT_EQ(items->dataRowCnt(), 0);
    });
    EXPECT_EQ(
        count(QStringLiteral("C_UNIFORM"), QStringLiteral("UNIFORMCOMSEQ = '01' AND SEASON = 'N'")),
        0);
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("UNIFORMCOMSEQ = '01'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM")), 2); // the base item's
    EXPECT_EQ(count(QStringLiteral("C_TRANSUNIFORM"), QStringLiteral("UNIFORMCD = 'NB0101'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_TRANSUNIFORM")), 2);
    EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL")), 3);
}

TEST_F(Bamas115Popups, aMixedItemChoosesItsSexAndAnItemWithoutSexSavesWithoutSchools) {
    inPopup<BAMAS115_SUB>(QStringLiteral("AB02"), 12, [this](BAMAS115_SUB* sub) {
        EXPECT_TRUE(sub->findChild<QGroupBox*>(QStringLiteral("Frame3"))->isEnabled());
        EXPECT_TRUE(sub->findChild<QRadioButton*>(QStringLiteral("optGT23_1"))->isChecked());
        describe(sub, QStringLiteral("체육복상의"));
        press(sub, "cmdSave");
        auto* free = sub->findChild<Spread*>(QStringLiteral("SP3"));
        EXPECT_EQ(schools(free), QStringLiteral("001,003"));
        // The girls' list of a mixed boys' item: girls' and mixed schools.
        clickOption(sub->findChild<QRadioButton*>(QStringLiteral("optGT23_2")));
        EXPECT_EQ(schools(free), QStringLiteral("002,003"));
    });
    EXPECT_EQ(scalar(QStringLiteral("SELECT UNIFORMCOMSEQ || MIXUNIFORM || SUBMAIN FROM C_UNIFORM "
                                    "WHERE UNIFORMNAME = '체육복상의'")),
              QStringLiteral("0112"));
    inPopup<BAMAS115_SUB>(QStringLiteral("SU01"), 12, [this](BAMAS115_SUB* sub) {
        EXPECT_TRUE(sub->findChild<QRadioButton*>(QStringLiteral("optGT23_0"))->isChecked());
        describe(sub, QStringLiteral("하복티2"));
        press(sub, "cmdSave");
        EXPECT_EQ(schools(sub->findChild<Spread*>(QStringLiteral("SP3"))), QString());
    });
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("UNIFORMNAME = '하복티2'")), 1);
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("SEASON <> 'N'")), 0);
}

TEST_F(Bamas115Popups, oneSchoolIsRefusedAfterTheItemRowIsSavedAndTheLastMovedAwayEmptiesTheGroup) {
    inPopup<BAMAS115_Trans>(QStringLiteral("NB01"), 13, [this](BAMAS115_Trans* trans) {
        EXPECT_EQ(trans->findChild<QLabel*>(QStringLiteral("lblUniformCd"))->text(),
                  QStringLiteral("NB01"));
        EXPECT_EQ(trans->findChild<QLabel*>(QStringLiteral("lblUniformName"))->text(),
                  QStringLiteral("동복/남/NB01/동복자켓"));
        auto* items = trans->findChild<Spread*>(QStringLiteral("SP1"));
        auto* assigned = trans->findChild<Spread*>(QStringLiteral("SP2"));
        auto* free = trans->findChild<Spread*>(QStringLiteral("SP3"));
        EXPECT_EQ(cellAt(items, 1, 1), QStringLiteral("TS01"));
        EXPECT_EQ(cellAt(items, 1, 9), QStringLiteral("1"));
        clickCell(items, 1, 1);
        EXPECT_EQ(schools(assigned), QStringLiteral("001"));
        EXPECT_EQ(schools(free), QStringLiteral("003"));

        // The last school moved away: the group has no school left.
        clickCell(assigned, 1, 1);
        press(trans, "cmdRight");
        EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL"), QStringLiteral("TRANSSEQ = '01'")), 0);
        EXPECT_TRUE(presenter->boxes.isEmpty());

        // One school: the colour is saved, the school list is refused and left alone.
        auto* colour = trans->findChild<QLineEdit*>(QStringLiteral("txtColor"));
        colour->clear();
        typeText(colour, QStringLiteral("진'남색"));
        clickCell(free, 1, 1);
        press(trans, "cmdLeft");
        ASSERT_EQ(presenter->boxes.size(), 1);
        EXPECT_EQ(presenter->boxes[0].text,
                  QStringLiteral("전용등록 시 학교는 2곳 이상이어야 합니다. "));
        EXPECT_EQ(schools(assigned), QStringLiteral("003")); // the grid keeps the moved row
        EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL"), QStringLiteral("TRANSSEQ = '01'")), 0);
        EXPECT_EQ(
            scalar(QStringLiteral("SELECT COLOR FROM C_TRANSUNIFORM WHERE UNIFORMCD = 'NB01'")),
            QStringLiteral("진'남색"));

        clickCell(free, 1, 1);
        press(trans, "cmdLeft");
        EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL"), QStringLiteral("TRANSSEQ = '01'")), 2);
        EXPECT_EQ(cellAt(items, 1, 9), QStringLiteral("2"));
    });
}

TEST_F(Bamas115Popups, aNewExclusiveItemTakesTheCompanysNextNumberAndItsFirstSaveKeepsItsSchools) {
    inPopup<BAMAS115_Trans>(QStringLiteral("NB01"), 13, [this](BAMAS115_Trans* trans) {
        press(trans, "cmdNew");
        typeText(trans->findChild<QLineEdit*>(QStringLiteral("txtColor")), QStringLiteral("빨강"));
        // Schools moved before the first save go in with it.
        auto* free = trans->findChild<Spread*>(QStringLiteral("SP3"));
        EXPECT_EQ(schools(free), QStringLiteral("001,003"));
        clickCell(free, 1, 1);
        clickCell(free, 2, 1);
        press(trans, "cmdLeft");
        EXPECT_TRUE(presenter->boxes.isEmpty());
        // "TS02" and "TS03" are other items' numbers: the new one is the company's next.
        EXPECT_EQ(trans->findChild<QLabel*>(QStringLiteral("lblCode"))->text(),
                  QStringLiteral("TS04"));
        EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(SCHOOLCD, ',') FROM (SELECT SCHOOLCD "
                                        "FROM C_TRANSSCHOOL WHERE TRANSSEQ = '04' ORDER BY 1)")),
                  QStringLiteral("001,003"));
        EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL"), QStringLiteral("TRANSSEQ = '02'")), 2);
        auto* items = trans->findChild<Spread*>(QStringLiteral("SP1"));
        EXPECT_EQ(cellAt(items, 2, 1), QStringLiteral("TS04"));
        EXPECT_EQ(cellAt(items, 2, 9), QStringLiteral("2"));
        for (int row : {1, 2}) {
            clickCell(items, row, 1);
            clickOption(trans->findChild<QRadioButton*>(QStringLiteral("optUSEYN_1")));
            press(trans, "cmdSave");
        }
        EXPECT_EQ(gfSpreadText(items, 1, 8), QStringLiteral("보류"));
    });
    screen->m_Search();
    EXPECT_EQ(list->model()->value(rowOf(QStringLiteral("NB01")), 13), QStringLiteral("0"));
}

TEST_F(Bamas115Popups, whenTheNumbersRunOutTheSaveSaysSoAndWritesNothing) {
    exec(QStringLiteral("INSERT INTO C_TRANSUNIFORM (COMPANY, TRANSCD, TRANSSEQ, UNIFORMCD, USEYN) "
                        "VALUES ('01', 'TS', '99', 'SU01', 'Y')"));
    inPopup<BAMAS115_Trans>(QStringLiteral("NB01"), 13, [this](BAMAS115_Trans* trans) {
        press(trans, "cmdNew");
        auto* colour = trans->findChild<QLineEdit*>(QStringLiteral("txtColor"));
        typeText(colour, QStringLiteral("빨강"));
        press(trans, "cmdSave");
        ASSERT_EQ(presenter->boxes.size(), 1);
        EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("TS99")));
        EXPECT_EQ(colour->text(), QStringLiteral("빨강"));
        EXPECT_TRUE(trans->findChild<QLabel*>(QStringLiteral("lblCode"))->text().isEmpty());
    });
    EXPECT_EQ(count(QStringLiteral("C_TRANSUNIFORM"), QStringLiteral("UNIFORMCD = 'NB01'")), 1);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);
}

TEST_F(Bamas115Popups, aFailedSaveOfACommonItemKeepsWhatWasTypedAndMovedForASecondTry) {
    exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON C_SCHOOLUNIFORM "
                        "BEGIN SELECT RAISE(ABORT, 'locked'); END"));
    inPopup<BAMAS115_SUB>(QStringLiteral("NB01"), 12, [this](BAMAS115_SUB* sub) {
        auto* items = sub->findChild<Spread*>(QStringLiteral("SP1"));
        auto* assigned = sub->findChild<Spread*>(QStringLiteral("SP2"));
        auto* free = sub->findChild<Spread*>(QStringLiteral("SP3"));
        clickCell(items, 1, 2);
        describe(sub, QStringLiteral("특자켓2"));
        clickCell(free, 1, 1);
        press(sub, "cmdLeft");
        ASSERT_EQ(presenter->boxes.size(), 1);
        EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM (SELECT ERRPROG "
                                        "FROM C_ERROR ORDER BY ROWID)")),
                  QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS115_SUB : sSaveQuery"));
        EXPECT_EQ(sub->findChild<QLineEdit*>(QStringLiteral("txtComName"))->text(),
                  QStringLiteral("특자켓2"));
        EXPECT_EQ(schools(assigned), QStringLiteral("001,003"));
        EXPECT_EQ(scalar(QStringLiteral("SELECT UNIFORMNAME FROM C_UNIFORM WHERE "
                                        "UNIFORMCOMSEQ = '01' AND SEASON = 'N'")),
                  QStringLiteral("동복자켓(특)"));
        EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("UNIFORMCOMSEQ = '01'")),
                  1);

        exec(QStringLiteral("DROP TRIGGER refuse"));
        press(sub, "cmdSave");
        EXPECT_EQ(presenter->boxes.size(), 1);
        EXPECT_EQ(schools(assigned), QStringLiteral("001,003"));
    });
    EXPECT_EQ(scalar(QStringLiteral("SELECT UNIFORMNAME FROM C_UNIFORM WHERE UNIFORMCOMSEQ = '01' "
                                    "AND SEASON = 'N'")),
              QStringLiteral("특자켓2"));
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("UNIFORMCOMSEQ = '01'")), 2);
}

TEST_F(Bamas115Popups, theServerTextOfTheSchoolListsCarriesNoSqliteSpelling) {
    inPopup<BAMAS115_Trans>(QStringLiteral("NB01"), 13, [](BAMAS115_Trans* trans) {
        const Dialect serverDialect(Dialect::Engine::SqlServer);
        const ScopedDialect server(serverDialect);
        for (const QString& sql : {trans->listStatement(), trans->schoolStatement(false),
                                   trans->schoolStatement(true)}) {
            EXPECT_FALSE(keepServerText(sql).contains(QStringLiteral("||"))) << sql.toStdString();
            EXPECT_TRUE(sql.contains(QStringLiteral("WITH(NOLOCK)")));
        }
        EXPECT_TRUE(trans->schoolStatement(false).contains(QStringLiteral(
            "RTRIM(SU.SEASON) + RTRIM(SU.DIVIDE) + CONVERT(CHAR(2), RTRIM(SU.UNIFORMSEQ)) + "
            "RTRIM(SU.UNIFORMCOMSEQ) = 'NB01'")));
        EXPECT_TRUE(
            trans->schoolStatement(true).contains(QStringLiteral("TS.TRANSCD + TS.TRANSSEQ = ''")));
    });
    inPopup<BAMAS115_SUB>(QStringLiteral("NB01"), 12, [](BAMAS115_SUB* sub) {
        const Dialect serverDialect(Dialect::Engine::SqlServer);
        const ScopedDialect server(serverDialect);
        for (bool assigned : {false, true}) {
            const QString sql = keepServerText(sub->schoolStatement(assigned, QStringLiteral("1")));
            EXPECT_FALSE(sql.contains(QStringLiteral("||")));
            EXPECT_TRUE(sql.contains(QStringLiteral("SU.SEASON IN ('A', 'N')")));
        }
    });
}

// Run by hand (--gtest_also_run_disabled_tests): pictures of both pop-ups on the demo chain,
// written to the folder TORVIX_SHOTS names.
class Bamas115Shots : public ScreenTest {};

TEST_F(Bamas115Shots, DISABLED_grabsThePopupsOnTheDemoChain) {
    generateDemoChain(*session().gDb, 1, 1);
    auto* screen = openByNumber<BAMAS115>(115);
    ASSERT_NE(screen, nullptr);
    auto* list = screen->findChild<Spread*>(QStringLiteral("SP1"));
    const QString folder = qEnvironmentVariable("TORVIX_SHOTS", QStringLiteral("."));
    for (const auto& [col, file] :
         {std::pair{12, "s115_sub.png"}, std::pair{13, "s115_trans.png"}}) {
        int row = 1;
        while (row < list->dataRowCnt() && list->model()->value(row, col) != QStringLiteral("1")) {
            ++row;
        }
        QTimer::singleShot(0, [&, name = QString::fromLatin1(file)] {
            QWidget* popup = QApplication::activeModalWidget();
            ASSERT_NE(popup, nullptr);
            auto* items = popup->findChild<Spread*>(QStringLiteral("SP1"));
            clickCell(items, 1, 2);
            popup->grab().save(folder + u'/' + name);
            popup->close();
        });
        clickCell(list, row, col, true);
    }
}
