#pragma once

#include "shell/popup.h"

#include <QString>
#include <QStringList>

class QCheckBox;
class QLabel;

// The notice shown before a stock count is entered ("재고보정"): what a count means for the
// sizes left empty and when to count. Run (cmdRun1) accepts, exit (cmdExit) rejects; the screen
// turns its save and "DATA삭제" on after a run. For "재고등록" the pop-up has a second face, the
// choice of model years whose registrations would be replaced; no command opens it, and its
// run buttons do nothing.
class BAMAS330_CHOICE : public Popup {
    Q_OBJECT
public:
    // mode: the screen's mode as its Label2 shows it; years: the five two-digit years of its
    // year list (a leading empty row is skipped).
    BAMAS330_CHOICE(const QString& mode, const QStringList& years, QWidget* parent = nullptr);

private:
    void buildCorrection();
    void buildRegistration(const QStringList& years);
    void chkDeleteYYYY_Click(int index);

    QLabel* lblFTitle1 = nullptr;
    QCheckBox* chkDeleteYYYY[6] = {};
    QLabel* lblYYYY[6] = {};
    QLabel* lblStat[6] = {};
    bool m_ticking = false;
};
