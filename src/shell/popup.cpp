#include "shell/popup.h"

#include "grid/inputhelpers.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

Popup::Popup(QWidget* parent) : QDialog(parent) {
    setModal(true);
}

QPushButton* Popup::button(const QString& name, const QString& caption) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

QLineEdit* Popup::textBox(const QString& name, int bytes) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    gsByteLimit(box, bytes);
    return box;
}

void Popup::showEvent(QShowEvent* event) {
    // Buttons made anywhere below the pop-up included.
    const auto buttons = findChildren<QPushButton*>();
    for (QPushButton* b : buttons) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }
    QDialog::showEvent(event);
}

void Popup::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}
