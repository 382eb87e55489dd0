#pragma once

#include <QDateTime>
#include <QString>

class QWidget;

// Announces a screen: caption from PROGLIST ("(" + FORMNO + ")" + HANNM) and a C_LOG row.
// The main window (a name holding "MDI") gets "TORVIX_OPERATE  ver. x.y.z" instead.
void gsProgInit(const QString& userId, QWidget* form);
// A C_USERLOG row for a screen that was open one second or more.
void gsUserLog(const QString& userId, QWidget* form, const QDateTime& startTime);
