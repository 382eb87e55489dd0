#include "data/messages.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace {

// The catalogue. Rows that no screen shows stay here all the same.
constexpr CatalogueEntry kCatalogue[] = {
    {2, MessageKind::S, "사용자 ID 혹은 PassWord가 정확하지 않습니다.\r\n확인 후 다시 시도하십시요."},
    {3, MessageKind::S, "프로그램을 중복하여 실행 할 수 없습니다."},
    {4, MessageKind::S, "로그인이 안되었습니다. 로그인 후 사용하십시오!!"},
    {5, MessageKind::S, "SQL문을 실행할 수 없습니다.\r\n확인 후 다시 시도하십시요."},
    {11, MessageKind::I, "조회된 내용이 없습니다."},
    {12, MessageKind::Q, "저장(수정) 하시겠습니까?"},
    {13, MessageKind::I, "저장 되었습니다."},
    {14, MessageKind::Q, "삭제 하시겠습니까?"},
    {15, MessageKind::E, "사용 등록된 프로그램이 없습니다.\r\n전산 관리자에게 문의하여 주십시오."},
    {16, MessageKind::Q, "입력을 취소 하시겠습니까?"},
    {17, MessageKind::S, "SQL문을 실행할 수 없습니다."},
    {18, MessageKind::S, "비밀번호는 4글자 이상이어야 합니다."},
    {19, MessageKind::S, "신규비밀번호와 신규확인 비밀번호가\r\n일치하지 않습니다."},
    {20, MessageKind::S, "기존비밀번호가 일치하지 않거나 사용자가 없습니다."},
    {22, MessageKind::E, "초록색깔은 필수입력입니다. 입력해 주십시오."},
    {23, MessageKind::E, "환경정보 파일이 없습니다.!(Save)\r\n확인 하십시오."},
    {24, MessageKind::E, "동일한 명칭이 입력되어 있습니다. 명칭을 바꿔서 등록하시오."},
    {25, MessageKind::E, "사용 학교수는 60개를 넘을 수 없습니다. 담당자에게 연락바랍니다."},
    {94, MessageKind::E, "(줄렌정보기술) FTP서버에 접속을 할 수 없습니다. 담당자에게 연락 부탁드립니다."},
    {95, MessageKind::Q, "공통코드 삭제시 자료조회가 안될수도 있습니다.\r\n가능한한 사용여부를 미사용으로 하십시요.\r\n삭제 하시겠습니까?"},
    {96, MessageKind::Q, "매출전표를 삭제합니다.\r\n삭제한 매출전표는 복구가 불가능 합니다.\r\n삭제 하시겠습니까?"},
    {97, MessageKind::Q, "Data 삭제시 복원이 불가능 합니다.\r\n삭제 하시겠습니까?"},
    {99, MessageKind::Q, "프로그램을 종료 하시겠습니까?"},
    {910, MessageKind::I, "거래처코드를 입력하여 주십시오 "},
    {911, MessageKind::I, "상품코드를 입력하여 주십시오 "},
    {912, MessageKind::I, "주문수량을 입력하여 주십시오 "},
    {913, MessageKind::I, "이미 입고된 수량이 있습니다.\r\n주문전표를 수정 또는 삭제할 수 없습니다."},
    {914, MessageKind::I, "주문전표가 없습니다."},
    {920, MessageKind::I, "입고수량을 입력하여 주십시오"},
    {921, MessageKind::I, "입고금액을 입력하여 주십시오"},
    {932, MessageKind::I, "수량을 입력하여 주십시오 "},
    {8001, MessageKind::I, "전용등록 시 학교는 2곳 이상이어야 합니다. "},
    {8002, MessageKind::I, "주민등록번호를 입력하여 주십시오 "},
    {8003, MessageKind::I, "우편번호를 입력하여 주십시오 "},
    {8004, MessageKind::I, "부서를 선택하여 주십시오 "},
    {8005, MessageKind::I, "직급을 선택하여 주십시오 "},
    {8006, MessageKind::I, "센터를 선택하여 주십시오 "},
    {8010, MessageKind::I, "상품명을 입력하여 주십시오 "},
    {8011, MessageKind::I, "단축명을 입력하여 주십시오 "},
    {8012, MessageKind::I, "상품코드를 입력하여 주십시오 "},
    {8013, MessageKind::I, "기등록된 코드가 존재합니다.\r\n새로운 코드로 재등록하여 주십시요."},
    {8014, MessageKind::I, "수당이름을 입력하여 주십시오 "},
    {8015, MessageKind::I, "직급이름을 입력하여 주십시오 "},
    {8016, MessageKind::I, "과거일자로 수정은 불가합니다. "},
    {8020, MessageKind::I, "사업자 등록번호를 입력하여 주십시오 "},
    {8021, MessageKind::I, "거래처 이름을 입력하여 주십시오 "},
    {8031, MessageKind::I, "전월 집계를 처리 후 사용하십시요. \r\n전월 집계가 안된 상품이 있어 월 수불부를 작성할 수 없습니다."},
    {8050, MessageKind::I, "받을 금액을 초과한 상태로 \r\n미수금, 카드, 계좌 결제는 할 수 없습니다."},
    {8051, MessageKind::I, "현금영수증 발급구분을 선택하여야 합니다. "},
    {8052, MessageKind::I, "현금영수증을 발급할 대상의 정보를 입력하여야 합니다. "},
    {8053, MessageKind::I, "결제할 금액이 남아 있습니다. 결제가 완료되기 이전에 중지할 수 없습니다."},
    {8054, MessageKind::I, "결제할 금액이 없습니다. 모든 결제가 완료되었습니다."},
    {8055, MessageKind::I, "결제할 금액이 없습니다. 결제금액을 입력해 주세요."},
    {8056, MessageKind::I, "정상적으로 결제가 완료되었습니다.\r\n하지만 프린터에 문제가 생겨 영수증 출력을 못 합니다.\r\n영수증 재발행 기능으로 영수증을 출력하세요."},
    {8057, MessageKind::I, "결재이력이 존재합니다. 삭제할 수 없습니다.\r\n삭제하시려면 결재내역을 모두 취소 후 삭제해 주세요."},
    {8058, MessageKind::I, "결재 취소할 내역을 선택 후 처리하세요.\r\n  "},
    {8059, MessageKind::I, "고객정보를 등록하시고 재실행하여 주십시오.\r\n  "},
    {8060, MessageKind::I, "이름, 연락처, 배송지 모두 필수 입력입니다.\r\n  "},
    {8061, MessageKind::I, "연도를 선택하시오.\r\n  "},
    {8062, MessageKind::I, "발주일자, 입고일자, 출고일자는 오늘보다 작을 수 없습니다.\r\n  "},
    {8063, MessageKind::I, "발주처, 출고처 없이 등록할 수 없습니다.\r\n  "},
    {8064, MessageKind::I, "발주 연식 없이 등록할 수 없습니다.\r\n  "},
    {8065, MessageKind::I, "미입고 잔량에 대한 처리구분이 선택되지 않은 건이 존재합니다.\r\n미입잔량처리 구분을 선택하시오. "},
    {8066, MessageKind::I, "입고매장 없이 등록할 수 없습니다.\r\n  "},
    {8067, MessageKind::I, "매장 없이 등록할 수 없습니다.\r\n  "},
    {8068, MessageKind::I, "시즌, 브랜드는 필수 선택사항 입니다.\r\n  "},
    {8069, MessageKind::I, "연도, 출고처를 선택하시오.\r\n  "},
    {8070, MessageKind::I, "연도, 출고처, 입고처를 선택하시오.\r\n  "},
    {8071, MessageKind::I, "오류가 있는 데이터를 정리 후 등록하시오.\r\n  "},
    {8072, MessageKind::Q, "체크한 모든 데이터를 수정합니다.\r\n  "},
    {8073, MessageKind::Q, "체크한 모든 데이터를 삭제합니다.\r\n삭제한 데이터는 복구할 수 없습니다.  "},
    {8074, MessageKind::I, "수정할 내용을 확인하시오.\r\n  "},
    {8075, MessageKind::I, "시작일자와 종료일자를 확인하세요.\r\n종료일자가 작을 수 없습니다."},
    {8076, MessageKind::I, "계약연식은 4자리로 입력하세요.\r\n "},
    {8077, MessageKind::Q, "삭제된 데이터는 복구할 수 없습니다.\r\n등록된 학생명단이 있다면 함께 지워집니다."},
    {8078, MessageKind::I, "인수자를 입력 후 처리하세요.\r\n "},
    {8079, MessageKind::I, "배송번호를 입력 후 처리하세요.\r\n "},
    {8080, MessageKind::I, "기 처리된 이력이 있습니다.\r\n학교이체금액을 0원으로 합니다."},
    {8081, MessageKind::I, "재고 초기화가 안된 품목이 있습니다.\r\n재고를 다시 등록하시려면 재고삭제 후 처리하시오."},
    {8082, MessageKind::I, "기 처리된 품목입니다.\r\n수정할 수 없습니다."},
    {8083, MessageKind::I, "등록일자를 미래일자로 할 수 없습니다.\r\n "},
    {8084, MessageKind::Q, "삭제된 데이터는 복구할 수 없습니다.\r\n삭제하시겠습니까?"},
    {8085, MessageKind::I, "한 품목 이상 선택이 있어야 합니다.\r\n택배 품목을 선택 해 주세요."},
    {8086, MessageKind::I, "유효한 날자가 아닙니다.\r\n확인 하시오."},
    {8087, MessageKind::Q, "강제취소는 프로그램 데이터만 취소됩니다. 실제 환불은 판매 결재정보를 확인하신 후에 카드사로 전화하여 환불 조치하여 주십시오.\r\n강제 취소하시겠습니까?"},
    {8088, MessageKind::I, "SIZE는 한가지로만 선택 가능 합니다. \r\nSIZE 추가는 판매화면에서 처리해 주세요."},
    {8089, MessageKind::I, "이체기간에 중첩이 있습니다.\r\n등록할 수 없습니다."},
    {8090, MessageKind::I, "등록되지 않은 복종입니다.\r\n삭제 후 처리하세요."},
    {8091, MessageKind::I, "외부RT 시에는 입고처, 입고처전화, 입고처주소 모두 필수입니다.\r\n입력 후 처리하세요."},
    {8092, MessageKind::I, "입고처 필수입니다.\r\n선택 후 처리하세요."},
    {9001, MessageKind::I, "동일 사용자ID가 존재합니다. 다른ID를 사용하십시요 "},
    {9002, MessageKind::I, "사용자ID가 존재하지 않습니다. "},
};

