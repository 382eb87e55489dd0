#pragma once

#include "data/waitcursor.h"

#include <QString>

class QLineEdit;
class QWidget;

// Length of a text in bytes of the Korean code page 949, as the database columns count it: a
// Korean letter 2, an ASCII letter 1, a character that page cannot hold 2.
int gfByteLen(const QString& text);
// The longest beginning of the text that fits in `bytes` bytes of code page 949, never splitting
// a character: what a text cell may store in a column of that width.
QString gfByteCut(const QString& text, int bytes);

// Cuts the box to its byte limit (gsByteLimit, else its maximum length when one is set): when
// the text is longer in bytes, it keeps that many characters. Quotes are left alone: values go
// into statements through quoted(). Returns the box's text.
QString gsTextCut(QLineEdit* box);
// Gives a text box with text the focus and selects all of it; other controls are left alone.
void gsTextSelectAll(QWidget* control);

// Digits of any script (the full-width １２３ of a Korean input method among them) as ASCII
// digits, and the full-width minus and comma as "-" and ",".
QString gfHalfWidth(const QString& text);

// Re-format a box as the user types (each is idempotent, so a box may call it on every change):
// an integer with "," separators; a telephone number with "-" (Seoul's "02" and the others);
// a date "YYYY-MM-DD". The caret goes to the end. Full-width digits, minus and comma are
// taken as their ASCII forms.
void gsNumberInput(QLineEdit* box);
void gsPhoneInput(QLineEdit* box, const QString& text);
void gsDateInput(QLineEdit* box, const QString& text);

// Opting a box in with one call: it is then re-formatted on every change of its text.
enum class InputStyle { Number, Phone, Date };
void gsInputStyle(QLineEdit* box, InputStyle style);
// Stops typing at a limit in bytes of code page 949 (and makes gsTextCut cut to it).
void gsByteLimit(QLineEdit* box, int bytes);

// Empties every text box of a form and turns its check boxes and option buttons off. Combos,
// labels and grids are left to the screen.
void gsFormClear(QWidget* form);

// Rows of a table for the session's company, with an extra condition ("AND ..."); 0 when the
// select fails.
int gfTableCount(const QString& table, const QString& extra = QString());
// The same count, telling a failed select (already shown and logged) from a count: false then.
bool gfbTableCount(const QString& table, const QString& extra, int& count);
