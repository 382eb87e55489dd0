// The catalogue's boxes and results, and the error log's cuts and substitutions.
#include "testdb.h"

#include "data/database.h"
#include "data/messages.h"
#include "data/session.h"

using Messages = TestDb;

TEST_F(Messages, questionAnsweredNoGivesNoAndYesGivesOk) {
    presenter->answerNo();
    EXPECT_EQ(gfsMessage(99), QStringLiteral("NO"));
    EXPECT_EQ(session().gsMsgResult, QStringLiteral("7"));
    presenter->answerYes();
    EXPECT_EQ(gfsMessage(12), QStringLiteral("OK"));
    EXPECT_EQ(presenter->boxes[1].title, QStringLiteral("선  택"));
    EXPECT_EQ(presenter->boxes[1].kind, MessageKind::Q);
}

TEST_F(Messages, multiLineTextsAndKinds) {
    gfsMessage(95);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("공통코드 삭제시 자료조회가 안될수도 있습니다.\r\n가능한한 사용여부를 미사용으로 "
                             "하십시요.\r\n삭제 하시겠습니까?"));
    gfsMessage(13);
    EXPECT_EQ(presenter->boxes[1].title, QStringLiteral("정  보"));
    gfsMessage(8058);
    EXPECT_TRUE(presenter->boxes[2].text.endsWith(QStringLiteral("\r\n  ")));
}

TEST_F(Messages, unknownNumberShowsExtraAsNoticeAndEmptyShowsNothing) {
    EXPECT_EQ(gfsMessage(9, QString()), QString());
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(session().gsMsgResult, QStringLiteral("NO"));
    EXPECT_EQ(gfsMessage(9, QStringLiteral("학교를 선택하세요")), QStringLiteral("OK"));
    EXPECT_EQ(presenter->boxes[0].title, QStringLiteral("주  의"));
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("학교를 선택하세요"));
}

TEST_F(Messages, errorLogSubstitutesApostrophesAndCutsLongTexts) {
    const QString longStatement = QString(2000, QLatin1Char('x'));
    gsErrorLog(1234, QStringLiteral("it's broken"), QStringLiteral("BAMAS105 : sSaveQuery"), longStatement);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("it's broken"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRMSG FROM C_ERROR")), QStringLiteral("it`s broken "));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRNO FROM C_ERROR")), QStringLiteral("1234"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERROTHER FROM C_ERROR")), QString(1500, QLatin1Char('x')) + QLatin1Char(' '));
}

TEST_F(Messages, descriptionLosesOnlyWhatIsAbove250Characters) {
    gsErrorLog(1, QString(200, QChar(0xAC00)), QStringLiteral("p"), QString());
    gsErrorLog(2, QString(300, QChar(0xAC00)), QStringLiteral("p"), QString());
    EXPECT_EQ(scalar(QStringLiteral("SELECT LENGTH(ERRMSG) FROM C_ERROR WHERE ERRNO = 1")), QStringLiteral("201"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT LENGTH(ERRMSG) FROM C_ERROR WHERE ERRNO = 2")), QStringLiteral("251"));
}

TEST_F(Messages, lostConnectionEndsTheProcessWithoutLogRow) {
    gsErrorLog(ConnectionLost(QStringLiteral("disk I/O error")), QStringLiteral("x"), QString());
    EXPECT_EQ(endedWith, 1);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);
}

TEST_F(Messages, failedLogInsertShowsBothBoxesAndTheProgramGoesOn) {
    exec(QStringLiteral("DROP TABLE C_ERROR"));
    gsErrorLog(5, QStringLiteral("first"), QStringLiteral("x"), QString());
    ASSERT_EQ(presenter->boxes.size(), 2);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("first"));
    EXPECT_TRUE(presenter->boxes[1].text.contains(QStringLiteral("C_ERROR")));
    EXPECT_EQ(endedWith, -1);
}
