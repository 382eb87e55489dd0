#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// The base of every pop-up. Enter belongs to the field that has the focus (a search box
// searches, a grid commits its cell) and never presses a button: no button of a pop-up is a
// default one. A pop-up takes its value in its constructor and hands its choice back itself.
class Popup : public QDialog {
    Q_OBJECT
public:
    explicit Popup(QWidget* parent = nullptr);

protected:
    // A push button with its control name, never a default one.
    QPushButton* button(const QString& name, const QString& caption);
    // A text box with its control name that takes no more than `bytes` bytes.
    QLineEdit* textBox(const QString& name, int bytes);
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
