#pragma once

#include <QString>

// The SQL Server text of a statement that a test has built, kept for the T-SQL parse of the
// suite (test_tsql). That parse runs every test whose name holds "Server" with the environment
// TORVIX_SERVER_TEXTS naming a folder, and parses what they kept there; outside it nothing is
// written. A test that builds a statement with the server dialect hands each whole statement
// here, and so a new screen's statements are parsed without a test of their own.
//
// Returns the text, so that a test can keep and check it in one expression.
const QString& keepServerText(const QString& sql);
