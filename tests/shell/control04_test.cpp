// The brand search pop-up: whole-name search, mark, choose, exit.
#include "testdb.h"

#include "data/session.h"
#include "grid/spreadroutines.h"
#include "shell/control04.h"

#include <QLineEdit>

class Control04Test : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        exec(QStringLiteral("INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, USEYN) VALUES "
                            "('01', '01', 'School''s Look', 'Y'), ('01', '02', '아이비', 'Y'), "
                            "('02', '07', '아이비', 'Y')"));
        session().gsPopupCode = QStringLiteral("stale");
    }
};

TEST_F(Control04Test, wholeNameSearchMarkAndChoose) {
    Control04 popup(QStringLiteral("브랜드"));
    EXPECT_TRUE(session().gsPopupCode.isEmpty()); // cleared on load
    auto* grid = popup.findChild<Spread*>(QStringLiteral("GRPSP1"));
    auto* name = popup.findChild<QLineEdit*>(QStringLiteral("txtcodenm"));
    ASSERT_TRUE(grid && name);
    EXPECT_EQ(grid->maxRows(), 0);
    name->setText(QStringLiteral("아이"));
    popup.sSelectQuery();
    EXPECT_EQ(grid->maxRows(), 0); // a part of the name finds nothing
    name->setText(QStringLiteral("School's Look"));
    popup.sSelectQuery();
    ASSERT_EQ(grid->maxRows(), 1);
    popup.markRow(1);
    EXPECT_EQ(gfSpreadText(grid, 1, 1), QStringLiteral("*"));
    popup.cmdChoice_Click();
    EXPECT_EQ(session().gsPopupCode, QStringLiteral("01"));
    EXPECT_EQ(session().gsPopupName, QStringLiteral("SCHOOL'S LOOK"));
    EXPECT_EQ(popup.result(), QDialog::Accepted);
}

TEST_F(Control04Test, exitLeavesNoChoiceAndOtherKindsSearchNothing) {
    Control04 popup(QStringLiteral("브랜드"));
    popup.findChild<QLineEdit*>(QStringLiteral("txtcodenm"))->setText(QStringLiteral("아이비"));
    popup.sSelectQuery();
    auto* grid = popup.findChild<Spread*>(QStringLiteral("GRPSP1"));
    EXPECT_EQ(grid->maxRows(), 1); // the other company's brand stays out
    popup.markRow(1);
    popup.cmdExit_Click();
    EXPECT_TRUE(session().gsPopupCode.isEmpty());
    EXPECT_TRUE(session().gsPopupName.isEmpty());

    Control04 other(QStringLiteral("학교"));
    other.findChild<QLineEdit*>(QStringLiteral("txtcodenm"))->setText(QStringLiteral("아이비"));
    other.sSelectQuery();
    EXPECT_EQ(other.findChild<Spread*>(QStringLiteral("GRPSP1"))->maxRows(), 0);
}
