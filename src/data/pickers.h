#pragma once

#include <QString>

// The school and item pickers of the stock and sales screens: which schools a store sells to,
// and which items those schools' pupils wear, narrowed by the screen's filters.
struct PickerScope {
    QString company;
    QString store;        // "" every store of the brand
    QString brand;        // "" every brand
    QString sex;          // garment sex "B" or "G"; "" both
    int schoolLevel = 0;  // 1 to 3; 0 every level
    int contractRow = 0;  // 2 schools without a joint-purchase contract, 3 with one
    QString contractYear; // the year of the contracts
    QString season;       // "N" or "S" (with the all-season items "A"); "" every season
    QString subMain;      // item class; "" every class
};

// Schools in use of the stores in use of the scope: SCHOOLCD, SCHOOLNAME, by name. A boys'
// garment belongs to boys' and mixed schools (kind 1 and 3), a girls' one to girls' and mixed
// (2 and 3). A contract counts while today lies in its period.
QString schoolPickerSql(const PickerScope& scope);
// Whole items (no common-set parts) in use that the schools of the scope offer: UNIFORMNAME,
// CD (the base code), SUBMAIN, UNITYPE; ordered by class, type and name. A mixed item is one of
// both sexes.
QString itemPickerSql(const PickerScope& scope);
