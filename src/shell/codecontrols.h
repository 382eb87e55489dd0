#pragma once

#include "data/codelists.h"

#include <QString>

class QComboBox;
class ButtonArray;

// Fills a combo and its code array from a code list (see codeListSql for the kinds). With bAll
// row 0 is "(전체)" with the codes "**", else a blank with "*". A failed select leaves both as
// they were. Row 0 ends selected.
void gsReadCode(QComboBox* combo, CodeArray& arr, const QString& kind,
                const QString& brandCode = QString(), bool bAll = false);
// Fills a picker from a select of code and name (fields 0 and 1): row 0 shows blankText with
// the code blankCode, then one row a record showing its trimmed name. The combo ends on row 0,
// without a signal. A failed select leaves both as they were and answers false.
bool gsFillPicker(QComboBox* combo, CodeArray& arr, const QString& sql, const QString& blankText,
                  const QString& blankCode);
// Builds an option or check array from a code list, `columns` across.
void gsReadCodeOptions(ButtonArray* array, CodeArray& arr, const QString& kind, int columns);
void gsReadCodeChecks(ButtonArray* array, CodeArray& arr, const QString& kind, int columns);

// Select the row with that code / name / display beginning. An empty search selects row 0 (or
// no row when the list is empty); a value not in the list selects row 0 and answers false.
bool gfComboFindCode(QComboBox* combo, const CodeArray& arr, const QString& code);
bool gfComboFindName(QComboBox* combo, const CodeArray& arr, const QString& name);
bool gfComboFindDisplay(QComboBox* combo, const CodeArray& arr, const QString& text);
// Turn on the element with that code / name after turning all off.
bool gfOptionFindCode(ButtonArray* array, const CodeArray& arr, const QString& code);
bool gfOptionFindName(ButtonArray* array, const CodeArray& arr, const QString& name);

// The code of the combo's selected row ("" when none).
QString gfComboCode(const QComboBox* combo, const CodeArray& arr);
// The code of the option that is on ("" when none).
QString gfOptionCode(const ButtonArray* array, const CodeArray& arr);
