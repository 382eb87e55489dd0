#include "shell/proginit.h"

#include "data/datafolder.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/session.h"
#include "data/sqlvalue.h"

#include <QWidget>

void gsProgInit(const QString& userId, QWidget* form) {
    const QString version = versionString();
    const QString name = form->objectName();
    QString caption;
    if (name.toUpper().contains(QStringLiteral("MDI"))) {
        form->move(0, 0);
        caption = QStringLiteral("TORVIX_OPERATE  ") + version;
    } else {
        if (!gfbConnectDB()) {
            return;
        }
        const QString sql = QStringLiteral(" SELECT /* BASCOMMON gsProgInit 1 */  ") +
                            QStringLiteral(" ") +
                            dialect().cat({QStringLiteral("'('"), QStringLiteral("FORMNO"),
                                           QStringLiteral("')'"), QStringLiteral("HANNM")}) +
                            QStringLiteral(" HANNAME") + QStringLiteral(" FROM  PROGLIST  ") +
                            QStringLiteral(" WHERE PROGID =  ") + quoted(name) + QStringLiteral(" ");
        RecordSet rs;
        if (!gfbSqlSelectDB(sql, rs)) {
            return;
        }
        caption = rs.eof() ? form->windowTitle() + QLatin1Char('(') + name + QLatin1Char(')')
                           : rs.field(QStringLiteral("HANNAME")).trimmed();
    }
    form->setWindowTitle(caption);
    gfbSqlExecuteDB(QStringLiteral("INSERT INTO C_LOG ") +
                    QStringLiteral("(LOGID, COMPANY, USERID, PROGID, VERSION ) ") +
                    QStringLiteral(" VALUES ") + QStringLiteral("   ( ") +
                    QStringLiteral("    GETDATE(), ") + quoted(session().gsCompany) +
                    QStringLiteral(", ") + quoted(userId) + QStringLiteral(", ") + quoted(name) +
                    QStringLiteral(", ") + quoted(version) + QStringLiteral(" ) "));
}

void gsUserLog(const QString& userId, QWidget* form, const QDateTime& startTime) {
    const QDateTime now = QDateTime::currentDateTime();
    const qint64 seconds = startTime.secsTo(now);
    if (seconds < 1) {
        return;
    }
    const QString user = userId.trimmed().isEmpty() ? QStringLiteral("비승인") : userId.trimmed();
    gfbSqlExecuteDB(
        QStringLiteral("INSERT INTO C_USERLOG (COMPANY, USERID, PROGID, STYYYYMMDD, STHHMMSS, "
                       "EDYYYYMMDD, EDHHMMSS, USETIME) VALUES (") +
        quoted(session().gsCompany) + QStringLiteral(", ") + quoted(user) + QStringLiteral(", ") +
        quoted(form->objectName().trimmed()) + QStringLiteral(", ") +
        quoted(startTime.toString(QStringLiteral("yyyyMMdd"))) + QStringLiteral(", ") +
        quoted(startTime.toString(QStringLiteral("hhmmss"))) + QStringLiteral(", ") +
        quoted(now.toString(QStringLiteral("yyyyMMdd"))) + QStringLiteral(", ") +
        quoted(now.toString(QStringLiteral("hhmmss"))) + QStringLiteral(", ") +
        QString::number(startTime.secsTo(QDateTime::currentDateTime())) + QStringLiteral(")"));
}
