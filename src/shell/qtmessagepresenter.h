#pragma once

#include "data/messages.h"

// The program's boxes: QMessageBox with the catalogue's titles and Korean button captions.
class QtMessagePresenter : public MessagePresenter {
public:
    int show(MessageKind kind, const QString& title, const QString& text) override;
};
