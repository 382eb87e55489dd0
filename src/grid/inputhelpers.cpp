#include "inputhelpers.h"

#include "data/dbroutines.h"
#include "data/recordset.h"
#include "data/session.h"
#include "data/sqlvalue.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>

#include <iconv.h>

#include <cerrno>

namespace {

const char* const kByteLimit = "torvixByteLimit";

// The box's limit in bytes: an explicit byte limit, else a maximum length set on the box (Qt's
// default of 32767 counts as none).
int byteLimit(const QLineEdit* box) {
    const QVariant limit = box->property(kByteLimit);
    if (limit.isValid()) {
        return limit.toInt();
    }
    return box->maxLength() == 32767 ? 0 : box->maxLength();
}

QString stripped(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (const QChar c : gfHalfWidth(text)) {
        if (c != QLatin1Char('-') && c != QLatin1Char(' ') && c != QLatin1Char('.')) {
            out += c;
        }
    }
    return out;
}

void showAtEnd(QLineEdit* box, const QString& text) {
    if (box->text() != text) {
        box->setText(text);
    }
    box->setCursorPosition(int(box->text().size()));
}

} // namespace

int gfByteLen(const QString& text) {
    bool ascii = true;
    for (const QChar c : text) {
        if (c.unicode() >= 0x80) {
            ascii = false;
            break;
        }
    }
    if (ascii) {
        return int(text.size());
    }
    iconv_t cd = iconv_open("CP949", "UTF-8");
    if (cd == iconv_t(-1)) {
        // No converter: every non-ASCII character as two bytes, which is what 949 gives Korean.
        int n = 0;
        for (const QChar c : text) {
            n += c.unicode() < 0x80 ? 1 : (c.isLowSurrogate() ? 0 : 2);
        }
        return n;
    }
    QByteArray utf8 = text.toUtf8();
    char* in = utf8.data();
    size_t inLeft = size_t(utf8.size());
    char buffer[256];
    int total = 0;
    while (inLeft > 0) {
        char* out = buffer;
        size_t outLeft = sizeof(buffer);
        const size_t rc = iconv(cd, &in, &inLeft, &out, &outLeft);
        total += int(sizeof(buffer) - outLeft);
        if (rc == size_t(-1) && errno == EILSEQ) {
            // Not in the code page: counts as two, skip its UTF-8 sequence.
            total += 2;
            const unsigned char lead = static_cast<unsigned char>(*in);
            const size_t skip = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
            in += qMin(skip, inLeft);
            inLeft -= qMin(skip, inLeft);
        } else if (rc == size_t(-1) && errno != E2BIG) {
            break;
        }
    }
    iconv_close(cd);
    return total;
}

QString gfByteCut(const QString& text, int bytes) {
    if (bytes <= 0 || gfByteLen(text) <= bytes) {
        return text;
    }
    QString cut = text;
    while (!cut.isEmpty() && gfByteLen(cut) > bytes) {
        cut.chop(cut.size() >= 2 && cut.back().isLowSurrogate() ? 2 : 1);
    }
    return cut;
}

QString gsTextCut(QLineEdit* box) {
    const int limit = byteLimit(box);
    // Tested in bytes, cut in characters: the columns were sized that way.
    if (limit > 0 && gfByteLen(box->text()) > limit) {
        box->setText(box->text().left(limit));
    }
    return box->text();
}

void gsTextSelectAll(QWidget* control) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box || box->text().isEmpty()) {
        return;
    }
    box->setFocus();
    box->setSelection(0, int(box->text().size()));
}

QString gfHalfWidth(const QString& text) {
    QString out = text;
    for (QChar& c : out) {
        if (c.unicode() < 0x80) {
            continue;
        }
        if (c.isDigit()) {
            c = QChar(u'0' + c.digitValue());
        } else if (c == QChar(0xFF0D) || c == QChar(0x2212) || c == QChar(0xFE63)) {
            c = QLatin1Char('-');
        } else if (c == QChar(0xFF0C)) {
            c = QLatin1Char(',');
        }
    }
    return out;
}

void gsNumberInput(QLineEdit* box) {
    const QString text = gfHalfWidth(box->text());
    const bool negative = text.trimmed().startsWith(QLatin1Char('-'));
    if (text == QLatin1String("-") || text == QLatin1String("0-")) {
        showAtEnd(box, QStringLiteral("-"));
        return;
    }
    QString digits;
    for (const QChar c : text) {
        if (c.isDigit()) {
            digits += c;
        }
    }
    QString shown;
    if (!digits.isEmpty() || negative) {
        // "##,##0": leading zeros go, an empty number shows 0.
        while (digits.size() > 1 && digits.at(0) == QLatin1Char('0')) {
            digits.remove(0, 1);
        }
        if (digits.isEmpty()) {
            digits = QStringLiteral("0");
        }
        for (qsizetype i = 0; i < digits.size(); ++i) {
            if (i > 0 && (digits.size() - i) % 3 == 0) {
                shown += QLatin1Char(',');
            }
            shown += digits.at(i);
        }
        if (negative) {
            shown.prepend(QLatin1Char('-'));
        }
    }
    showAtEnd(box, shown);
}

