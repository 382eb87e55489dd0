#include "screens/school/buttonface.h"

#include "grid/inputhelpers.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextCursor>

using namespace Qt::StringLiterals;

ButtonFaceText::ButtonFaceText(const QString& name, int bytes, QWidget* parent)
    : QPlainTextEdit(parent), m_bytes(bytes) {
    setObjectName(name);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedHeight(fontMetrics().lineSpacing() * 2 + 14);
    connect(this, &QPlainTextEdit::textChanged, this, &ButtonFaceText::cutToLimit);
}

QString ButtonFaceText::value() const {
    return toPlainText().replace(u'\n', u"\r\n"_s);
}

void ButtonFaceText::setValue(const QString& stored) {
    QString text = stored;
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    setPlainText(text);
}

void ButtonFaceText::showOn(QPushButton* face) {
    connect(this, &QPlainTextEdit::textChanged, face,
            [this, face] { face->setText(toPlainText()); });
}

void ButtonFaceText::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // A break at the very start does not count as the first line's end.
        if (toPlainText().indexOf(u'\n') >= 1) {
            event->accept();
            return;
        }
        insertPlainText(u"\n"_s);
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void ButtonFaceText::cutToLimit() {
    if (m_cutting || gfByteLen(value()) <= m_bytes) {
        return;
    }
    // Characters come off the end until the stored text fits; a Korean letter counts 2 and
    // the line break 2 ("\r\n").
    QString text = toPlainText();
    while (!text.isEmpty() && gfByteLen(QString(text).replace(u'\n', u"\r\n"_s)) > m_bytes) {
        text.chop(text.back().isLowSurrogate() && text.size() > 1 ? 2 : 1);
    }
    m_cutting = true;
    setPlainText(text);
    moveCursor(QTextCursor::End);
    m_cutting = false;
}

QPushButton* buttonFace(const QString& name, QWidget* parent) {
    auto* face = new QPushButton(parent);
    face->setObjectName(name);
    face->setFocusPolicy(Qt::NoFocus);
    face->setFixedSize(120, face->fontMetrics().lineSpacing() * 2 + 16);
    return face;
}
