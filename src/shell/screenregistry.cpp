#include "shell/screenregistry.h"

#include "shell/placeholderscreen.h"

#include <QHash>

namespace {

QHash<QString, ScreenFactory>& factories() {
    static QHash<QString, ScreenFactory> table;
    return table;
}

} // namespace

const std::vector<ScreenInfo>& screenTable() {
    // 165 (BAMAS165) belongs to the program but opens by no number.
    static const std::vector<ScreenInfo> table = {
        {105, QStringLiteral("BAMAS105"), QStringLiteral("매장코드 관리")},
        {110, QStringLiteral("BAMAS110"), QStringLiteral("학교코드 관리")},
        {115, QStringLiteral("BAMAS115"), QStringLiteral("복종코드 관리")},
        {125, QStringLiteral("BAMAS125"), QStringLiteral("취급학교 설정")},
        {145, QStringLiteral("BAMAS145"), QStringLiteral("정상단가 관리")},
        {150, QStringLiteral("BAMAS150"), QStringLiteral("특별단가 관리")},
        {155, QStringLiteral("BAMAS155"), QStringLiteral("서Master 복종배열")},
        {160, QStringLiteral("BAMAS160"), QStringLiteral("POS복종 배열")},
        {162, QStringLiteral("BAMAS162"), QStringLiteral("사용자 관리")},
        {170, QStringLiteral("BAMAS170"), QStringLiteral("브랜드 관리")},
        {205, QStringLiteral("BAMAS205"), QStringLiteral("주관구매등록")},
        {210, QStringLiteral("BAMAS210"), QStringLiteral("주관구매현황")},
        {310, QStringLiteral("BAMAS310"), QStringLiteral("발주관리")},
        {315, QStringLiteral("BAMAS315"), QStringLiteral("입고관리")},
        {320, QStringLiteral("BAMAS320"), QStringLiteral("매장이동")},
        {325, QStringLiteral("BAMAS325"), QStringLiteral("판매관리")},
        {330, QStringLiteral("BAMAS330"), QStringLiteral("재고관리")},
        {335, QStringLiteral("BAMAS335"), QStringLiteral("매출관리")},
        {340, QStringLiteral("BAMAS340"), QStringLiteral("예약관리")},
        {345, QStringLiteral("BAMAS345"), QStringLiteral("고객 착용 사이즈")},
        {350, QStringLiteral("BAMAS350"), QStringLiteral("예수관리")},
        {355, QStringLiteral("BAMAS355"), QStringLiteral("배송장")},
        {360, QStringLiteral("BAMAS360"), QStringLiteral("일계표")},
        {505, QStringLiteral("BAMAS505"), QStringLiteral("학교 업로드")},
    };
    return table;
}

const ScreenInfo* findScreenByNumber(int number) {
    for (const ScreenInfo& info : screenTable()) {
        if (info.number == number) {
            return &info;
        }
    }
    return nullptr;
}

const ScreenInfo* findScreenByName(const QString& name) {
    for (const ScreenInfo& info : screenTable()) {
        if (info.name == name) {
            return &info;
        }
    }
    return nullptr;
}

void registerScreenFactory(const QString& name, ScreenFactory factory) {
    factories().insert(name, std::move(factory));
}

Screen* createScreen(const ScreenInfo& info) {
    const auto found = factories().constFind(info.name);
    if (found != factories().constEnd() && found.value()) {
        return found.value()();
    }
    return new PlaceholderScreen(info);
}
