// The ODBC connection run for real, through unixODBC and the SQLite ODBC driver.
#include "data/database.h"
#include "data/dialect.h"
#include "data/odbcdatabase.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

class Odbc : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        const QString path = dir.filePath(QStringLiteral("odbc.db"));
        db = std::make_unique<OdbcDatabase>(QStringLiteral("DRIVER=SQLite3;Database=") + path);
        db->execute(QStringLiteral("CREATE TABLE T (CODE TEXT, NAME TEXT, QTY INTEGER)"));
    }
    QTemporaryDir dir;
    std::unique_ptr<OdbcDatabase> db;
};

TEST_F(Odbc, selectAndExecuteWithKoreanText) {
    // The SQLite driver takes one statement a call; the server takes batches.
    EXPECT_EQ(db->execute(QStringLiteral("INSERT INTO T VALUES ('01', '강남점', 3)")), 1);
    EXPECT_EQ(db->execute(QStringLiteral("INSERT INTO T VALUES ('02', NULL, 4)")), 1);
    EXPECT_EQ(db->execute(QStringLiteral("UPDATE T SET QTY = QTY + 1")), 2);
    RecordSet rs = db->select(QStringLiteral("SELECT CODE, NAME, QTY FROM T ORDER BY CODE"));
    ASSERT_EQ(rs.recordCount(), 2);
    EXPECT_EQ(rs.field(QStringLiteral("NAME")), QStringLiteral("강남점"));
    EXPECT_EQ(rs.field(QStringLiteral("QTY")), QStringLiteral("4"));
    rs.moveNext();
    EXPECT_EQ(rs.field(QStringLiteral("NAME")), QString());
    EXPECT_FALSE(db->dialect().isSqlServer()); // the driver says which engine answers
}

TEST_F(Odbc, longTextComesBackWhole) {
    const QString text = QString(5000, QChar(0xD559));
    db->execute(QStringLiteral("INSERT INTO T VALUES ('L', '") + text + QStringLiteral("', 0)"));
    EXPECT_EQ(db->select(QStringLiteral("SELECT NAME FROM T")).at(0, 0), text);
}

TEST_F(Odbc, transactionsCommitAndRollBack) {
    db->begin();
    db->execute(QStringLiteral("INSERT INTO T VALUES ('A', 'a', 1)"));
    db->rollback();
    EXPECT_EQ(db->select(QStringLiteral("SELECT COUNT(*) FROM T")).at(0, 0), QStringLiteral("0"));
    db->begin();
    EXPECT_TRUE(db->inTransaction());
    db->execute(QStringLiteral("INSERT INTO T VALUES ('B', 'b', 1)"));
    db->commit();
    EXPECT_FALSE(db->inTransaction());
    EXPECT_EQ(db->select(QStringLiteral("SELECT COUNT(*) FROM T")).at(0, 0), QStringLiteral("1"));
}

TEST_F(Odbc, errorsCarryTheEngineText) {
    try {
        db->select(QStringLiteral("SELECT * FROM NO_SUCH_TABLE"));
        FAIL() << "no error";
    } catch (const DbError& error) {
        EXPECT_TRUE(error.description().contains(QStringLiteral("NO_SUCH_TABLE"))) << error.description().toStdString();
        EXPECT_NE(error.number(), ConnectionLost::GeneralFailure);
    }
}

TEST(OdbcConnect, unknownDriverIsALostConnection) {
    EXPECT_THROW(OdbcDatabase(QStringLiteral("DRIVER=NoSuchDriver;SERVER=127.0.0.1"), 1), ConnectionLost);
}
