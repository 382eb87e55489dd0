#pragma once

#include <QString>

class DbError;

// Kinds of the catalogue: E notice, I information, Q question (Yes/No), S warning; Plain is a
// box with an OK button, no icon and a title of the caller's.
enum class MessageKind { E, I, Q, S, Plain };

struct CatalogueEntry {
    int number;
    MessageKind kind;
    const char* text; // UTF-8; lines joined by "\r\n"
};

// Looks a number up; nullptr when the catalogue has no row.
const CatalogueEntry* catalogueEntry(int number);
QString messageTitle(MessageKind kind);
// The old box style value: 48, 64, 36, 16.
int messageStyle(MessageKind kind);

// Shows a box and answers the pressed button: 1 OK, 6 Yes, 7 No.
class MessagePresenter {
public:
    virtual ~MessagePresenter() = default;
    virtual int show(MessageKind kind, const QString& title, const QString& text) = 0;
};

// "OK" (OK or Yes), "NO", or "" when there was nothing to show.
QString gfsMessage(int msgNo, const QString& extra = QString());
QString gfsMsgBox(const QString& text);
// A Yes/No question outside the catalogue; "OK" for Yes.
QString gfsAsk(const QString& text);
// A plain box with the caller's title, outside the catalogue.
void gfsPlainBox(const QString& text, const QString& title = QStringLiteral("TORVIX_OPERATE"));
// The one road of an unexpected failure: box, C_ERROR row; a lost connection ends the process.
// A busy or full database is named in the box; when the log row itself cannot be written, the
// program goes on without it.
void gsErrorLog(qint64 number, const QString& description, const QString& place,
                const QString& statement);
void gsErrorLog(const DbError& error, const QString& place, const QString& statement);
// The C_ERROR row alone, without a box: a second place of a failure already shown.
void gsErrorLogRow(qint64 number, const QString& description, const QString& place,
                   const QString& statement);
// Writes the C_ERROR rows that failures inside a transaction held back, so that the rollback
// which follows such a failure does not take its log row with it. Transactions call it when
// they end.
void gsFlushErrorLog();
