#include "servertexts.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

const QString& keepServerText(const QString& sql) {
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const QString name = test ? QString::fromUtf8(test->test_suite_name()) + QLatin1Char('.') +
                                    QString::fromUtf8(test->name())
                              : QStringLiteral("outside");
    // The parse picks the tests to run by their names; a keeping test outside them would go
    // unparsed without anyone noticing.
    EXPECT_TRUE(name.contains(QLatin1String("Server")))
        << name.toStdString() << " keeps a server text but has no \"Server\" in its name";
    const QString folder = qEnvironmentVariable("TORVIX_SERVER_TEXTS");
    if (folder.isEmpty()) {
        return sql;
    }
    static int kept = 0;
    QDir().mkpath(folder);
    QFile file(QDir(folder).filePath(
        QStringLiteral("%1-%2.sql").arg(name).arg(++kept, 3, 10, QLatin1Char('0'))));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        << file.fileName().toStdString();
    file.write(sql.toUtf8());
    return sql;
}
