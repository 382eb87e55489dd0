#include "data/schema/tables.h"

namespace {

// Columns are listed in the order the tills and the back-up copies rely on.
class Columns {
public:
    Columns& text(const char* name, int width) {
        m_columns.push_back(ColumnDef{QString::fromLatin1(name), ColumnType::Text, width, false});
        return *this;
    }
    Columns& code(const char* name, int width) {
        m_columns.push_back(ColumnDef{QString::fromLatin1(name), ColumnType::Text, width, true});
        return *this;
    }
    Columns& number(const char* name) {
        m_columns.push_back(ColumnDef{QString::fromLatin1(name), ColumnType::Int});
        return *this;
    }
    Columns& stamp(const char* name) {
        m_columns.push_back(ColumnDef{QString::fromLatin1(name), ColumnType::DateTime});
        return *this;
    }
    // PREFIX01 .. PREFIX24: one column per size position.
    Columns& sizes(const char* prefix, bool labels) {
        for (int n = 1; n <= 24; ++n) {
            const QString name =
                QString::fromLatin1(prefix) + QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
            m_columns.push_back(labels ? ColumnDef{name, ColumnType::Text, 10, false}
                                       : ColumnDef{name, ColumnType::Int});
        }
        return *this;
    }
    // Who entered a row and who changed it last.
    Columns& audit() {
        return stamp("REGDT").text("REGUSER", 20).stamp("UPDDT").text("UPDUSER", 20);
    }
    std::vector<ColumnDef> take() { return std::move(m_columns); }

private:
    std::vector<ColumnDef> m_columns;
};

QStringList keys(const char* list) {
    return QString::fromLatin1(list).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

TableDef table(const char* name, Columns columns, const char* key,
               QStringList indexes = QStringList()) {
    return TableDef{QString::fromLatin1(name), columns.take(), keys(key), std::move(indexes)};
}

Columns company() {
    return std::move(Columns().text("COMPANY", 10));
}

// The five columns that hang every slip table from its head, and the four that the payment and
// piece tables use (they leave the school out).
Columns slipKey() {
    return std::move(
        company().code("STORECD", 2).code("SCHOOLCD", 3).code("ORDDT", 8).text("ORDSEQ", 10));
}
Columns slipKeyNoSchool() {
    return std::move(company().code("STORECD", 2).code("ORDDT", 8).text("ORDSEQ", 10));
}

} // namespace

std::vector<TableDef> masterTables() {
    std::vector<TableDef> t;
    t.push_back(table("C_GONGTONG",
                      Columns()
                          .code("L_GRP_COD", 2)
                          .text("S_GRP_COD", 10)
                          .text("GRP_NAM", 50)
                          .code("USEYN", 1)
                          .number("DISP_SEQ"),
                      "L_GRP_COD,S_GRP_COD"));
    t.push_back(table("C_COMCODE",
                      company()
                          .code("L_GRP_COD", 2)
                          .text("S_GRP_COD", 10)
                          .text("GRP_NAM", 50)
                          .code("USEYN", 1)
                          .number("DISP_SEQ"),
                      "COMPANY,L_GRP_COD,S_GRP_COD"));
    t.push_back(table("C_BRAND",
                      company()
                          .code("BRANDCD", 2)
                          .text("BRANDNAME", 20)
                          .text("BRANDFULLNAME", 50)
                          .text("BRANDMANAGER", 20)
                          .text("BRANDTEL", 20)
                          .code("USEYN", 1)
                          .text("REMARK", 200)
                          .audit(),
                      "COMPANY,BRANDCD"));
    t.push_back(table("C_BRANDSIZE",
                      company()
                          .code("BRANDCD", 2)
                          .code("YYYY", 4)
                          .code("TEENSCOPE", 1)
                          .code("SIZETAB", 1)
                          .sizes("C", true),
                      "COMPANY,BRANDCD,YYYY,TEENSCOPE,SIZETAB",
                      // the label year in force: the greatest year not after a model year
                      {QStringLiteral("COMPANY, BRANDCD, SIZETAB, TEENSCOPE, YYYY")}));
    {
        Columns store = company();
        store.code("STORECD", 2)
            .text("STOREGB", 2)
            .code("BRANDCD", 2)
            .text("STORENAME", 20)
            .text("STOREFULLNAME", 50)
            .text("STORECEO", 20)
            .text("STORETEL", 20)
            .text("STORENO", 20)
            .text("STOREADDRES", 100)
            .code("USEYN", 1)
            .text("BANKNAME", 20)
            .text("DEPOSITOR", 20)
            .text("ACCNO", 30)
            .text("REMARK", 200)
            .text("VANCD", 2)
            .text("VANSTRCD", 20)
            .text("POSID", 20)
            .code("CASHBOX", 1)
            .number("PRTPORT")
            .code("PRTTYPE", 1)
            .text("PRTSPEED", 10);
        for (const char* set : {"SET01", "SET02", "SET03", "SET04", "SET05", "SET06", "SET07",
                                "SET08", "SET09", "SET10"}) {
            store.code(set, 1);
        }
        store.code("CURRYYYY", 4).code("CURRSEASON", 1).audit();
        t.push_back(table("C_STORE", std::move(store), "COMPANY,STORECD"));
    }
    t.push_back(table("C_USER",
                      company()
                          .text("USERID", 20)
                          .text("USERNAME", 20)
                          .text("USERPW", 20)
                          .text("USERAUT", 2)
                          .code("USEYN", 1)
                          .code("STORECD", 2)
                          .audit(),
                      "COMPANY,USERID"));
    t.push_back(table("C_USER_AUTH",
                      company().text("USERID", 20).text("PROGID", 20).code("USEYN", 1),
                      "COMPANY,USERID,PROGID"));
    t.push_back(table("C_SCHOOL",
                      company()
                          .code("SCHOOLCD", 3)
                          .text("SCHOOLNAME", 10)
                          .text("SCHOOLFULLNAME", 22)
                          .code("SCHOOLLEVEL", 1)
                          .code("SCHOOLDIVIDE", 1)
                          .code("USEYN", 1)
                          .audit(),
                      "COMPANY,SCHOOLCD"));
    t.push_back(table("C_SCHOOLNOTICE",
                      company()
                          .code("SCHOOLCD", 3)
                          .code("NOTICESEQ", 3)
                          .code("STARTDT", 10)
                          .code("ENDDT", 10)
                          .text("NOTICE", 500),
                      "COMPANY,SCHOOLCD,NOTICESEQ"));
    t.push_back(table("C_UNIFORM",
                      company()
                          .code("SEASON", 1)
                          .code("DIVIDE", 1)
                          .code("UNIFORMSEQ", 2)
                          .text("UNIFORMCOMSEQ", 2)
                          .text("UNIFORMNAME", 20)
                          .text("UNIFORMBTNVIEW", 20)
                          .text("UNIFORMSPEC", 50)
                          .code("SIZETAB", 1)
                          .code("SUBMAIN", 1)
                          .code("UNITYPE", 2)
                          .code("MIXUNIFORM", 1)
                          .code("USEYN", 1)
                          .number("DISP_SEQ")
                          .audit(),
                      "COMPANY,SEASON,DIVIDE,UNIFORMSEQ,UNIFORMCOMSEQ"));
    t.push_back(
        table("C_SCHOOLUNIFORM",
              company()
                  .code("SCHOOLCD", 3)
                  .code("SEASON", 1)
                  .code("SUDIVIDE", 1)
                  .code("DIVIDE", 1)
                  .code("UNIFORMSEQ", 2)
                  .text("UNIFORMCOMSEQ", 2)
                  .code("USEYN", 1)
                  .code("BASESELECT", 1)
                  .number("DISP_SEQ")
                  .audit(),
              "COMPANY,SCHOOLCD,SEASON,SUDIVIDE,DIVIDE,UNIFORMSEQ,UNIFORMCOMSEQ",
              // "is this item offered at this school", whatever the pupil's sex
              {QStringLiteral("COMPANY, SCHOOLCD, SEASON, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ"),
               // the school that gathers a common item's stock
               QStringLiteral("COMPANY, SEASON, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ, SCHOOLCD")}));
    t.push_back(table("C_STORESCHOOL",
                      company().code("STORECD", 2).code("SCHOOLCD", 3).code("USEYN", 1).audit(),
                      "COMPANY,STORECD,SCHOOLCD"));
    t.push_back(table("C_PRICE",
                      company()
                          .code("GUBUN", 1)
                          .code("BRANDCD", 2)
                          .code("BASICDT", 10)
                          .code("SCHOOLCD", 3)
                          .text("UNIFORMCD", 6)
                          .code("YYYY", 4)
                          .number("PRICE")
                          .audit(),
                      "COMPANY,GUBUN,BRANDCD,BASICDT,SCHOOLCD,UNIFORMCD,YYYY"));
    t.push_back(table("C_TRANSUNIFORM",
                      company()
                          .code("TRANSCD", 2)
                          .code("TRANSSEQ", 2)
                          .text("UNIFORMCD", 6)
                          .text("COLOR", 20)
                          .text("MATERIL", 20)
                          .code("BUTTON", 2)
                          .text("PATTERN", 50)
                          .code("USEYN", 1)
                          .audit(),
                      "COMPANY,TRANSCD,TRANSSEQ,UNIFORMCD"));
    t.push_back(table("C_TRANSSCHOOL",
                      company().code("TRANSCD", 2).code("TRANSSEQ", 2).code("SCHOOLCD", 3),
                      "COMPANY,TRANSCD,TRANSSEQ,SCHOOLCD"));
    t.push_back(table("C_G2B",
                      company()
                          .code("YYYY", 4)
                          .code("SEASON", 1)
                          .code("BRANDCD", 2)
                          .code("SCHOOLCD", 3)
                          .text("GT30", 2)
                          .text("GT31", 2)
                          .text("GT32", 2)
                          .text("GT33", 2)
                          .text("GT34", 2)
                          .code("STARTDT", 10)
                          .code("ENDDT", 10)
                          .text("BTNNAME1", 20)
                          .number("PRICE1")
                          .text("BTNNAME2", 20)
                          .number("PRICE2")
                          .text("BTNNAME3", 20)
                          .number("PRICE3")
                          .audit(),
                      "COMPANY,YYYY,SEASON,BRANDCD,SCHOOLCD"));
    t.push_back(table("C_G2B_Student",
                      company()
                          .code("YYYY", 4)
                          .code("SEASON", 1)
                          .code("BRANDCD", 2)
                          .code("SCHOOLCD", 3)
                          .number("G2BSEQ")
                          .text("SCHBAN", 10)
                          .text("SCHBUN", 10)
                          .text("STUDNAME", 20)
                          .text("STUDDIV", 10)
                          .text("G2BSTATE", 10)
                          .number("G2BAMT")
                          .code("REGDT", 8)
                          .code("REGTM", 5)
                          .stamp("UPDDT")
                          .text("UPDUSER", 20)
                          .text("BILLNO", 20),
                      "COMPANY,YYYY,SEASON,BRANDCD,SCHOOLCD,G2BSEQ"));
    return t;
}

std::vector<TableDef> stockTables() {
    const auto line = [](const char* date, const char* seq) {
        return std::move(company()
                             .code("STORECD", 2)
                             .code(date, 8)
                             .number(seq)
                             .code("SCHOOLCD", 3)
                             .code("SUDIVIDE", 1)
                             .text("UNIFORMCD", 6));
    };
    std::vector<TableDef> t;
    t.push_back(table("T_ORDER",
                      line("ORDERDT", "ORDERSEQ")
                          .code("ORDYYYY", 4)
                          .code("SIZETAB", 1)
                          .sizes("O", false)
                          .code("FINISHGB", 1)
                          .text("ORDERSTORE", 50)
                          .audit(),
                      "COMPANY,STORECD,ORDERDT,ORDERSEQ"));
    t.push_back(table("T_INBOUND",
                      line("INBOUNDDT", "INBOUNDSEQ")
                          .code("INYYYY", 4)
                          .code("SIZETAB", 1)
                          .sizes("I", false)
                          .code("ORDERDT", 8)
                          .number("ORDERSEQ")
                          .text("OUTBOUNDSTORE", 50)
                          .code("INBOUNDGB", 1)
                          .audit(),
                      "COMPANY,STORECD,INBOUNDDT,INBOUNDSEQ",
                      // receipts of a stock line, and receipts of an order line
                      {QStringLiteral("COMPANY, STORECD, SCHOOLCD, UNIFORMCD, INYYYY"),
                       QStringLiteral("COMPANY, STORECD, ORDERDT, ORDERSEQ")}));
    t.push_back(table("T_OUTBOUND",
                      line("OUTBOUNDDT", "OUTBOUNDSEQ")
                          .code("OUTYYYY", 4)
                          .sizes("O", false)
                          .text("INBOUNDSTORE", 50)
                          .code("OUTBOUNDGB", 1)
                          .text("INSTOREFULLNAME", 50)
                          .text("INSTOREADDRES", 100)
                          .text("INSTORETEL", 20)
                          .audit(),
                      "COMPANY,STORECD,OUTBOUNDDT,OUTBOUNDSEQ"));
    t.push_back(table("T_BASSTOCKQTY",
                      company()
                          .code("STORECD", 2)
                          .code("SCHOOLCD", 3)
                          .text("UNIFORMCD", 6)
                          .code("YYYY", 4)
                          .code("SIZETAB", 1)
                          .code("SUDIVIDE", 1)
                          .sizes("C", false),
                      "COMPANY,STORECD,SCHOOLCD,UNIFORMCD,YYYY"));
    return t;
}

std::vector<TableDef> slipTables() {
    std::vector<TableDef> t;
    t.push_back(table("S_ORDERHEAD",
                      slipKey()
                          .text("BILLNO", 20)
                          .text("STATNM", 10)
                          .code("HANDDT", 8)
                          .stamp("CANCELDT")
                          .text("SCHDIV", 10)
                          .code("SCHLEV", 1)
                          .code("YYYY", 4)
                          .text("SCHBAN", 10)
                          .text("SCHBUN", 10)
                          .text("CUSTNAME", 20)
                          .text("CUSTTEL", 20)
                          .text("RECEIPTNO", 20)
                          .text("REGTM", 8)
                          .text("ORDMEMO", 200)
                          .number("RECVAMT")
                          .number("G2BAMT")
                          .number("CANCELG2BAMT")
                          .number("DCAMT"),
                      "COMPANY,STORECD,SCHOOLCD,ORDDT,ORDSEQ",
                      // sales by hand-over day; payments and pieces find their slip without
                      // the school; the stock reads whether a slip counts from the index alone
                      {QStringLiteral("COMPANY, HANDDT, STORECD"),
                       QStringLiteral("COMPANY, STORECD, ORDDT, ORDSEQ"),
                       QStringLiteral(
                           "COMPANY, STORECD, ORDDT, ORDSEQ, SCHOOLCD, STATNM, BILLNO, CANCELDT")}));
    t.push_back(table("S_ORDERDETAIL",
                      slipKey()
                          .text("PKEY", 20)
                          .text("UNIFORMCD", 6)
                          .code("YYYY", 4)
                          .code("SEASON", 1)
                          .code("SIZETAB", 1)
                          .text("SIZE", 10)
                          .number("CNT")
                          .number("AMT")
                          .code("ST", 2)
                          .text("RESERVE", 10)
                          .text("DELIVERY", 10)
                          .text("SCHOOLNM", 22)
                          .text("UNIFORMNM", 20),
                      "COMPANY,STORECD,SCHOOLCD,ORDDT,ORDSEQ,PKEY",
                      // the stock reads a slip's lines from the index alone
                      {QStringLiteral("COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, PKEY, "
                                      "UNIFORMCD, YYYY, SIZETAB, SIZE, CNT")}));
    t.push_back(table("S_RETURN",
                      slipKey()
                          .text("UNIFORMCD", 6)
                          .code("YYYY", 4)
                          .code("SEASON", 1)
                          .code("SIZETAB", 1)
                          .text("SIZE", 10)
                          .number("CNT")
                          .number("AMT")
                          .code("RETDT", 8)
                          .text("RETMEMO", 200)
                          .number("DETAILSEQ"),
                      "COMPANY,STORECD,SCHOOLCD,ORDDT,ORDSEQ,DETAILSEQ",
                      {QStringLiteral("COMPANY, RETDT")}));
    const auto payments = [] {
        return std::move(slipKeyNoSchool()
                             .text("PAYSEQ", 20)
                             .text("APPDTTM", 20)
                             .text("PAYNAME", 10)
                             .text("PAYTYPE", 20)
                             .number("APPAMT"));
    };
    t.push_back(table("S_ADJUST", payments(), "COMPANY,STORECD,ORDDT,ORDSEQ,PAYSEQ",
                      // a receivable's events are found by the sale's payment number
                      {QStringLiteral("PAYSEQ")}));
    t.push_back(table("S_CREDIT", payments(), "COMPANY,STORECD,ORDDT,ORDSEQ,PAYSEQ",
                      {QStringLiteral("PAYSEQ")}));
    t.push_back(table("S_REPAIR",
                      slipKeyNoSchool()
                          .text("PKEY", 20)
                          .number("REPAIRAMT")
                          .text("REPAIRITM", 20)
                          .text("REPAIRDTL1", 20)
                          .text("REPAIRDTL2", 20)
                          .text("REPAIRDTL3", 20)
                          .text("REPAIRDTL4", 20)
                          .text("REPAIRSIZE", 10)
                          .text("REPAIRUNIT", 10)
                          .text("REPAIRMEMO", 200)
                          .text("RECEIPTNO", 20)
                          .code("USEYN", 1),
                      "", // a line may carry several repair orders
                      {QStringLiteral("COMPANY, STORECD, ORDDT, ORDSEQ, PKEY")}));
    t.push_back(table("S_REPAIRDETAIL",
                      slipKeyNoSchool()
                          .text("PKEY", 20)
                          .number("RESEQ")
                          .text("RESERVEDT", 10)
                          .text("REPAIRDT", 10)
                          .code("DEBENTDT", 8)
                          .code("DEBENTTM", 5)
                          .text("DELIVERY", 10)
                          .text("DELIVERYCD", 2)
                          .text("DEBENTURE", 20)
                          .text("DELIVERYNO", 20)
                          .code("USEYN", 1),
                      "COMPANY,STORECD,ORDDT,ORDSEQ,PKEY,RESEQ",
                      // the stock's reservations of a store, read from the index alone
                      {QStringLiteral("COMPANY, STORECD, ORDDT, ORDSEQ, PKEY, RESERVEDT")}));
    t.push_back(table(
        "S_DELIVERY",
        slipKeyNoSchool().number("DELIVERYAMT").text("DELIVERYADDR", 200).text("DELIVERYMEMO", 200),
        "COMPANY,STORECD,ORDDT,ORDSEQ"));
    return t;
}

QStringList backedUpSlipTables() {
    return {QStringLiteral("S_ADJUST"),    QStringLiteral("S_CREDIT"),
            QStringLiteral("S_ORDERHEAD"), QStringLiteral("S_ORDERDETAIL"),
            QStringLiteral("S_RETURN"),    QStringLiteral("S_DELIVERY"),
            QStringLiteral("S_REPAIR"),    QStringLiteral("S_REPAIRDETAIL")};
}

TableDef backupTable(const TableDef& source) {
    TableDef copy{source.name + QStringLiteral("_DEL_BACK"), source.columns, {}, {}};
    copy.database = source.database;
    return copy;
}
