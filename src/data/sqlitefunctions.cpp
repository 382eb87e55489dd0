#include "data/sqlitefunctions.h"

#include <QDateTime>

#include <sqlite3.h>

namespace {

QString argText(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

void resultText(sqlite3_context* ctx, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(ctx, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

bool anyNull(int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i) {
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) {
            return true;
        }
    }
    return false;
}

QString withoutTrailingBlanks(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text.at(end - 1) == QLatin1Char(' ')) {
        --end;
    }
    return text.left(end);
}

void fnLen(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) {
        sqlite3_result_null(ctx);
        return;
    }
    sqlite3_result_int64(ctx, withoutTrailingBlanks(argText(argv[0])).size());
}

void fnReplicate(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    const qint64 count = sqlite3_value_int64(argv[1]);
    if (anyNull(argc, argv) || count < 0) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, argText(argv[0]).repeated(qsizetype(count)));
}

void fnSpace(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    const qint64 count = sqlite3_value_int64(argv[0]);
    if (anyNull(argc, argv) || count < 0) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, QString(qsizetype(count), QLatin1Char(' ')));
}

void fnLeft(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, argText(argv[0]).left(qMax<qint64>(0, sqlite3_value_int64(argv[1]))));
}

void fnRight(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, argText(argv[0]).right(qMax<qint64>(0, sqlite3_value_int64(argv[1]))));
}

void fnGetDate(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx, QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")));
}

void fnYear(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) {
        sqlite3_result_null(ctx);
        return;
    }
    sqlite3_result_int(ctx, argText(argv[0]).left(4).toInt());
}

// CHARINDEX(needle, haystack [, start]): 1-based position, 0 when absent.
void fnCharIndex(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) {
        sqlite3_result_null(ctx);
        return;
    }
    const qsizetype start = argc > 2 ? qMax<qint64>(1, sqlite3_value_int64(argv[2])) - 1 : 0;
    sqlite3_result_int64(ctx, argText(argv[1]).indexOf(argText(argv[0]), start) + 1);
}

void define(sqlite3* db, const char* name, int args,
            void (*fn)(sqlite3_context*, int, sqlite3_value**), bool deterministic = true) {
    const int flags = SQLITE_UTF8 | (deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function_v2(db, name, args, flags, nullptr, fn, nullptr, nullptr, nullptr);
}

bool isWordChar(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }

// Matches `word` case-insensitively at `pos`, as a whole word followed by optional blanks and "(".
bool callAt(const QString& sql, qsizetype pos, QLatin1StringView word) {
    if (pos > 0 && (isWordChar(sql.at(pos - 1)) || sql.at(pos - 1) == QLatin1Char('.'))) {
        return false;
    }
    if (QStringView(sql).mid(pos, word.size()).compare(word, Qt::CaseInsensitive) != 0) {
        return false;
    }
    qsizetype next = pos + word.size();
    if (next < sql.size() && isWordChar(sql.at(next))) {
        return false;
    }
    while (next < sql.size() && sql.at(next).isSpace()) {
        ++next;
    }
    return next < sql.size() && sql.at(next) == QLatin1Char('(');
}

} // namespace

void registerTsqlFunctions(sqlite3* db) {
    define(db, "LEN", 1, fnLen);
    define(db, "REPLICATE", 2, fnReplicate);
    define(db, "SPACE", 1, fnSpace);
    define(db, "TSQL_LEFT", 2, fnLeft);
    define(db, "TSQL_RIGHT", 2, fnRight);
    define(db, "GETDATE", 0, fnGetDate, false);
    define(db, "YEAR", 1, fnYear);
    define(db, "CHARINDEX", 2, fnCharIndex);
    define(db, "CHARINDEX", 3, fnCharIndex);
}

QString rewriteForSqlite(const QString& sql) {
    static const struct {
        QLatin1StringView from;
        QLatin1StringView to;
    } renames[] = {{QLatin1StringView("ISNULL"), QLatin1StringView("IFNULL")},
                   {QLatin1StringView("LEFT"), QLatin1StringView("TSQL_LEFT")},
                   {QLatin1StringView("RIGHT"), QLatin1StringView("TSQL_RIGHT")}};
    QString out;
    out.reserve(sql.size() + 16);
    const qsizetype n = sql.size();
    for (qsizetype i = 0; i < n;) {
        const QChar c = sql.at(i);
        // Literals and comments pass untouched.
        if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            qsizetype j = i + 1;
            while (j < n) {
                if (sql.at(j) == c) {
                    if (j + 1 < n && sql.at(j + 1) == c) {
                        j += 2;
                        continue;
                    }
                    break;
                }
                ++j;
            }
            out += QStringView(sql).mid(i, j + 1 - i);
            i = j + 1;
            continue;
        }
        if (c == QLatin1Char('-') && i + 1 < n && sql.at(i + 1) == QLatin1Char('-')) {
            qsizetype j = sql.indexOf(QLatin1Char('\n'), i);
            j = j < 0 ? n : j;
            out += QStringView(sql).mid(i, j - i);
            i = j;
            continue;
        }
        if (c == QLatin1Char('/') && i + 1 < n && sql.at(i + 1) == QLatin1Char('*')) {
            qsizetype j = sql.indexOf(QStringLiteral("*/"), i + 2);
            j = j < 0 ? n : j + 2;
            out += QStringView(sql).mid(i, j - i);
            i = j;
            continue;
        }
        if (c.isLetter()) {
            bool renamed = false;
            for (const auto& r : renames) {
                if (callAt(sql, i, r.from)) {
                    out += r.to;
                    i += r.from.size();
                    renamed = true;
                    break;
                }
            }
            if (renamed) {
                continue;
            }
            // DBO.NAME( -> NAME(
            if ((i == 0 || !isWordChar(sql.at(i - 1))) && i + 4 < n &&
                QStringView(sql).mid(i, 4).compare(QLatin1StringView("DBO."), Qt::CaseInsensitive) == 0) {
                qsizetype j = i + 4;
                while (j < n && isWordChar(sql.at(j))) {
                    ++j;
                }
                if (j < n && sql.at(j) == QLatin1Char('(')) {
                    i += 4;
                    continue;
                }
            }
            qsizetype j = i;
            while (j < n && isWordChar(sql.at(j))) {
                ++j;
            }
            out += QStringView(sql).mid(i, j - i);
            i = j;
            continue;
        }
        out += c;
        ++i;
    }
    return out;
}
