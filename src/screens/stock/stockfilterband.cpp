#include "screens/stock/stockfilterband.h"

#include "data/dbroutines.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"
#include "screens/stock/stockentry.h"
#include "shell/codecontrols.h"
#include "shell/recordform.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kGroupSpacing = 16;
} // namespace

StockFilterBand::StockFilterBand(const Parts& parts, QWidget* parent)
    : QWidget(parent), m_parts(parts) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    if (!parts.schoolList.isEmpty()) {
        m_schools = new Spread(this);
        m_schools->setObjectName(parts.schoolList);
        setUpSchoolList(m_schools);
        // A list without a size hint of its own gets no width beside a grid that stretches.
        m_schools->setFixedWidth(m_schools->fullWidth());
        row->addWidget(m_schools);
        connect(m_schools, &Spread::clicked, this, [this](int r, int) { emit schoolClicked(r); });
    }
    m_right = new QVBoxLayout;
    row->addLayout(m_right, 1);
    m_fields = new QGridLayout;
    m_right->addLayout(m_fields);

    m_store = new QComboBox(this);
    m_store->setObjectName(parts.store);
    RecordForm::markRequired(m_store);
    addField(0, parts.storeCaption, m_store);
    if (!parts.storeName.isEmpty()) {
        m_storeName = new QLabel(this);
        m_storeName->setObjectName(parts.storeName);
        addField(0, m_storeName);
    }
    if (!parts.level.isEmpty()) {
        m_level = new QComboBox(this);
        m_level->setObjectName(parts.level);
        addField(0, u"학교구분"_s, m_level);
    }
    m_year = new QComboBox(this);
    m_year->setObjectName(parts.year);
    addField(0, u"연식"_s, m_year);
    m_fields->setColumnStretch(16, 1);

    auto* options = new QHBoxLayout;
    m_optionsBefore = new QHBoxLayout;
    m_optionsAfter = new QHBoxLayout;
    options->addLayout(m_optionsBefore);
    if (parts.sexFirst >= 0) {
        auto* sexes = new QButtonGroup(this);
        const int boys = parts.girlsBeforeBoys ? 2 : 1;
        const int girls = parts.girlsBeforeBoys ? 1 : 2;
        m_sex[0] = option(u"optSchDivi_%1"_s.arg(parts.sexFirst), u"전체"_s, sexes);
        QRadioButton* second = option(u"optSchDivi_%1"_s.arg(parts.sexFirst + 1),
                                      parts.girlsBeforeBoys ? u"여"_s : u"남"_s, sexes);
        QRadioButton* third = option(u"optSchDivi_%1"_s.arg(parts.sexFirst + 2),
                                     parts.girlsBeforeBoys ? u"남"_s : u"여"_s, sexes);
        m_sex[boys] = parts.girlsBeforeBoys ? third : second;
        m_sex[girls] = parts.girlsBeforeBoys ? second : third;
        m_sex[0]->setChecked(true);
        for (QRadioButton* b : {m_sex[0], second, third}) {
            options->addWidget(b);
        }
        options->addSpacing(kGroupSpacing);
        connect(sexes, &QButtonGroup::buttonClicked, this, [this] { emit optionsChanged(); });
    }
    if (parts.seasonFirst >= 0) {
        auto* seasons = new QButtonGroup(this);
        const int winterAt = parts.summerFirst ? 1 : 0;
        QRadioButton* first = option(u"optSeason0_%1"_s.arg(parts.seasonFirst),
                                     parts.summerFirst ? u"하복"_s : u"동복"_s, seasons);
        QRadioButton* second = option(u"optSeason0_%1"_s.arg(parts.seasonFirst + 1),
                                      parts.summerFirst ? u"동복"_s : u"하복"_s, seasons);
        m_season[0] = winterAt == 0 ? first : second;
        m_season[1] = winterAt == 0 ? second : first;
        m_season[parts.winterChecked ? 0 : 1]->setChecked(true);
        options->addWidget(first);
        options->addWidget(second);
        options->addSpacing(kGroupSpacing);
        connect(seasons, &QButtonGroup::buttonClicked, this, [this] { emit optionsChanged(); });
    }
    if (parts.classFirst >= 0) {
        auto* classes = new QButtonGroup(this);
        m_class[0] = option(u"optSubMain0_%1"_s.arg(parts.classFirst), u"주,부품목"_s, classes);
        m_class[1] = option(u"optSubMain0_%1"_s.arg(parts.classFirst + 1), u"별매품"_s, classes);
        m_class[0]->setChecked(true);
        options->addWidget(m_class[0]);
        options->addWidget(m_class[1]);
        options->addSpacing(kGroupSpacing);
        connect(classes, &QButtonGroup::buttonClicked, this, [this] { emit optionsChanged(); });
    }
    options->addLayout(m_optionsAfter);
    options->addStretch(1);
    m_right->addLayout(options);

    connect(m_store, &QComboBox::currentIndexChanged, this, [this] { emit storeChanged(); });
    if (m_level) {
        connect(m_level, &QComboBox::currentIndexChanged, this, [this] { emit storeChanged(); });
    }
    connect(m_year, &QComboBox::currentIndexChanged, this, [this] { emit yearChanged(); });
}