int present(MessageKind kind, const QString& text, const QString& title = QString()) {
    auto& presenter = session().presenter;
    if (!presenter) {
        // No one to ask (command-line tools, a screenshot run): say it on stderr and go on.
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
        return kind == MessageKind::Q ? 6 : 1;
    }
    return presenter->show(kind, title.isEmpty() ? messageTitle(kind) : title, text);
}

QString answer(int button) {
    session().gsMsgResult = QString::number(button);
    return button == 6 || button == 1 ? QStringLiteral("OK") : QStringLiteral("NO");
}

int errorLogDepth = 0;
QStringList heldErrorRows;

} // namespace

const CatalogueEntry* catalogueEntry(int number) {
    const auto found = std::find_if(std::begin(kCatalogue), std::end(kCatalogue),
                                    [number](const CatalogueEntry& e) { return e.number == number; });
    return found == std::end(kCatalogue) ? nullptr : found;
}

QString messageTitle(MessageKind kind) {
    switch (kind) {
    case MessageKind::E:
        return QStringLiteral("주  의");
    case MessageKind::I:
        return QStringLiteral("정  보");
    case MessageKind::Q:
        return QStringLiteral("선  택");
    case MessageKind::S:
    case MessageKind::Plain:
        break;
    }
    return QStringLiteral("경  고");
}

