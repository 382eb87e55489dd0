#pragma once

#include "data/codelists.h"
#include "shell/popup.h"

class QComboBox;
class QDateEdit;
class QLineEdit;

// Temporary notices per school, printed on the receipt while their period runs.
class BAMAS105_NOTICE : public Popup {
    Q_OBJECT
public:
    explicit BAMAS105_NOTICE(QWidget* parent = nullptr);

    void cboSchool_Click();
    void sSelectQuery();
    void cmdNew_Click();
    void cmdSave_Click();

private:
    QString schoolCode() const;
    void showNotice(const QString& sql, const QString& place);

    QComboBox* cboSchool;
    CodeArray m_schools;
    QDateEdit* dtpStart;
    QDateEdit* dtpEnd;
    QLineEdit* txtNotice;
};
