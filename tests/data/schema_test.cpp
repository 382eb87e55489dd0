#include "data/database.h"
#include "data/recordset.h"
#include "data/schema/schema.h"
#include "data/schema/tables.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "support/testdb.h"

#include <QRegularExpression>

#include <map>

namespace {

// table -> its column names in order, read back from generated DDL text.
std::map<QString, QStringList> tablesIn(const QString& ddl) {
    std::map<QString, QStringList> tables;
    static const QRegularExpression create(
        QStringLiteral(R"(CREATE TABLE (?:IF NOT EXISTS )?(\w+) \((.*?)\n\);)"),
        QRegularExpression::DotMatchesEverythingOption);
    for (auto it = create.globalMatch(ddl); it.hasNext();) {
        const auto match = it.next();
        QStringList columns;
        for (const QString& line : match.captured(2).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            const QString name = line.trimmed().section(QLatin1Char(' '), 0, 0);
            if (name != QLatin1String("PRIMARY")) {
                columns << name;
            }
        }
        tables[match.captured(1)] = columns;
    }
    return tables;
}

QStringList columnsOf(Database& db, const QString& object) {
    const RecordSet rs =
        db.select(QStringLiteral("SELECT * FROM ") + object + QStringLiteral(" WHERE 1 = 0"));
    return rs.fieldNames();
}

TEST(SchemaDdl, bothEnginesDeclareTheSameTablesAndColumnsInTheSameOrder) {
    const auto sqlite = tablesIn(schemaDdl(QStringLiteral("TORVIX"), false));
    const auto server = tablesIn(schemaDdl(QStringLiteral("TORVIX"), true));
    EXPECT_GE(sqlite.size(), 40u);
    EXPECT_EQ(sqlite, server);
    for (const char* name :
         {"C_STORE", "S_ORDERDETAIL", "T_INBOUND", "C_G2B_Student", "PROGLIST"}) {
        EXPECT_TRUE(sqlite.count(QString::fromLatin1(name))) << name;
    }
    EXPECT_EQ(tablesIn(schemaDdl(QStringLiteral("UPDATE"), true)).size(), 1u);
}

TEST(SchemaDdl, serverTextKeepsEachViewAndFunctionInABatchOfItsOwn) {
    const QString ddl = schemaDdl(QStringLiteral("TORVIX"), true);
    for (const ViewDef& view : schemaViews()) {
        EXPECT_TRUE(
            ddl.contains(QStringLiteral("GO\nCREATE VIEW ") + view.name + QStringLiteral(" (")))
            << qPrintable(view.name);
        EXPECT_FALSE(view.sqlServerBody.contains(QStringLiteral("IFNULL")))
            << qPrintable(view.name);
        EXPECT_FALSE(view.sqliteBody.contains(QStringLiteral("ISNULL("))) << qPrintable(view.name);
    }
    EXPECT_EQ(ddl.count(QStringLiteral("CREATE FUNCTION DBO.FN_STORE")), 3);
}

TEST(SchemaDdl, backupTablesCopyTheirSourceColumnsInOrder_withoutKey) {
    for (const QString& name : backedUpSlipTables()) {
        const TableDef* source = findTable(name);
        const TableDef* backup = findTable(name + QStringLiteral("_DEL_BACK"));
        ASSERT_TRUE(source && backup) << qPrintable(name);
        ASSERT_EQ(source->columns.size(), backup->columns.size());
        for (std::size_t i = 0; i < source->columns.size(); ++i) {
            EXPECT_EQ(source->columns[i].name, backup->columns[i].name);
            EXPECT_EQ(source->columns[i].type, backup->columns[i].type);
        }
        EXPECT_TRUE(backup->key.isEmpty());
    }
}

class SchemaTest : public TestDb {};

TEST_F(SchemaTest, everyTableAndViewExists_withItsDeclaredColumns) {
    Database& db = *session().gDb;
    for (const TableDef& table : schemaTables()) {
        if (table.database != QLatin1String("TORVIX")) {
            continue;
        }
        QStringList declared;
        for (const ColumnDef& column : table.columns) {
            declared << column.name;
        }
        EXPECT_EQ(columnsOf(db, table.name), declared) << qPrintable(table.name);
    }
    for (const ViewDef& view : schemaViews()) {
        EXPECT_EQ(columnsOf(db, view.name), view.columns) << qPrintable(view.name);
    }
}

TEST_F(SchemaTest, createSchemaAgainKeepsRows_andRemakesTheViews) {
    exec(QStringLiteral(
        "INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) VALUES ('01', '01', 'A')"));
    exec(QStringLiteral("DROP VIEW VIW_T_INBOUND"));
    createSchema(*session().gDb, QStringLiteral("TORVIX"));
    EXPECT_EQ(count(QStringLiteral("C_BRAND")), 1);
    EXPECT_EQ(count(QStringLiteral("VIW_T_INBOUND")), 0);
}

TEST_F(SchemaTest, textComparesIgnoringTrailingBlanks_asTheServersCharColumns) {
    exec(QStringLiteral(
        "INSERT INTO C_SCHOOL (COMPANY, SCHOOLCD, SCHOOLNAME) VALUES ('01', '001', '한빛중  ')"));
    EXPECT_EQ(count(QStringLiteral("C_SCHOOL"), QStringLiteral("SCHOOLNAME = '한빛중'")), 1);
    EXPECT_EQ(
        count(QStringLiteral("C_SCHOOL"), QStringLiteral("COMPANY = '01 ' AND SCHOOLCD = '001'")),
        1);
    // A key that differs only by trailing blanks is the same key.
    EXPECT_THROW(session().gDb->execute(QStringLiteral(
                     "INSERT INTO C_SCHOOL (COMPANY, SCHOOLCD) VALUES ('01', '001 ')")),
                 DbError);
}

TEST_F(SchemaTest, slipDeletionBackupTakesWholeRowsBySelectStar) {
    exec(QStringLiteral(
        "INSERT INTO S_ORDERDETAIL (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, PKEY, SIZE, CNT, "
        "AMT) "
        "VALUES ('01', '01', '001', '20240305', '0001', 'NB01  4N01', '95', 1, 150000)"));
    for (const QString& name : backedUpSlipTables()) {
        exec(QStringLiteral("INSERT INTO %1_DEL_BACK SELECT * FROM %1").arg(name));
    }
    exec(QStringLiteral("INSERT INTO S_ORDERDETAIL_DEL_BACK SELECT * FROM S_ORDERDETAIL"));
    EXPECT_EQ(count(QStringLiteral("S_ORDERDETAIL_DEL_BACK"),
                    QStringLiteral("AMT = 150000 AND SIZE = '95'")),
              2);
}

} // namespace
