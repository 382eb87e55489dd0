#pragma once

#include <QString>

// True when the text reads as a number the way the old grid and its screens understood one:
// blanks around, an optional sign, digits with optional "," separators, an optional decimal
// part and exponent. "" and "-" are not numbers. The number goes to *value when given.
bool gfIsNumeric(const QString& text, double* value = nullptr);

// The number with the given decimals and "," between thousands: 1234.5, 2 -> "1,234.50".
QString formatGrouped(double value, int decimals);
