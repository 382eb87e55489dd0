#pragma once

#include "data/messages.h"

#include <QList>
#include <QString>

// Answers boxes from a script and records what was asked. With the script empty, OK boxes are
// answered OK and questions Yes.
class ScriptedPresenter : public MessagePresenter {
public:
    struct Box {
        MessageKind kind;
        QString title;
        QString text;
    };
    int show(MessageKind kind, const QString& title, const QString& text) override {
        boxes.append({kind, title, text});
        if (!answers.isEmpty()) {
            return answers.takeFirst();
        }
        return kind == MessageKind::Q ? 6 : 1;
    }
    void answerYes() { answers.append(6); }
    void answerNo() { answers.append(7); }

    QList<int> answers;
    QList<Box> boxes;
};
