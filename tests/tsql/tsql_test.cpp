// The server path checked without a server: every statement that the tests build with the SQL
// Server dialect (see servertexts.h), and the server's DDL, must parse as T-SQL.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// What sqlfluff 1.4.5 cannot parse although SQL Server takes it: each construct is taken out of
// the text before the parse (an unparsable section would hide the rest of its file), never a
// whole statement, with where the T-SQL reference allows it.
struct Allowed {
    QRegularExpression construct;
    QString replacement;
    const char* reason;
};
const std::vector<Allowed>& allowed() {
    static const std::vector<Allowed> list = {
        {QRegularExpression(QStringLiteral("(CREATE DATABASE \\[\\w+\\]) COLLATE \\w+")),
         QStringLiteral("\\1"),
         "CREATE DATABASE name [COLLATE collation_name] (T-SQL reference, CREATE DATABASE): "
         "sqlfluff 1.4.5 knows no COLLATE clause there"},
    };
    return list;
}

QString withoutAllowed(QString text) {
    for (const Allowed& a : allowed()) {
        text.replace(a.construct, a.replacement);
    }
    return text;
}

QString run(const QString& program, const QStringList& arguments, const QString& keepIn,
            int* exitCode) {
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (!keepIn.isEmpty()) {
        env.insert(QStringLiteral("TORVIX_SERVER_TEXTS"), keepIn);
    }
    process.setProcessEnvironment(env);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(10 * 60 * 1000)) {
        *exitCode = -1;
        return process.errorString();
    }
    *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromUtf8(process.readAll());
}

} // namespace

TEST(Tsql, everyServerTextAndTheDdlParse) {
    const QString sqlfluff = QStandardPaths::findExecutable(QStringLiteral("sqlfluff"));
    ASSERT_FALSE(sqlfluff.isEmpty()) << "sqlfluff is missing: scripts/setup installs it";
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString texts = dir.filePath(QStringLiteral("texts"));
    QDir().mkpath(texts);

    // The tests that build server texts keep them in the folder (by the "Server" in their names).
    for (const QString& program : QString::fromUtf8(TORVIX_TEST_PROGRAMS).split(u'|')) {
        int code = 0;
        const QString output =
            run(program, {QStringLiteral("--gtest_filter=*Server*")}, texts, &code);
        ASSERT_EQ(code, 0) << program.toStdString() << "\n" << output.toStdString();
    }
    const QStringList kept = QDir(texts).entryList({QStringLiteral("*.sql")});
    const int statements = int(kept.size());
    for (const QString& name : kept) {
        QFile file(QDir(texts).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QString text = withoutAllowed(QString::fromUtf8(file.readAll()));
        file.resize(0);
        file.write(text.toUtf8());
    }
    ASSERT_GT(statements, 0) << "no test kept a server text";

    int code = 0;
    const QString ddl = run(QString::fromUtf8(TORVIX_DEMO),
                            {QStringLiteral("--ddl"), QStringLiteral("sqlserver")}, {}, &code);
    ASSERT_EQ(code, 0) << ddl.toStdString();
    QFile ddlFile(QDir(texts).filePath(QStringLiteral("ddl-sqlserver.sql")));
    ASSERT_TRUE(ddlFile.open(QIODevice::WriteOnly));
    ddlFile.write(withoutAllowed(ddl).toUtf8());
    ddlFile.close();

    // One sqlfluff run over the folder. Its lint names the file of each parse failure (PRS),
    // which its parse command does not; no rule is checked but one that every text passes.
    QFile config(dir.filePath(QStringLiteral("sqlfluff.cfg")));
    ASSERT_TRUE(config.open(QIODevice::WriteOnly));
    config.write("[sqlfluff]\n"
                 "dialect = tsql\n"
                 "templater = raw\n"
                 "rules = L057\n"
                 "large_file_skip_byte_limit = 0\n");
    config.close();
    const QString report =
        run(sqlfluff,
            {QStringLiteral("lint"), QStringLiteral("--nocolor"), QStringLiteral("--format"),
             QStringLiteral("json"), QStringLiteral("--config"), config.fileName(),
             QStringLiteral("--disable-progress-bar"), texts},
            {}, &code);
    const qsizetype start = report.indexOf(QLatin1Char('['));
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(report.mid(start).toUtf8(), &error);
    // Exit 1 means findings, listed in the report; anything else but 0 is sqlfluff's own failure.
    ASSERT_TRUE((code == 0 || code == 1) && start >= 0 && json.isArray()) << report.toStdString();

    for (const QJsonValue& file : json.array()) {
        const QString path = file[QLatin1String("filepath")].toString();
        for (const QJsonValue& v : file[QLatin1String("violations")].toArray()) {
            if (v[QLatin1String("code")].toString() != QLatin1String("PRS")) {
                continue;
            }
            const QString complaint = v[QLatin1String("description")].toString();
            QFile sql(path);
            EXPECT_TRUE(sql.open(QIODevice::ReadOnly));
            ADD_FAILURE() << QFileInfo(path).fileName().toStdString() << ": "
                          << complaint.toStdString() << "\n"
                          << (path.endsWith(QLatin1String("ddl-sqlserver.sql"))
                                  ? QByteArray("(the DDL of torvix-demo --ddl sqlserver)")
                                  : sql.readAll())
                                 .toStdString();
        }
    }
    std::printf("parsed %d statements and the DDL\n", statements);
}
