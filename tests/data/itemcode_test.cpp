// The item code forms: one text per engine, the same codes on both.
#include "testdb.h"

#include "data/dialect.h"
#include "data/itemcode.h"

namespace {
const Dialect server(Dialect::Engine::SqlServer);
const Dialect lite(Dialect::Engine::Sqlite);
} // namespace

class ItemCodeTest : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        exec(QStringLiteral("INSERT INTO C_UNIFORM (COMPANY, SEASON, DIVIDE, UNIFORMSEQ, "
                            "UNIFORMCOMSEQ, UNIFORMNAME) VALUES ('01', 'N', 'B', '01', '', 'a'), "
                            "('01', 'N', 'B', '01', '03', 'b'), ('01', 'S', 'G', '7', '', 'c')"));
    }
    QString codes(const QString& expr) {
        return scalar(QStringLiteral("SELECT group_concat(C, ',') FROM (SELECT ") + expr +
                      QStringLiteral(" AS C FROM C_UNIFORM UF ORDER BY UNIFORMNAME)"));
    }
};

TEST_F(ItemCodeTest, listAndJoinFormsKeepTheStoredParts) {
    EXPECT_EQ(server.isSqlServer(), true);
    EXPECT_EQ(itemListCode(server, QStringLiteral("UF")),
              QStringLiteral("RTRIM(UF.SEASON) + RTRIM(UF.DIVIDE) + RTRIM(UF.UNIFORMSEQ)"));
    EXPECT_EQ(itemJoinCode(server, QStringLiteral("UF")),
              QStringLiteral("UF.SEASON + UF.DIVIDE + UF.UNIFORMSEQ + UF.UNIFORMCOMSEQ"));
    // The list form leaves a short sequence short; the full form pads it to two.
    EXPECT_EQ(codes(itemListCode(lite, QStringLiteral("UF"))), QStringLiteral("NB01,NB01,SG7"));
    EXPECT_EQ(codes(itemJoinCode(lite, QStringLiteral("UF"))), QStringLiteral("NB01,NB0103,SG7"));
    EXPECT_EQ(codes(itemFullCode(lite, QStringLiteral("UF"))), QStringLiteral("NB01,NB0103,SG7 "));
}
