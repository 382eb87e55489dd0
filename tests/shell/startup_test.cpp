// Start-up against what a shop's data folder may hold: the documented database.ini, a misspelt
// path, a trace database that cannot be used.
#include "testdb.h"

#include "data/connectionconfig.h"
#include "data/dbroutines.h"
#include "data/embedded.h"
#include "data/session.h"
#include "shell/startup.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

// The ini block of the README's section on a central server, as a shop would copy it.
QString readmeIniExample() {
    QFile readme(QStringLiteral(TORVIX_FIXTURES) + u"/../../README.md"_s);
    if (!readme.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QString text = QString::fromUtf8(readme.readAll());
    const auto match =
        QRegularExpression(u"```ini\\n(.*?)```"_s, QRegularExpression::DotMatchesEverythingOption)
            .match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

} // namespace

class StartUp : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        for (const char* name : {"TORVIX_DB", "TORVIX_UPDATE_DB", "TORVIX_STATEMENT_TIMEOUT"}) {
            qunsetenv(name);
        }
        resetSession();
        presenter = std::make_shared<ScriptedPresenter>();
        session().presenter = presenter;
        session().endProcess = [this](int code) { endedWith = code; };
    }
    void TearDown() override {
        qunsetenv("TORVIX_DB");
        qunsetenv("TORVIX_UPDATE_DB");
        resetSession();
    }
    // A prepared main database outside the data folder, named by TORVIX_DB: no demo chain to
    // wait for.
    void useExistingMainDatabase() {
        ASSERT_TRUE(QDir(dir.path()).mkpath(u"main"_s));
        const QString main = dir.filePath(u"main"_s);
        ASSERT_TRUE(prepareEmbeddedDatabases(ConnectionConfig::load(main), main).isEmpty());
        qputenv("TORVIX_DB", QDir(main).filePath(u"torvix.db"_s).toUtf8());
    }

    QTemporaryDir dir;
    std::shared_ptr<ScriptedPresenter> presenter;
    int endedWith = -1;
};

TEST_F(StartUp, theReadmesDatabaseIniIsReadWholeAndOtherFormsToo) {
    const QString example = readmeIniExample();
    ASSERT_FALSE(example.isEmpty()) << "no ini block in README.md";
    writeFile(dir.filePath(u"database.ini"_s), example.toUtf8());
    const ConnectionConfig config = ConnectionConfig::load(dir.path());
    const auto line = [&example](const QString& key) {
        const auto m =
            QRegularExpression(u"^"_s + key + u"=(.*)$"_s, QRegularExpression::MultilineOption)
                .match(example);
        return m.captured(1).trimmed();
    };
    EXPECT_TRUE(config.torvix.startsWith(u"odbc:"_s));
    EXPECT_TRUE(config.torvix.contains(u";PWD="_s)) << config.torvix.toStdString();
    EXPECT_EQ(config.torvix, line(u"TORVIX"_s));
    EXPECT_EQ(config.update, line(u"UPDATE"_s));
    EXPECT_TRUE(config.torvixConfigured);

    // Quoted values, Windows paths, comments, a byte-order mark, CRLF and lower-case keys.
    writeFile(
        dir.filePath(u"database.ini"_s),
        "\xEF\xBB\xBF; shop 12\r\n[Database]\r\ntorvix = \"C:\\Torvix\\data,1\\torvix.db\"\r\n"
        "UPDATE=sqlite:D:\\trace\\update.db\r\nSTATEMENT_TIMEOUT=30\r\n[OTHER]\r\n"
        "TORVIX=elsewhere\r\n");
    const ConnectionConfig windows = ConnectionConfig::load(dir.path());
    EXPECT_EQ(windows.torvix, u"C:\\Torvix\\data,1\\torvix.db"_s);
    EXPECT_EQ(windows.update, u"sqlite:D:\\trace\\update.db"_s);
    EXPECT_EQ(windows.statementTimeoutSeconds, 30);
}

TEST_F(StartUp, aConfiguredPathThatNamesNoFileEndsTheStartAndMakesNothing) {
    const QString misspelt = dir.filePath(u"torvx.db"_s);
    writeFile(dir.filePath(u"database.ini"_s), "[DATABASE]\nTORVIX=" + misspelt.toUtf8() + "\n");
    QString notice;
    QString detail;
    EXPECT_FALSE(openSessionDatabases(dir.path(), notice, detail));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QDir::toNativeSeparators(misspelt)));
    EXPECT_TRUE(presenter->boxes[0].text.contains(u"TORVIX="_s));
    EXPECT_FALSE(QFile::exists(misspelt));
    EXPECT_FALSE(QFile::exists(dir.filePath(u"torvix.db"_s)));

    // The same through the environment.
    presenter->boxes.clear();
    qputenv("TORVIX_DB", dir.filePath(u"nowhere/torvix.db"_s).toUtf8());
    EXPECT_FALSE(openSessionDatabases(dir.path(), notice, detail));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(u"TORVIX_DB"_s));
    EXPECT_FALSE(QFile::exists(dir.filePath(u"nowhere"_s)));
}

TEST_F(StartUp, anUnusableTraceDatabaseStartsWithoutTheTraceAndSaysSo) {
    useExistingMainDatabase();
    const QByteArray junk = QByteArray("\x13\x37 not a database \xff\x00", 20).repeated(300);
    writeFile(dir.filePath(u"update.db"_s), junk);
    for (const QString& update : {QString(), dir.filePath(u"missing/update.db"_s)}) {
        SCOPED_TRACE(update.toStdString());
        resetSession();
        session().presenter = presenter;
        session().endProcess = [this](int code) { endedWith = code; };
        if (!update.isEmpty()) {
            qputenv("TORVIX_UPDATE_DB", update.toUtf8());
        }
        QString notice;
        QString detail;
        ASSERT_TRUE(openSessionDatabases(dir.path(), notice, detail));
        EXPECT_TRUE(presenter->boxes.isEmpty());
        EXPECT_TRUE(notice.contains(u"update.db"_s)) << notice.toStdString();
        EXPECT_FALSE(notice.contains(u'\n'));
        EXPECT_TRUE(detail.contains(
            QDir::toNativeSeparators(update.isEmpty() ? dir.filePath(u"update.db"_s) : update)))
            << detail.toStdString();
        EXPECT_TRUE(session().traceOff);
        // Saving works, untraced.
        ASSERT_TRUE(gfbConnectDB());
        EXPECT_TRUE(gfbSqlExecuteDB(u"INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) "_s
                                    u"VALUES ('01', '9"_s +
                                    QString::number(update.isEmpty()) + u"', 'x')"_s));
        EXPECT_FALSE(gfbConnectUpdateDB());
        EXPECT_TRUE(presenter->boxes.isEmpty());
        EXPECT_EQ(endedWith, -1);
    }
    QFile file(dir.filePath(u"update.db"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), junk) << "a file that is no database is left as it is";
}