int messageStyle(MessageKind kind) {
    switch (kind) {
    case MessageKind::E:
        return 48;
    case MessageKind::I:
        return 64;
    case MessageKind::Q:
        return 36;
    case MessageKind::Plain:
        return 0;
    case MessageKind::S:
        break;
    }
    return 16;
}

QString gfsMessage(int msgNo, const QString& extra) {
    session().gsMsgResult = QStringLiteral("NO");
    gsWaitCursor(false);
    MessageKind kind = MessageKind::E;
    QString text = extra;
    // The number is a 16-bit integer in the old program.
    if (const CatalogueEntry* entry = catalogueEntry(qint16(msgNo))) {
        kind = entry->kind;
        text = QString::fromUtf8(entry->text);
    }
    if (text.isEmpty()) {
        return QString();
    }
    return answer(present(kind, text));
}

QString gfsMsgBox(const QString& text) {
    session().gsMsgResult = QStringLiteral("NO");
    return answer(present(MessageKind::S, text));
}

QString gfsAsk(const QString& text) {
    session().gsMsgResult = QStringLiteral("NO");
    gsWaitCursor(false);
    return answer(present(MessageKind::Q, text));
}

void gfsPlainBox(const QString& text, const QString& title) {
    present(MessageKind::Plain, text, title);
}

