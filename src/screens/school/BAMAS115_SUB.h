#pragma once

#include "shell/popup.h"

class ButtonArray;
class ButtonFaceText;
class GridColumns;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class Spread;

// A base item as the item master's list row hands it over: its code and name, and its parts
// as codes.
struct BaseItem {
    QString code; // season, sex and sequence
    QString name;
    QString season;
    QString divide;
    QString sizeTab;
    QString subMain;
    QString uniType;
    QString sequence;
    bool mix = false;
};

// The common items of a base item: variants under the same season, sex and sequence, numbered
// "01" upwards, each with its own name, button text, fabric (사양) and its own schools, for
// boys and girls apart.
class BAMAS115_SUB : public Popup {
    Q_OBJECT
public:
    explicit BAMAS115_SUB(const BaseItem& base, QWidget* parent = nullptr);

    void sSelectQuery();
    // The schools of the selected common item, not assigned and assigned, for the chosen sex.
    void sSelectSchools();
    void sSaveQuery();
    void cmdDel_Click();
    void cmdNew_Click() { sClearInput(); }
    void SP1_Click(int row);
    // Moves the checked schools across and saves at once.
    void cmdLeft_Click();
    void cmdRight_Click();

    // The school list of one side for the chosen sex ("1" boys, "2" girls).
    QString schoolStatement(bool assigned, const QString& sudivide) const;

private:
    static const GridColumns& listColumns();
    static const GridColumns& schoolColumns();
    QWidget* buildFields();
    QWidget* buildSchools();
    void sClearInput();
    bool checkRequired() const;
    // "1" boys, "2" girls, "" when no sex is chosen.
    QString sudivide() const;
    QString keyWhere() const;
    void selectSequence(const QString& sequence);

    BaseItem m_base;
    QString m_fullCode; // beside txtComCode: the selected item's whole code
    QLineEdit* txtComCode;
    QLineEdit* txtComName;
    ButtonFaceText* txtComButName;
    QLineEdit* txtComSpec;
    QPushButton* cmdButton;
    QPushButton* cmdSave;
    QRadioButton* optON;
    QRadioButton* optOFF;
    QGroupBox* Frame3;
    QRadioButton* optGT23[3];
    Spread* SP1;
    Spread* SP2;
    Spread* SP3;
};
