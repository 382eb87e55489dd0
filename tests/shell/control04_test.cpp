// The brand search pop-up, shown modal and used from the keyboard: whole-name search, choose, exit.
#include "testdb.h"
#include "userinput.h"

#include "grid/spreadroutines.h"
#include "shell/control04.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

class Control04Test : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        exec(QStringLiteral("INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, USEYN) VALUES "
                            "('01', '01', 'School''s Look', 'Y'), ('01', '02', '아이비', 'Y'), "
                            "('02', '07', '아이비', 'Y')"));
    }
    // Opens the pop-up modal and acts on it as a user while it is shown.
    std::optional<CodeChoice> usePopup(const QString& kind,
                                       const std::function<void(QWidget*)>& act) {
        QTimer::singleShot(0, [act] {
            QWidget* popup = QApplication::activeModalWidget();
            ASSERT_NE(popup, nullptr);
            act(popup);
            if (popup->isVisible()) { // a test that failed leaves no dialog open
                popup->close();
            }
        });
        return showControl04(kind);
    }
    static Spread* grid(QWidget* popup) {
        return popup->findChild<Spread*>(QStringLiteral("GRPSP1"));
    }
    static QLineEdit* name(QWidget* popup) {
        return popup->findChild<QLineEdit*>(QStringLiteral("txtcodenm"));
    }
};

TEST_F(Control04Test, enterSearchesWithoutClosingAndADoubleClickChooses) {
    const auto choice = usePopup(QStringLiteral("브랜드"), [](QWidget* popup) {
        typeText(name(popup), QStringLiteral("아이"));
        QTest::keyClick(name(popup), Qt::Key_Return);
        EXPECT_EQ(grid(popup)->maxRows(), 0); // a part of the name finds nothing
        EXPECT_TRUE(popup->isVisible());
        name(popup)->clear();
        typeText(name(popup), QStringLiteral("아이비"));
        QTest::keyClick(name(popup), Qt::Key_Return);
        EXPECT_TRUE(popup->isVisible());      // Enter searched and pressed no button
        ASSERT_EQ(grid(popup)->maxRows(), 1); // the other company's brand stays out
        clickCell(grid(popup), 1, 3, true);
    });
    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->code, QStringLiteral("02"));
    EXPECT_EQ(choice->name, QStringLiteral("아이비"));
}

TEST_F(Control04Test, markThenChooseUpperCasesAndExitChoosesNothing) {
    auto choice = usePopup(QStringLiteral("브랜드"), [](QWidget* popup) {
        QTest::keyClicks(name(popup), QStringLiteral("School's Look"));
        QTest::keyClick(name(popup), Qt::Key_Enter);
        clickCell(grid(popup), 1, 2);
        EXPECT_EQ(gfSpreadText(grid(popup), 1, 1), QStringLiteral("*"));
        QTest::mouseClick(popup->findChild<QPushButton*>(QStringLiteral("cmdChoice")),
                          Qt::LeftButton);
    });
    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->code, QStringLiteral("01"));
    EXPECT_EQ(choice->name, QStringLiteral("SCHOOL'S LOOK"));

    choice = usePopup(QStringLiteral("브랜드"), [](QWidget* popup) {
        QTest::keyClicks(name(popup), QStringLiteral("School's Look"));
        QTest::keyClick(name(popup), Qt::Key_Return);
        clickCell(grid(popup), 1, 2);
        QTest::mouseClick(popup->findChild<QPushButton*>(QStringLiteral("cmdExit")),
                          Qt::LeftButton);
    });
    EXPECT_FALSE(choice.has_value());

    choice = usePopup(QStringLiteral("학교"), [](QWidget* popup) {
        QTest::keyClicks(name(popup), QStringLiteral("x"));
        QTest::keyClick(name(popup), Qt::Key_Return);
        EXPECT_EQ(grid(popup)->maxRows(), 0); // only brands are searched here
        QTest::keyClick(popup, Qt::Key_Escape);
    });
    EXPECT_FALSE(choice.has_value());
}
