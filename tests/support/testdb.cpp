#include "testdb.h"

#include "data/connectionconfig.h"
#include "data/database.h"
#include "data/dbroutines.h"
#include "data/embedded.h"
#include "data/session.h"

#include <QFile>

void TestDb::SetUp() {
    ASSERT_TRUE(dir.isValid());
    qputenv("TORVIX_HOME", dir.path().toUtf8());
    resetSession();
    Session& s = session();
    s.config = ConnectionConfig::load(dir.path());
    const QString problem = prepareEmbeddedDatabases(s.config, dir.path());
    ASSERT_TRUE(problem.isEmpty()) << problem.toStdString();
    s.gsCompany = QStringLiteral("01");
    s.gsUserId = QStringLiteral("tester");
    s.gsUserName = QStringLiteral("시험자");
    s.gsUserClass = QStringLiteral("S");
    presenter = std::make_shared<ScriptedPresenter>();
    s.presenter = presenter;
    s.endProcess = [this](int code) { endedWith = code; };
    ASSERT_TRUE(gfbConnectDB());
}

void TestDb::TearDown() { resetSession(); }

void TestDb::exec(const QString& sql) {
    try {
        session().gDb->execute(sql);
    } catch (const DbError& error) {
        FAIL() << error.description().toStdString() << "\n" << sql.toStdString();
    }
}

QString TestDb::scalar(const QString& sql) {
    const RecordSet rs = session().gDb->select(sql);
    return rs.recordCount() > 0 && rs.fieldCount() > 0 ? rs.at(0, 0) : QString();
}

QString TestDb::scalarUpdate(const QString& sql) {
    if (!gfbConnectUpdateDB()) {
        return QStringLiteral("<no UPDATE connection>");
    }
    const RecordSet rs = session().gDbUpdate->select(sql);
    return rs.recordCount() > 0 && rs.fieldCount() > 0 ? rs.at(0, 0) : QString();
}

qint64 TestDb::count(const QString& table, const QString& where) {
    return scalar(QStringLiteral("SELECT COUNT(*) FROM ") + table +
                  (where.isEmpty() ? QString() : QStringLiteral(" WHERE ") + where))
        .toLongLong();
}

void TestDb::loadFixture(const QString& name) {
    QFile file(QStringLiteral(TORVIX_FIXTURES) + QLatin1Char('/') + name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    exec(QString::fromUtf8(file.readAll()));
}
