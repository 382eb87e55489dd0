#include "spreaddelegate.h"

#include "inputhelpers.h"
#include "numerictext.h"
#include "spreadmodel.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpressionValidator>

namespace {

// The button picture lies beside the program, not in it.
const QPixmap& buttonPicture() {
    static const QPixmap picture(QCoreApplication::applicationDirPath() +
                                 QStringLiteral("/../images/button.gif"));
    return picture;
}

} // namespace

SpreadDelegate::SpreadDelegate(SpreadModel* model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model) {}

int SpreadDelegate::typeAt(const QModelIndex& index) const {
    const int row = m_model->toGridRow(index.row());
    return row < 1 || index.column() == 0 ? SpreadStatic
                                          : m_model->format(row, index.column()).type;
}

QWidget* SpreadDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    const SpreadFormat f = m_model->format(m_model->toGridRow(index.row()), index.column());
    switch (f.type) {
    case SpreadDate: {
        auto* edit = new QDateEdit(parent);
        edit->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
        edit->setCalendarPopup(true);
        edit->setDateRange(QDate::fromString(f.dateMin, QStringLiteral("yyyyMMdd")),
                           QDate::fromString(f.dateMax, QStringLiteral("yyyyMMdd")));
        return edit;
    }
    case SpreadFloat: {
        auto* edit = new QLineEdit(parent);
        edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        edit->setValidator(new QRegularExpressionValidator(
            QRegularExpression(QStringLiteral("-?[0-9,]*\\.?[0-9]*")), edit));
        return edit;
    }
    case SpreadCombo: {
        auto* combo = new QComboBox(parent);
        combo->addItems(f.comboItems);
        // A pick is a decision: write it and leave the editor at once.
        connect(combo, &QComboBox::activated, this, [this, combo] {
            emit const_cast<SpreadDelegate*>(this)->commitData(combo);
            emit const_cast<SpreadDelegate*>(this)->closeEditor(combo);
        });
        return combo;
    }
    case SpreadEdit: {
        auto* edit =
            qobject_cast<QLineEdit*>(QStyledItemDelegate::createEditor(parent, option, index));
        if (!edit) {
            edit = new QLineEdit(parent);
        }
        if (f.maxLength > 0) {
            edit->setMaxLength(f.maxLength);
        }
        if (f.maxBytes > 0) {
            gsByteLimit(edit, f.maxBytes);
        }
        if (f.charCase != 0) {
            const bool upper = f.charCase == 1;
            connect(edit, &QLineEdit::textEdited, edit, [edit, upper](const QString& text) {
                const int caret = edit->cursorPosition();
                edit->setText(upper ? text.toUpper() : text.toLower());
                edit->setCursorPosition(caret);
            });
        }
        return edit;
    }
    default:
        return nullptr;
    }
}

void SpreadDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* date = qobject_cast<QDateEdit*>(editor)) {
        const QDate d =
            QDate::fromString(index.data(Qt::EditRole).toString(), QStringLiteral("yyyyMMdd"));
        date->setDate(d.isValid() ? d : QDate::currentDate());
    } else if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(index.data(Qt::EditRole).toInt());
    } else if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        edit->setText(index.data(Qt::EditRole).toString());
    }
}

void SpreadDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const {
    if (auto* date = qobject_cast<QDateEdit*>(editor)) {
        model->setData(index, date->date().toString(QStringLiteral("yyyyMMdd")), Qt::EditRole);
    } else if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, combo->currentIndex(), Qt::EditRole);
    } else if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        QString text = edit->text();
        const SpreadFormat f = m_model->format(m_model->toGridRow(index.row()), index.column());
        double v = 0;
        if (f.type == SpreadFloat && gfIsNumeric(text, &v)) {
            text = QString::number(qBound(f.floatMin, v, f.floatMax), 'f', f.decimals);
        }
        model->setData(index, text, Qt::EditRole);
    }
}

void SpreadDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const int type = typeAt(index);
    if (type != SpreadCheck && type != SpreadButton && type != SpreadCombo) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    QStyle* style = opt.widget ? opt.widget->style() : QApplication::style();
    if (type == SpreadCheck) {
        // The box in the middle of the cell, any check text beside it.
        opt.features &= ~QStyleOptionViewItem::HasCheckIndicator;
        opt.text.clear();
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);
        QStyleOptionViewItem box = opt;
        const int size = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, opt.widget);
        const QString text = index.data(Qt::DisplayRole).toString();
        const int textWidth = text.isEmpty() ? 0 : opt.fontMetrics.horizontalAdvance(text) + 4;
        const int left = opt.rect.left() + (opt.rect.width() - size - textWidth) / 2;
        box.rect = QRect(left, opt.rect.top() + (opt.rect.height() - size) / 2, size, size);
        box.state = (opt.state & ~QStyle::State_HasFocus) |
                    (index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On
                                                                           : QStyle::State_Off);
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, opt.widget);
        if (!text.isEmpty()) {
            painter->drawText(QRect(left + size + 4, opt.rect.top(), textWidth, opt.rect.height()),
                              Qt::AlignVCenter | Qt::AlignLeft, text);
        }
        return;
    }
    if (type == SpreadCombo) {
        // Text as usual and a small arrow at the right, so that the cell reads as a list.
        const int arrow = qMin(opt.rect.height(), 14);
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);
        QStyleOption arrowOpt;
        arrowOpt.initFrom(opt.widget);
        arrowOpt.rect = QRect(opt.rect.right() - arrow,
                              opt.rect.top() + (opt.rect.height() - arrow) / 2, arrow, arrow);
        style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrowOpt, painter, opt.widget);
        return;
    }
    QStyleOptionButton button;
    button.rect = opt.rect.adjusted(1, 1, -1, -1);
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    const QPixmap& picture = buttonPicture();
    if (!picture.isNull()) {
        button.icon = QIcon(picture);
        button.iconSize = picture.size().scaled(button.rect.size(), Qt::KeepAspectRatio);
    } else {
        button.text = opt.text.isEmpty() ? QStringLiteral("...") : opt.text;
    }
    style->drawControl(QStyle::CE_PushButton, &button, painter, opt.widget);
}

bool SpreadDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (typeAt(index) == SpreadCheck && (index.flags() & Qt::ItemIsUserCheckable)) {
        const bool click =
            event->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton &&
            option.rect.contains(static_cast<QMouseEvent*>(event)->position().toPoint());
        const bool key = event->type() == QEvent::KeyPress &&
                         static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
        if (click || key) {
            const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
            return model->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        }
        return event->type() == QEvent::MouseButtonDblClick;
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}
