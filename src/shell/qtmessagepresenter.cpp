#include "shell/qtmessagepresenter.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

int QtMessagePresenter::show(MessageKind kind, const QString& title, const QString& text) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setText(text);
    switch (kind) {
    case MessageKind::E:
        box.setIcon(QMessageBox::Warning);
        break;
    case MessageKind::I:
        box.setIcon(QMessageBox::Information);
        break;
    case MessageKind::Q:
        box.setIcon(QMessageBox::Question);
        break;
    case MessageKind::S:
        box.setIcon(QMessageBox::Critical);
        break;
    case MessageKind::Plain:
        box.setIcon(QMessageBox::NoIcon);
        break;
    }
    if (kind == MessageKind::Q) {
        QPushButton* yes = box.addButton(QStringLiteral("예"), QMessageBox::YesRole);
        box.addButton(QStringLiteral("아니요"), QMessageBox::NoRole);
        box.setDefaultButton(yes);
        box.exec();
        return box.clickedButton() == yes ? 6 : 7;
    }
    box.addButton(QStringLiteral("확인"), QMessageBox::AcceptRole);
    box.exec();
    return 1;
}
