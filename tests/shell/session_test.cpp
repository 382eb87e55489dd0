// Start-up: the launcher's command line, the embedded databases, the session logs, the main window.
#include "testdb.h"

#include "data/connectionconfig.h"
#include "data/embedded.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "shell/commandline.h"
#include "shell/mainmdi.h"
#include "shell/proginit.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QSettings>

#include <stdexcept>

TEST(CommandLine, itemsLoseEveryBlankAndFillTheSession) {
    resetSession();
    EXPECT_TRUE(applyCommandLine(commandLineItems(
        {QStringLiteral("A B , B,"), QStringLiteral("C"), QStringLiteral(", S,extra")})));
    EXPECT_EQ(session().gsCompany, QStringLiteral("AB"));
    EXPECT_EQ(session().gsUserId, QStringLiteral("B"));
    EXPECT_EQ(session().gsUserName, QStringLiteral("C"));
    EXPECT_EQ(session().gsUserClass, QStringLiteral("S"));
    resetSession();
}

TEST(CommandLine, tooFewItemsAreRefusedAndTwoOrThreeFail) {
    resetSession();
    EXPECT_FALSE(applyCommandLine(commandLineItems({})));
    EXPECT_FALSE(applyCommandLine(commandLineItems({QStringLiteral("01")})));
    EXPECT_THROW(applyCommandLine(commandLineItems({QStringLiteral("01,admin,관리자")})),
                 std::out_of_range);
    EXPECT_EQ(session().gsUserName, QStringLiteral("관리자")); // copied in order until the failure
    EXPECT_TRUE(applyCommandLine(commandLineItems({QStringLiteral("01,admin,x,s")})));
    EXPECT_NE(session().gsUserClass, QStringLiteral("S"));
    resetSession();
}

TEST(EmbeddedDatabases, fileThatIsNoDatabaseIsNamedAndLeftUntouched) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("torvix.db"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray junk =
        QByteArray("this is not a database file at all, just text").repeated(100);
    file.write(junk);
    file.close();
    const QString problem =
        prepareEmbeddedDatabases(ConnectionConfig::load(dir.path()), dir.path());
    EXPECT_TRUE(problem.contains(path)) << problem.toStdString();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), junk);
}

TEST(EmbeddedDatabases, firstStartFillsTheDemoChainOnceAndWritesTheIni) {
    QTemporaryDir dir;
    const ConnectionConfig config = ConnectionConfig::load(dir.path());
    ASSERT_TRUE(prepareEmbeddedDatabases(config, dir.path(), DemoData::Fill).isEmpty());
    const auto stores = [&config] {
        SqliteDatabase db(ConnectionConfig::sqlitePath(config.torvix),
                          SqliteDatabase::OpenMode::ExistingOnly);
        return db.select(QStringLiteral("SELECT COUNT(*) FROM C_STORE")).at(0, 0).toInt();
    };
    const int first = stores();
    EXPECT_GT(first, 0);
    ASSERT_TRUE(prepareEmbeddedDatabases(config, dir.path(), DemoData::Fill).isEmpty());
    EXPECT_EQ(stores(), first);
    QSettings ini(dir.filePath(QStringLiteral("Torvix.ini")), QSettings::IniFormat);
    EXPECT_EQ(ini.value(QStringLiteral("VERSION/VERSIONMAJOR")).toString(), QStringLiteral("1"));
    EXPECT_TRUE(QFileInfo(dir.filePath(QStringLiteral("Report"))).isDir());
}

TEST(EmbeddedDatabases, folderThatCannotBeWrittenIsNamed) {
    QTemporaryDir dir;
    QFile blocker(dir.filePath(QStringLiteral("plainfile")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const QString folder = dir.filePath(QStringLiteral("plainfile/data"));
    const QString problem = prepareEmbeddedDatabases(ConnectionConfig::load(folder), folder);
    EXPECT_TRUE(problem.contains(QStringLiteral("plainfile"))) << problem.toStdString();
}

class SessionLogs : public TestDb {};

TEST_F(SessionLogs, screenCaptionComesFromProgramListAndOpeningIsLogged) {
    exec(QStringLiteral("INSERT INTO PROGLIST (PROGID, HANNM, FORMNO, GUBUN, USEYN) VALUES "
                        "('BAMAS105', '매장등록', '105', '3', 'Y')"));
    QWidget known;
    known.setObjectName(QStringLiteral("BAMAS105"));
    gsProgInit(QStringLiteral("tester"), &known);
    EXPECT_EQ(known.windowTitle(), QStringLiteral("(105)매장등록"));
    QWidget unknown;
    unknown.setObjectName(QStringLiteral("BAMAS999"));
    unknown.setWindowTitle(QStringLiteral("임시"));
    gsProgInit(QStringLiteral("tester"), &unknown);
    EXPECT_EQ(unknown.windowTitle(), QStringLiteral("임시(BAMAS999)"));
    EXPECT_EQ(
        count(QStringLiteral("C_LOG"),
              QStringLiteral(
                  "PROGID IN ('BAMAS105','BAMAS999') AND USERID = 'tester' AND COMPANY = '01'")),
        2);
}

TEST_F(SessionLogs, closingLogsUseTimeButNothingUnderOneSecond) {
    QWidget form;
    form.setObjectName(QStringLiteral("BAMAS170 "));
    gsUserLog(QStringLiteral("tester"), &form, QDateTime::currentDateTime());
    EXPECT_EQ(count(QStringLiteral("C_USERLOG")), 0);
    gsUserLog(QStringLiteral("  "), &form, QDateTime::currentDateTime().addSecs(-75));
    EXPECT_EQ(
        scalar(QStringLiteral("SELECT USERID || '|' || PROGID || '|' || USETIME FROM C_USERLOG")),
        QStringLiteral("비승인|BAMAS170|75"));
}

TEST_F(SessionLogs, mainWindowCaptionStatusAndCloseAnsweredNo) {
    QSettings ini(dir.filePath(QStringLiteral("Torvix.ini")), QSettings::IniFormat);
    ini.setValue(QStringLiteral("VERSION/VERSIONMAJOR"), 2);
    ini.setValue(QStringLiteral("VERSION/VERSIONMINOR"), 3);
    ini.setValue(QStringLiteral("VERSION/VERSIONREVISION"), 4);
    ini.setValue(QStringLiteral("VERSION/VNDRNM"), QStringLiteral("본사"));
    ini.sync();
    MAINMDI window;
    EXPECT_EQ(window.windowTitle(), QStringLiteral("TORVIX_OPERATE  ver. 2.3.4 [본사] "));
    EXPECT_EQ(window.statusPanel(2)->text(), QStringLiteral("tester / 시험자"));
    EXPECT_TRUE(window.statusPanel(3)->text().startsWith(QStringLiteral("로그인시각 ")));
    EXPECT_EQ(scalar(QStringLiteral("SELECT VERSION FROM C_LOG WHERE PROGID = 'MAINMDI'")),
              QStringLiteral("ver. 2.3.4"));
    window.show();
    presenter->answerNo();
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(presenter->boxes.last().text, QStringLiteral("프로그램을 종료 하시겠습니까?"));
    presenter->answerYes();
    EXPECT_TRUE(window.close());
}
