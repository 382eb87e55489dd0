// A second start knocks on the first, which raises its window.
#include "shell/singleinstance.h"

#include <QSignalSpy>
#include <QTest>
#include <QUuid>

#include <gtest/gtest.h>

TEST(SingleInstanceTest, secondStartFindsTheFirstAndAsksItToRaise) {
    const QString key = QStringLiteral("torvix-test-") + QUuid::createUuid().toString(QUuid::Id128);
    SingleInstance first(key);
    EXPECT_FALSE(first.anotherIsRunning());
    first.listen();
    QSignalSpy raised(&first, &SingleInstance::raiseRequested);
    SingleInstance second(key);
    EXPECT_TRUE(second.anotherIsRunning());
    EXPECT_TRUE(raised.count() == 1 || raised.wait(2000));
}
