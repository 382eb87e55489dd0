// The code box and option array as one field, and the check array's filter list, driven by keys
// and clicks.
#include "testdb.h"

#include "shell/buttonarray.h"
#include "shell/codechecklist.h"
#include "shell/codeoptionfield.h"
#include "shell/recordform.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class CodeFields : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        loadFixture(u"code_lists.sql"_s);
    }
};

TEST_F(CodeFields, typingAndClickingKeepBoxAndOptionsInStep) {
    CodeOptionField field(u"GT22"_s, u"EGT022"_s, 1, 4);
    QStringList seen;
    QObject::connect(&field, &CodeOptionField::codeChanged, [&](const QString& c) { seen << c; });
    field.show();
    EXPECT_EQ(field.box()->objectName(), u"txtGT22"_s);
    EXPECT_EQ(field.options()->objectName(), u"optGT22"_s);
    // "E" kinds list the unused codes too.
    ASSERT_EQ(field.options()->count(), 4);

    QTest::keyClicks(field.box(), u"s"_s);
    EXPECT_EQ(field.box()->text(), u"S"_s);
    EXPECT_EQ(field.selectedElement(), 2);

    // A code the group does not hold empties the box.
    field.box()->clear();
    QTest::keyClicks(field.box(), u"q"_s);
    EXPECT_EQ(field.box()->text(), QString());

    QTest::mouseClick(field.options()->element(3), Qt::LeftButton);
    EXPECT_EQ(field.code(), u"A"_s);
    EXPECT_EQ(seen.last(), u"A"_s);

    EXPECT_TRUE(field.setName(u"동복"_s));
    EXPECT_EQ(field.code(), u"N"_s);
    EXPECT_FALSE(field.setName(u"없는이름"_s));
    EXPECT_EQ(field.code(), QString());
}

TEST_F(CodeFields, twoCharacterCodeLooksUpOnlyAtFullLength) {
    CodeOptionField field(u"CGT01"_s, u"CGT01"_s, 2, 4);
    field.show();
    QTest::keyClicks(field.box(), u"2"_s);
    EXPECT_EQ(field.box()->text(), u"2"_s); // not yet looked up
    EXPECT_EQ(field.selectedElement(), 0);
    QTest::keyClicks(field.box(), u"0"_s);
    EXPECT_EQ(field.selectedElement(), 2);
    EXPECT_EQ(field.code(), u"20"_s);
}

TEST_F(CodeFields, formBindingStoresTheCodeAndMarksTheBoxRequired) {
    RecordForm form(u"C_UNIFORM"_s);
    auto* field = new CodeOptionField(u"GT22"_s, u"EGT022"_s, 1, 4);
    form.codeOptions(field, u"SEASON"_s).required();
    EXPECT_EQ(field->box()->palette().color(QPalette::Base), QColor(192, 255, 192));
    EXPECT_FALSE(form.checkRequired());
    ASSERT_EQ(presenter->boxes.size(), 1);
    form.load([](const QString&, QString& v) {
        v = u"S "_s;
        return true;
    });
    EXPECT_EQ(field->code(), u"S"_s);
    ASSERT_EQ(form.assignments().size(), 1);
    EXPECT_EQ(form.assignments().first().value, u"'S'"_s);
    delete field;
}

TEST_F(CodeFields, checkListJoinsTheCheckedCodesOnEveryClick) {
    CodeCheckList filter(u"GT22"_s, u"txtChGT22"_s, u"EGT022"_s, 4);
    int changes = 0;
    QObject::connect(&filter, &CodeCheckList::listChanged, [&] { ++changes; });
    filter.show();
    QTest::mouseClick(filter.checks()->element(1), Qt::LeftButton);
    EXPECT_EQ(filter.list(), u"N"_s);
    QTest::mouseClick(filter.checks()->element(3), Qt::LeftButton);
    EXPECT_EQ(filter.list(), u"N','A"_s);
    EXPECT_EQ(filter.listBox()->text(), filter.list());
    QTest::mouseClick(filter.checks()->element(1), Qt::LeftButton);
    EXPECT_EQ(filter.list(), u"A"_s);
    EXPECT_EQ(changes, 3);
    filter.clearChecks();
    EXPECT_EQ(filter.list(), QString());
}
