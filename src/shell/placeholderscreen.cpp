#include "shell/placeholderscreen.h"

#include <QLabel>
#include <QVBoxLayout>

PlaceholderScreen::PlaceholderScreen(const ScreenInfo& info)
    : Screen(info.name, info.designCaption), m_info(info) {}

void PlaceholderScreen::setupScreen() {
    auto* label = new QLabel(QStringLiteral("(%1) %2\n\n이 프로그램은 준비 중입니다.")
                                 .arg(m_info.number)
                                 .arg(m_info.designCaption),
                             this);
    label->setObjectName(QStringLiteral("lblPlaceholder"));
    label->setAlignment(Qt::AlignCenter);
    QFont font = label->font();
    font.setPointSize(font.pointSize() + 4);
    label->setFont(font);
    contentLayout()->addWidget(label, 1);
}
