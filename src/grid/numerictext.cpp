#include "numerictext.h"

#include <cmath>
#include <cstdlib>

bool gfIsNumeric(const QString& text, double* value) {
    // Copy the accepted characters into a small buffer for strtod; separators are dropped.
    char buffer[64];
    int length = 0;
    const QChar* p = text.constData();
    const QChar* end = p + text.size();
    while (p < end && p->isSpace()) {
        ++p;
    }
    while (end > p && (end - 1)->isSpace()) {
        --end;
    }
    if (p < end && (*p == QLatin1Char('-') || *p == QLatin1Char('+'))) {
        buffer[length++] = char(p->unicode());
        ++p;
    }
    int digits = 0;
    bool point = false;
    bool exponent = false;
    for (; p < end; ++p) {
        const char16_t c = p->unicode();
        if (length >= int(sizeof(buffer)) - 1) {
            return false;
        }
        if (c >= u'0' && c <= u'9') {
            buffer[length++] = char(c);
            ++digits;
        } else if (c == u',' && !point && !exponent && digits > 0) {
            continue;
        } else if (c == u'.' && !point && !exponent) {
            point = true;
            buffer[length++] = '.';
        } else if ((c == u'e' || c == u'E') && digits > 0 && !exponent) {
            exponent = true;
            buffer[length++] = 'e';
            if (p + 1 < end && (p[1] == QLatin1Char('-') || p[1] == QLatin1Char('+'))) {
                buffer[length++] = char(p[1].unicode());
                ++p;
            }
            if (p + 1 >= end) {
                return false;
            }
        } else {
            return false;
        }
    }
    if (digits == 0) {
        return false;
    }
    if (value) {
        buffer[length] = '\0';
        *value = std::strtod(buffer, nullptr);
    }
    return true;
}

QString formatGrouped(double value, int decimals) {
    const QString plain = QString::number(std::fabs(value), 'f', qBound(0, decimals, 15));
    const qsizetype point = plain.indexOf(QLatin1Char('.'));
    const qsizetype whole = point < 0 ? plain.size() : point;
    // "-0" and "-0.00" after rounding are shown without the sign.
    bool zero = true;
    for (const QChar c : plain) {
        if (c != QLatin1Char('0') && c != QLatin1Char('.')) {
            zero = false;
            break;
        }
    }
    QString out;
    out.reserve(plain.size() + whole / 3 + 2);
    if (value < 0 && !zero) {
        out += QLatin1Char('-');
    }
    for (qsizetype i = 0; i < whole; ++i) {
        if (i > 0 && (whole - i) % 3 == 0) {
            out += QLatin1Char(',');
        }
        out += plain.at(i);
    }
    out += QStringView(plain).mid(whole);
    return out;
}
