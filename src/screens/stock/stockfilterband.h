#pragma once

#include "data/codelists.h"

#include <QString>
#include <QWidget>

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QRadioButton;
class QVBoxLayout;
class Spread;

// The filter band of the stock screens: the store (with its brand name), the school level, the
// model year, the sex, season and item-class options, and the store's school list down the left
// side. A screen says which parts it shows and under which control names; it adds its own fields
// (dates, supplier, commands) to the band's rows and its grid under them.
//
// The school list keeps the width of its school column whatever the rest of the screen wants, so
// that a school can always be picked; the fields and the grid take what is left.
class StockFilterBand : public QWidget {
    Q_OBJECT
public:
    // Control names; an empty name (or -1) leaves that part out.
    struct Parts {
        QString store = QStringLiteral("cboStore_0");
        QString storeCaption = QStringLiteral("매장");
        QString storeName; // a label with the store's brand name beside the combo
        QString level;     // the school level combo ("학교구분")
        QString year = QStringLiteral("cboYY_0");
        QString schoolList;             // the school list grid ("SP1")
        bool schoolListWithAll = false; // a first row "전체" (code "")
        int sexFirst = -1;              // optSchDivi_<n> .. _<n+2>
        bool girlsBeforeBoys = false;   // 전체, 여, 남 rather than 전체, 남, 여
        int seasonFirst = -1;           // optSeason0_<n>, _<n+1>
        bool summerFirst = false;       // 하복, 동복 rather than 동복, 하복
        bool winterChecked = true;      // which season starts chosen
        int classFirst = -1;            // optSubMain0_<n>, _<n+1>: 주,부품목 / 별매품
    };
    enum class Sex { All, Boys, Girls };

    explicit StockFilterBand(const Parts& parts, QWidget* parent = nullptr);

    // Fills the store (STORE2) and level (GT25) lists; the store list ends on its blank row.
    void readCodes();

    QComboBox* store() const { return m_store; }
    QLabel* storeName() const { return m_storeName; }
    QComboBox* level() const { return m_level; }
    QComboBox* year() const { return m_year; }
    Spread* schools() const { return m_schools; }
    QRadioButton* sexOption(Sex sex) const;
    QRadioButton* seasonOption(bool winter) const;
    QRadioButton* classOption(bool mainItems) const;

    // "" while the blank row is chosen.
    QString storeCode() const;
    // The brand name of the chosen store.
    QString storeBrand() const;
    const CodeArray& storeCodes() const { return m_stores; }
    // "" for every level.
    QString levelCode() const;
    Sex sex() const;
    // The line's sex code: "" for every sex, "1" boys, "2" girls.
    QString sexCode() const;
    bool winter() const;
    bool mainItems() const;

    // The chosen store's schools of the chosen level into the school list, and the store's brand
    // into its label; no store empties the list. False when the select failed (already shown).
    bool loadSchools();
    // The school of a list row: name and code ("" for the "전체" row and blank rows).
    QString schoolName(int row) const;
    QString schoolCode(int row) const;

    // The screen's own fields, placed after what a row already holds; row 0 is the band's row
    // of store, level and year. A caption goes before its field.
    void addField(int row, const QString& caption, QWidget* field, int span = 1);
    void addField(int row, QWidget* field, int span = 1);
    // A widget on the options line: before the band's options or after them.
    void addOption(QWidget* widget, bool beforeBand = false);
    // The screen's grid (or anything else) under the fields, taking the rest of the height.
    void setBody(QWidget* body);

signals:
    // The store or the level changed.
    void storeChanged();
    void yearChanged();
    // A school row was clicked.
    void schoolClicked(int row);
    // A sex, season or class option was clicked.
    void optionsChanged();

private:
    QRadioButton* option(const QString& name, const QString& caption, QButtonGroup* group);

    Parts m_parts;
    QComboBox* m_store = nullptr;
    QLabel* m_storeName = nullptr;
    QComboBox* m_level = nullptr;
    QComboBox* m_year = nullptr;
    Spread* m_schools = nullptr;
    QRadioButton* m_sex[3] = {};    // All, Boys, Girls
    QRadioButton* m_season[2] = {}; // winter, summer
    QRadioButton* m_class[2] = {};  // main and part items, extras
    QGridLayout* m_fields = nullptr;
    QHBoxLayout* m_optionsBefore = nullptr;
    QHBoxLayout* m_optionsAfter = nullptr;
    QVBoxLayout* m_right = nullptr;
    QList<int> m_nextColumn;
    CodeArray m_stores, m_levels;
};
