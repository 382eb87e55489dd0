#include "testdb.h"

#include "grid/inputhelpers.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QWidget>

#include <gtest/gtest.h>

TEST(InputHelpersTest, byteLengthInCodePage949) {
    EXPECT_EQ(gfByteLen(QString()), 0);
    EXPECT_EQ(gfByteLen(QStringLiteral("abc")), 3);
    EXPECT_EQ(gfByteLen(QStringLiteral("교복a")), 5);
    EXPECT_EQ(gfByteLen(QStringLiteral("😀")), 2) << "not in the code page";
    EXPECT_EQ(gfByteLen(QStringLiteral("a😀b")), 4);
}

TEST(InputHelpersTest, numberInput) {
    QLineEdit box;
    const auto shown = [&](const char* typed) {
        box.setText(QString::fromUtf8(typed));
        gsNumberInput(&box);
        EXPECT_EQ(box.cursorPosition(), box.text().size());
        return box.text();
    };
    EXPECT_EQ(shown("1a2b3"), QStringLiteral("123"));
    EXPECT_EQ(shown("-"), QStringLiteral("-"));
    EXPECT_EQ(shown("0-"), QStringLiteral("-"));
    EXPECT_EQ(shown("1234"), QStringLiteral("1,234"));
    EXPECT_EQ(shown("-1234"), QStringLiteral("-1,234"));
    // A Korean input method in full-width mode: digits, minus and comma of that width.
    EXPECT_EQ(shown("１２３"), QStringLiteral("123"));
    EXPECT_EQ(shown("－１，２３４"), QStringLiteral("-1,234"));
    EXPECT_EQ(shown("－"), QStringLiteral("-"));
    EXPECT_EQ(shown("1,2345"), QStringLiteral("12,345"));
    EXPECT_EQ(shown("007"), QStringLiteral("7"));
}

TEST(InputHelpersTest, phoneAndDateInput) {
    QLineEdit box;
    const auto phone = [&](const char* typed) {
        box.setText(QString::fromUtf8(typed));
        gsPhoneInput(&box, box.text());
        EXPECT_EQ(box.cursorPosition(), box.text().size());
        return box.text();
    };
    EXPECT_EQ(phone("0212345678"), QStringLiteral("02-1234-5678"));
    EXPECT_EQ(phone("01012345678"), QStringLiteral("010-1234-5678"));
    EXPECT_EQ(phone("021234567"), QStringLiteral("02-123-4567"));
    EXPECT_EQ(phone("0311234"), QStringLiteral("031-123-4"));
    EXPECT_EQ(phone("010-1234-5678"), QStringLiteral("010-1234-5678"));
    EXPECT_EQ(phone("010123456789"), QStringLiteral("010123456789")) << "too long stays";
    EXPECT_EQ(phone("02"), QStringLiteral("02"));

    const auto date = [&](const char* typed) {
        box.setText(QString::fromUtf8(typed));
        gsDateInput(&box, box.text());
        return box.text();
    };
    EXPECT_EQ(date("20240315"), QStringLiteral("2024-03-15"));
    EXPECT_EQ(date("202403"), QStringLiteral("2024-03"));
    EXPECT_EQ(date("2024"), QStringLiteral("2024"));
    EXPECT_EQ(date("2024-03-15"), QStringLiteral("2024-03-15"));
    EXPECT_EQ(date("202403151"), QStringLiteral("202403151"));
}

TEST(InputHelpersTest, optedInBoxesFormatAsTheUserTypes) {
    QLineEdit phone;
    gsInputStyle(&phone, InputStyle::Phone);
    phone.setText(QStringLiteral("01012345678"));
    EXPECT_EQ(phone.text(), QStringLiteral("010-1234-5678"));
    QLineEdit amount;
    gsInputStyle(&amount, InputStyle::Number);
    amount.setText(QStringLiteral("1234567"));
    EXPECT_EQ(amount.text(), QStringLiteral("1,234,567"));
}

TEST(InputHelpersTest, textCutTestsBytesAndCutsCharacters) {
    QLineEdit box;
    gsByteLimit(&box, 6);
    box.setText(QStringLiteral("가나다라")); // 8 bytes, over the limit
    EXPECT_EQ(gsTextCut(&box), QStringLiteral("가나다라")) << "cut to 6 characters: nothing to cut";
    box.setText(QStringLiteral("가나다라마바사")); // 14 bytes, 7 characters
    EXPECT_EQ(gsTextCut(&box), QStringLiteral("가나다라마바"));
    box.setText(QStringLiteral("O'Neil"));
    EXPECT_EQ(gsTextCut(&box), QStringLiteral("O'Neil")) << "quotes are left to quoted()";
    gsTextCut(&box);
    EXPECT_EQ(box.text(), QStringLiteral("O'Neil"));

    QLineEdit free;
    free.setText(QString(100, QLatin1Char('x')));
    EXPECT_EQ(gsTextCut(&free).size(), 100) << "no limit, no cut";

    // Typing stops at the limit in bytes, Korean included.
    QLineEdit typed;
    gsByteLimit(&typed, 5);
    emit typed.textEdited(QStringLiteral("교복가"));
    EXPECT_EQ(typed.text(), QStringLiteral("교복"));
}

TEST(InputHelpersTest, formClearEmptiesBoxesAndOptionsButNotCombos) {
    QWidget form;
    auto* text = new QLineEdit(QStringLiteral("x"), &form);
    auto* check = new QCheckBox(&form);
    check->setChecked(true);
    auto* optionA = new QRadioButton(&form);
    auto* optionB = new QRadioButton(&form);
    QButtonGroup group;
    group.addButton(optionA);
    group.addButton(optionB);
    optionA->setChecked(true);
    auto* combo = new QComboBox(&form);
    combo->setEditable(true);
    combo->addItems({QStringLiteral("a"), QStringLiteral("b")});
    combo->setCurrentIndex(1);
    gsFormClear(&form);
    EXPECT_TRUE(text->text().isEmpty());
    EXPECT_FALSE(check->isChecked());
    EXPECT_FALSE(optionA->isChecked());
    EXPECT_TRUE(group.exclusive());
    EXPECT_EQ(combo->currentText(), QStringLiteral("b"));
}

class TableCountTest : public TestDb {};

TEST_F(TableCountTest, countsTheCompanysRows) {
    exec(QStringLiteral("INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, USEYN) VALUES "
                        "('01', '01', 'A', 'Y'), ('01', '02', 'B', 'N'), ('02', '01', 'C', 'Y')"));
    EXPECT_EQ(gfTableCount(QStringLiteral("C_BRAND")), 2);
    EXPECT_EQ(gfTableCount(QStringLiteral("C_BRAND"), QStringLiteral(" AND USEYN = 'Y'")), 1);
    EXPECT_EQ(gfTableCount(QStringLiteral("NO_SUCH_TABLE")), 0);
}
