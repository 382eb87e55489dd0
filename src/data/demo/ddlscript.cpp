#include "data/demo/ddlscript.h"

#include "data/schema/schema.h"

using namespace Qt::StringLiterals;

namespace {

// The server's databases hold Korean in VARCHAR columns and the statements compare them with
// Korean literals, so both need a Korean collation (code page 949).
constexpr char kServerCollation[] = "Korean_Wansung_CI_AS";

} // namespace

QByteArray serverDdlFile() {
    const QString collation = QString::fromLatin1(kServerCollation);
    // Read as another code page, the literals ('완료') would be stored garbled and the views
    // that compare with them would find no finished slip.
    QString script =
        u"-- TORVIX operations: the two databases on SQL Server. Load with\n"
        u"--   sqlcmd -S <server> -U <user> -b -f 65001 -i torvix-server.sql\n"
        u"-- -f 65001 reads this file as UTF-8, as its byte-order mark also says: its Korean\n"
        u"-- literals must reach the server as written. Both databases need a Korean collation\n"
        u"-- such as %1; -b stops at a database that has another.\n"_s.arg(collation);
    for (const QString& database : {u"TORVIX"_s, u"UPDATE"_s}) {
        const QString name = u'[' + database + u']';
        script += u"\nIF DB_ID('%1') IS NULL CREATE DATABASE %2 COLLATE %3;\nGO\n"
                  u"IF CONVERT(VARCHAR(128), DATABASEPROPERTYEX('%1', 'Collation')) "
                  u"NOT LIKE 'Korean%'\n"
                  u"    RAISERROR('Database %1 needs a Korean collation such as "
                  u"%3.', 16, 1);\nGO\nUSE %2;\nGO\n"_s.arg(database, name, collation) +
                  schemaDdl(database, true);
        if (!script.endsWith(u"GO\n"_s)) {
            script += u"GO\n"_s;
        }
    }
    return QByteArray("\xEF\xBB\xBF") + script.toUtf8();
}

QString sqliteDdlScript() {
    return u"-- torvix.db\n"_s + schemaDdl(u"TORVIX"_s, false) + u"\n-- update.db\n"_s +
           schemaDdl(u"UPDATE"_s, false);
}
