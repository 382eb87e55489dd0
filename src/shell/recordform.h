#pragma once

#include "data/codelists.h"
#include "data/sqlbuild.h"

#include <QList>
#include <QString>

#include <deque>
#include <functional>
#include <initializer_list>
#include <utility>

class GridColumns;
class CodeOptionField;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;
class RecordSet;
class Spread;

// One field of an edit band bound to a column of the form's table. The value that travels
// between the database, the grid row and the widget is the stored one (the code, the list
// index, the text as typed), never a display text parsed back.
class FieldBinding {
public:
    // The save refuses a blank field with message 22; the field is marked green.
    FieldBinding& required();
    // What the clear routine puts in the field ("" unless given).
    FieldBinding& byDefault(const QString& value);
    // The clear routine leaves the field as it is.
    FieldBinding& keptOnClear();
    // Loaded from the grid or record, but not written by the save (keys, names shown).
    FieldBinding& notSaved();
    // Loaded from another field of the grid or record than the column it saves to.
    FieldBinding& loadedFrom(const QString& field);

    QString column() const { return m_column; }
    // The bound widget, for the band's layout.
    QWidget* widget() const { return m_widget; }
    QString value() const { return m_get(); }
    void setValue(const QString& value) const { m_set(value); }

private:
    friend class RecordForm;
    QString m_column;
    QString m_source;
    QWidget* m_widget = nullptr;
    QWidget* m_marked = nullptr; // what the green mark colours, when not the widget itself
    QLineEdit* m_box = nullptr;  // a text box: cut to its byte limit before a save
    std::function<QString()> m_get;
    std::function<void(const QString&)> m_set;
    std::function<bool()> m_blank;
    QString m_default;
    bool m_required = false;
    bool m_keep = false;
    bool m_saved = true;
    bool m_number = false;
};

// The binding of an edit band's widgets to the columns of one table, as the schema declares
// them: the byte limits of the text boxes and the table's audit columns come from there. It
// clears the band, loads it from a grid row or a record, checks the required fields, and gives
// the assignments and statements of a save.
class RecordForm {
public:
    explicit RecordForm(const QString& table);

    QString table() const { return m_table; }

    // A text box; its byte limit is the column's width.
    FieldBinding& text(QLineEdit* box, const QString& column);
    // A text box whose value goes into the statement unquoted, as a number (0 when none).
    FieldBinding& number(QLineEdit* box, const QString& column);
    // A label that shows the row's key; empty means a new row. Not saved.
    FieldBinding& key(QLabel* label, const QString& column);
    // A combo filled by gsReadCode: the code of the selected row.
    FieldBinding& code(QComboBox* combo, const CodeArray& codes, const QString& column);
    // A code box with its option array; the code in the box is stored.
    FieldBinding& codeOptions(CodeOptionField* field, const QString& column);
    // A combo whose list index is stored, as text ("0" for the first item).
    FieldBinding& index(QComboBox* combo, const QString& column);
    // A combo whose item text is stored; a stored text not in the list is added to it.
    FieldBinding& choice(QComboBox* combo, const QString& column);
    // Option buttons, each with its code; a code that none has turns the last one on.
    FieldBinding& options(std::initializer_list<std::pair<QRadioButton*, QString>> buttons,
                          const QString& column);
    // Option buttons made for the field, side by side in one widget: "name_0", "name_1", ...,
    // each with its caption and code.
    FieldBinding& options(QWidget* parent, const QString& name,
                          std::initializer_list<std::pair<QString, QString>> captionCodes,
                          const QString& column);
    // Anything else: the screen says how the value is read and shown.
    FieldBinding& value(const QString& column, std::function<QString()> get,
                        std::function<void(const QString&)> set, QWidget* widget = nullptr);

    // Every field to its default, but those kept on clear.
    void clear() const;
    // Fields from a source: the field's source name (its column unless loadedFrom) is asked for;
    // a source without it leaves the field alone.
    void load(const std::function<bool(const QString& field, QString& value)>& source) const;
    void loadRow(const GridColumns& columns, const Spread* grid, int row) const;
    void loadRecord(const RecordSet& rs) const;

    // Message 22 when a required field is blank; true when all are filled.
    bool checkRequired() const;
    // gsTextCut on every text box, before a save.
    void cutTexts() const;
    // Before a save: checkRequired, then cutTexts when all are filled. False stops the save.
    bool readyToSave() const;

    // The saved fields as column assignments, in the order they were bound.
    Assignments assignments() const;
    // The insert: keys first, then the fields, then extra, then the audit columns.
    QString insertStatement(const Assignments& keys, const Assignments& extra = {}) const;
    // The update of the fields, extra and the audit columns, with a where text.
    QString updateStatement(const QString& where, const Assignments& extra = {}) const;

    FieldBinding* binding(const QString& column);

    // The green background of a field the save requires.
    static void markRequired(QWidget* field);

private:
    FieldBinding& add(const QString& column, QWidget* widget);
    FieldBinding& optionButtons(const QList<std::pair<QRadioButton*, QString>>& buttons,
                                const QString& column);

    QString m_table;
    std::deque<FieldBinding> m_fields;
};