QRadioButton* StockFilterBand::option(const QString& name, const QString& caption,
                                      QButtonGroup* group) {
    return optionButton(this, name, caption, group);
}

void StockFilterBand::readCodes() {
    gsReadCode(m_store, m_stores, u"STORE2"_s);
    if (m_level) {
        gsReadCode(m_level, m_levels, u"GT25"_s);
    }
}

QRadioButton* StockFilterBand::sexOption(Sex sex) const {
    return m_sex[int(sex)];
}

QRadioButton* StockFilterBand::seasonOption(bool winter) const {
    return m_season[winter ? 0 : 1];
}

QRadioButton* StockFilterBand::classOption(bool mainItems) const {
    return m_class[mainItems ? 0 : 1];
}

QString StockFilterBand::storeCode() const {
    return m_store->currentIndex() > 0 ? gfComboCode(m_store, m_stores) : QString();
}

QString StockFilterBand::storeBrand() const {
    return m_stores.name(m_store->currentIndex());
}

QString StockFilterBand::levelCode() const {
    return m_level && m_level->currentIndex() > 0 ? gfComboCode(m_level, m_levels) : QString();
}

StockFilterBand::Sex StockFilterBand::sex() const {
    if (m_sex[1] && m_sex[1]->isChecked()) {
        return Sex::Boys;
    }
    if (m_sex[2] && m_sex[2]->isChecked()) {
        return Sex::Girls;
    }
    return Sex::All;
}

QString StockFilterBand::sexCode() const {
    switch (sex()) {
    case Sex::Boys:
        return u"1"_s;
    case Sex::Girls:
        return u"2"_s;
    case Sex::All:
        break;
    }
    return QString();
}

bool StockFilterBand::winter() const {
    return !m_season[1] || !m_season[1]->isChecked();
}

bool StockFilterBand::mainItems() const {
    return !m_class[1] || !m_class[1]->isChecked();
}

bool StockFilterBand::loadSchools() {
    if (m_storeName) {
        m_storeName->setText(storeBrand());
    }
    if (!m_schools) {
        return true;
    }
    const QString store = storeCode();
    if (store.isEmpty()) {
        m_schools->setMaxRows(0);
        return true;
    }
    RecordSet rs;
    if (!gfbSqlSelectDB(storeSchoolListSql(store, levelCode()), rs)) {
        return false;
    }
    fillSchoolList(m_schools, rs, m_parts.schoolListWithAll);
    return true;
}

QString StockFilterBand::schoolName(int row) const {
    return m_schools && row >= 1 ? gfSpreadCellText(m_schools, row, 1) : QString();
}

QString StockFilterBand::schoolCode(int row) const {
    return m_schools && row >= 1 ? gfSpreadCellText(m_schools, row, 2) : QString();
}

void StockFilterBand::addField(int row, const QString& caption, QWidget* field, int span) {
    addField(row, new QLabel(caption, this), 1);
    addField(row, field, span);
}

void StockFilterBand::addField(int row, QWidget* field, int span) {
    while (m_nextColumn.size() <= row) {
        m_nextColumn.append(0);
    }
    m_fields->addWidget(field, row, m_nextColumn[row], 1, span);
    m_nextColumn[row] += span;
}

void StockFilterBand::addOption(QWidget* widget, bool beforeBand) {
    if (beforeBand) {
        // The screen's own group, set apart from the band's as the band's groups are.
        if (m_optionsBefore->count() == 0) {
            m_optionsBefore->addSpacing(kGroupSpacing);
        }
        m_optionsBefore->insertWidget(m_optionsBefore->count() - 1, widget);
    } else {
        m_optionsAfter->addWidget(widget);
    }
}

void StockFilterBand::setBody(QWidget* body) {
    m_right->addWidget(body, 1);
}
