#pragma once

#include <QString>

// The data folder: TORVIX_HOME if set, else the platform's application-data folder. It holds
// Torvix.ini, database.ini, the embedded databases, "Report Form/" and "Report/".
QString dataFolder();
QString dataFile(const QString& name);

// Torvix.ini, section VERSION. A missing file or key reads as "".
QString iniVersionValue(const QString& key);
// "ver. " + major + "." + minor + "." + revision
QString versionString();
