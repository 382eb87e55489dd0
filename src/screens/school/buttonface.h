#pragma once

#include <QPlainTextEdit>

class QPushButton;

// The till button's text of an item: at most two lines and a byte limit, stored with "\r\n"
// between the lines. Enter breaks the line once; when the text already holds a break after its
// first character, Enter is swallowed. A preview button, when given, shows the text as typed.
class ButtonFaceText : public QPlainTextEdit {
    Q_OBJECT
public:
    ButtonFaceText(const QString& name, int bytes, QWidget* parent = nullptr);

    // The text as stored: lines joined by "\r\n".
    QString value() const;
    void setValue(const QString& stored);
    // The preview follows the box from now on.
    void showOn(QPushButton* face);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cutToLimit();

    int m_bytes;
    bool m_cutting = false;
};

// A button face that previews an item's till button: two lines at most, centred.
QPushButton* buttonFace(const QString& name, QWidget* parent);