void gsPhoneInput(QLineEdit* box, const QString& text) {
    const QString t = stripped(text);
    const qsizetype n = t.size();
    QString shown;
    if (t.startsWith(QLatin1String("02"))) {
        if (n <= 2) {
            shown = t;
        } else if (n <= 5) {
            shown = t.left(2) + QLatin1Char('-') + t.mid(2);
        } else if (n <= 9) {
            shown = t.left(2) + QLatin1Char('-') + t.mid(2, 3) + QLatin1Char('-') + t.mid(5);
        } else if (n == 10) {
            shown = t.left(2) + QLatin1Char('-') + t.mid(2, 4) + QLatin1Char('-') + t.mid(6);
        } else {
            shown = box->text();
        }
    } else if (n <= 3) {
        shown = t;
    } else if (n <= 6) {
        shown = t.left(3) + QLatin1Char('-') + t.mid(3);
    } else if (n <= 10) {
        shown = t.left(3) + QLatin1Char('-') + t.mid(3, 3) + QLatin1Char('-') + t.mid(6);
    } else if (n == 11) {
        shown = t.left(3) + QLatin1Char('-') + t.mid(3, 4) + QLatin1Char('-') + t.mid(7);
    } else {
        shown = box->text();
    }
    showAtEnd(box, shown);
}

void gsDateInput(QLineEdit* box, const QString& text) {
    const QString t = stripped(text);
    const qsizetype n = t.size();
    QString shown = box->text();
    if (n <= 4) {
        shown = t;
    } else if (n <= 6) {
        shown = t.left(4) + QLatin1Char('-') + t.mid(4);
    } else if (n <= 8) {
        shown = t.left(4) + QLatin1Char('-') + t.mid(4, 2) + QLatin1Char('-') + t.mid(6);
    }
    showAtEnd(box, shown);
}

void gsInputStyle(QLineEdit* box, InputStyle style) {
    QObject::connect(box, &QLineEdit::textChanged, box, [box, style](const QString& text) {
        switch (style) {
        case InputStyle::Number:
            gsNumberInput(box);
            break;
        case InputStyle::Phone:
            gsPhoneInput(box, text);
            break;
        case InputStyle::Date:
            gsDateInput(box, text);
            break;
        }
    });
}

void gsByteLimit(QLineEdit* box, int bytes) {
    box->setProperty(kByteLimit, bytes);
    QObject::connect(box, &QLineEdit::textEdited, box, [box, bytes](const QString& text) {
        if (bytes <= 0 || gfByteLen(text) <= bytes) {
            return;
        }
        // Drop characters from the end until the text fits the column.
        box->setText(gfByteCut(text, bytes));
    });
}

void gsFormClear(QWidget* form) {
    const QList<QWidget*> controls = form->findChildren<QWidget*>();
    for (auto it = controls.crbegin(); it != controls.crend(); ++it) {
        QWidget* w = *it;
        if (auto* box = qobject_cast<QLineEdit*>(w)) {
            // Line edits inside combos, spin boxes and date editors belong to those controls.
            QWidget* parent = box->parentWidget();
            if (!qobject_cast<QComboBox*>(parent) && !qobject_cast<QAbstractSpinBox*>(parent)) {
                box->clear();
            }
        } else if (auto* text = qobject_cast<QPlainTextEdit*>(w)) {
            text->clear();
        } else if (auto* rich = qobject_cast<QTextEdit*>(w)) {
            rich->clear();
        } else if (qobject_cast<QCheckBox*>(w) || qobject_cast<QRadioButton*>(w)) {
            // Exclusive option groups refuse to have nothing checked; lift that for the moment.
            auto* button = static_cast<QAbstractButton*>(w);
            QButtonGroup* group = button->group();
            const bool groupExclusive = group && group->exclusive();
            const bool autoExclusive = button->autoExclusive();
            if (group) {
                group->setExclusive(false);
            }
            button->setAutoExclusive(false);
            button->setChecked(false);
            button->setAutoExclusive(autoExclusive);
            if (group) {
                group->setExclusive(groupExclusive);
            }
        }
    }
}

int gfTableCount(const QString& table, const QString& extra) {
    int count = 0;
    return gfbTableCount(table, extra, count) ? count : 0;
}

bool gfbTableCount(const QString& table, const QString& extra, int& count) {
    const QString sql = QStringLiteral(" SELECT COUNT(*) \n   FROM ") + table +
                        QStringLiteral("\n WHERE  COMPANY = ") + quoted(session().gsCompany) +
                        QStringLiteral(" \n") + extra;
    RecordSet rs;
    count = 0;
    if (!gfbSqlSelectDB(sql, rs) || rs.eof()) {
        return false;
    }
    count = rs.value(0).toInt();
    return true;
}