void gsErrorLog(const DbError& error, const QString& place, const QString& statement) {
    if (errorLogDepth > 0 && error.cause() != DbError::Cause::Other) {
        // The insert into C_ERROR met the same lock or full disk as the failure that led here,
        // which is on screen already.
        return;
    }
    // What passes by itself is said in words, with the engine's own text beside them.
    QString text = error.description();
    if (error.cause() == DbError::Cause::Busy) {
        text =
            QStringLiteral("데이터베이스가 사용 중입니다. 잠시 후 다시 시도하십시오.\r\n") + text;
    } else if (error.cause() == DbError::Cause::Full) {
        text = QStringLiteral("디스크 공간이 부족합니다. 저장되지 않았습니다.\r\n") + text;
    }
    gsErrorLog(error.number(), text, place, statement);
}

void gsErrorLog(qint64 number, const QString& description, const QString& place,
                const QString& statement) {
    gsWaitCursor(false);
    gfsMsgBox(description);
    if (number == ConnectionLost::GeneralFailure) {
        // The database is gone: nowhere to log to.
        session().endProcess(1);
        return;
    }
    gsErrorLogRow(number, description, place, statement);
}

void gsErrorLogRow(qint64 number, const QString& description, const QString& place,
                   const QString& statement) {
    if (errorLogDepth > 0) {
        // The insert into C_ERROR itself failed and came back here: its box is shown, and the
        // program goes on without the log row.
        return;
    }
    // Back-quotes for apostrophes, and nothing that ends a literal early: the row must be
    // storable whatever the failing statement held.
    const auto loggable = [](const QString& text) {
        return storable(text).replace(QLatin1Char('\''), QLatin1Char('`'));
    };
    QString message = loggable(description);
    if (message.size() * 2 >= 251) {
        message = message.left(250);
    }
    QString other = loggable(statement);
    if (other.size() >= 1501) {
        other = other.left(1500);
    }
    const QString sql = QStringLiteral(" INSERT INTO C_ERROR ") +
                        QStringLiteral(" (ERRTIME, ERRNO, ERRPROG, ERRMSG, ERROTHER)") +
                        QStringLiteral(" VALUES ( GETDATE(),") + QString::number(number) +
                        QStringLiteral(",'") + loggable(place) + QStringLiteral("','") + message +
                        QStringLiteral(" ', '") + other + QStringLiteral(" ' )");
    if (session().gDb && session().gDb->inTransaction()) {
        heldErrorRows << sql;
        return;
    }
    ++errorLogDepth;
    gfbSqlExecuteDB(sql);
    --errorLogDepth;
}

void gsFlushErrorLog() {
    if (heldErrorRows.isEmpty() || (session().gDb && session().gDb->inTransaction())) {
        return;
    }
    const QStringList rows = std::exchange(heldErrorRows, {});
    for (const QString& sql : rows) {
        ++errorLogDepth;
        gfbSqlExecuteDB(sql);
        --errorLogDepth;
    }
}
