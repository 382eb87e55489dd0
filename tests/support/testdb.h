#pragma once

#include "scriptedpresenter.h"

#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

// Readable values in failed expectations.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }

class SqliteDatabase;

// A fresh pair of embedded databases per test, with the schema, a session for company "01" and
// user "tester" of class "S", and a scripted presenter. The process end is recorded, not done.
class TestDb : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs statements on the main database directly (fixtures), failing the test on error.
    void exec(const QString& sql);
    // The first field of the first row of a select on the main database ("" when none).
    QString scalar(const QString& sql);
    QString scalarUpdate(const QString& sql);
    qint64 count(const QString& table, const QString& where = QString());
    // Loads tests/fixtures/NAME.
    void loadFixture(const QString& name);

    QTemporaryDir dir;
    std::shared_ptr<ScriptedPresenter> presenter;
    int endedWith = -1; // the code the process would have ended with
};
