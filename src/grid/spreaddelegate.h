#pragma once

#include <QStyledItemDelegate>

class SpreadModel;

// Editors and painting by cell type: line edits for text and numbers, a date editor, a combo
// list; check boxes toggle on a click, buttons are drawn as buttons.
class SpreadDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    SpreadDelegate(SpreadModel* model, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    int typeAt(const QModelIndex& index) const;
    SpreadModel* m_model;
};
