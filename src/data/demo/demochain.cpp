#include "data/demo/demochain.h"

#include "data/database.h"
#include "data/demo/demonames.h"
#include "data/demo/rng.h"
#include "data/demo/rowsink.h"
#include "data/recordset.h"
#include "data/sqlvalue.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace {

using std::string;

const string kCompany = kDemoCompany;
const char* const kSizeTabs = "XJPT";

string twoDigits(int n) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d", n % 100);
    return buf;
}
string digits(int n, int width) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%0*d", width, n);
    return buf;
}
string ymd(const QDate& d) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d%02d%02d", d.year(), d.month(), d.day());
    return buf;
}
string dashed(const QDate& d) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", d.year(), d.month(), d.day());
    return buf;
}
string stamp(const QDate& d, int hour = 10, int minute = 0) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:00.000", d.year(), d.month(), d.day(),
                  hour, minute);
    return buf;
}
string year(int y) {
    return std::to_string(y);
}
// Concatenation with its parts made left to right: a chain of "+" leaves the order of the
// random draws inside it to the compiler, and the chain must not depend on the compiler.
string cat(std::initializer_list<string> parts) {
    string out;
    for (const string& part : parts) {
        out += part;
    }
    return out;
}

struct Item {
    string season, divide, seq, comseq, name, unitype;
    char sizetab;
    char submain;
    bool mix;
    bool inUse;
    int price;
    string code() const { return season + divide + seq + comseq; }
    bool common() const { return !comseq.empty(); }
    // The composed code padded to six, as the line keys of the tills carry it.
    string padded() const {
        string c = code();
        c.resize(6, ' ');
        return c;
    }
};

struct School {
    string code, name, full;
    char level;  // 1 middle, 2 high, 3 Kids
    char divide; // 1 boys, 2 girls, 3 co-educational
    int homeStore;
    std::vector<int> items; // indexes into the item list
};

struct Store {
    string code, name, full, ceo, tel, address;
    int brand;
    std::vector<int> schools;
    int bills = 0;
    std::map<string, int> orderSeq, inboundSeq, outboundSeq; // per day
};

struct Student {
    int contract;
    string ban, bun, name, bill;
};

struct Contract {
    int school;
    int brand;
    int year;
    QDate start, end;
    int price;
    std::vector<int> students;
    std::size_t nextStudent = 0;
};

// A brand's label rows: per teen range, size table and label year.
struct SizeModel {
    std::array<int, 3> years;
    // labels(teen, tab, yearIndex)
    std::vector<string> rows[2][4][3];
    const std::vector<string>& labels(char level, char tab, int modelYear) const {
        static const std::vector<string> none;
        const int teen = level == '3' ? 0 : 1;
        const int t = int(std::string_view(kSizeTabs).find(tab));
        for (int i = 2; i >= 0; --i) {
            if (years[size_t(i)] <= modelYear) {
                return rows[teen][t][i];
            }
        }
        return none;
    }
};

class Generator {
public:
    Generator(Database& db, int seed, int scale, const QDate& today)
        : m_db(db), m_rng(std::uint64_t(seed)), m_scale(std::max(1, scale)), m_today(today),
          m_year(today.year()) {}

    void run() {
        programs();
        codes();
        brands();
        stores();
        items();
        schools();
        users();
        prices();
        contracts();
        stock();
        slips();
        students();
    }

private:
    // A middle-weighted position among n.
    int middlePick(int n) { return (m_rng.below(n) + m_rng.below(n) + 1) / 2 % n; }

    string personName() {
        const string surname = m_rng.pick(kSurnames);
        return surname + (m_rng.percent(50) ? m_rng.pick(kBoyNames) : m_rng.pick(kGirlNames));
    }
    string phone() {
        return cat(
            {"010-", digits(m_rng.between(2000, 9999), 4), "-", digits(m_rng.between(0, 9999), 4)});
    }

    void programs() {
        DemoTable t(m_db, "PROGLIST",
                    "PROGID, UPPROGID, HANNM, FORMNO, GUBUN, USEYN, SYSID, BIGID, SMLID");
        DemoRow r;
        // The root that every user's rights start from; no tree node of its own.
        t.add(r.t("*******").t("").t("TORVIX").t("000").t("0").t("N").t("00").t("00").t("00"));
        t.add(r.t("TORVIX")
                  .t("*******")
                  .t("TORVIX 운영관리")
                  .t("000")
                  .t("1")
                  .t("Y")
                  .t("01")
                  .t("00")
                  .t("00"));
        int menu = 0;
        for (const ProgramMenu& m : kMenus) {
            ++menu;
            t.add(r.t(m.id)
                      .t("TORVIX")
                      .t(m.name)
                      .t(m.formNo)
                      .t("2")
                      .t("Y")
                      .t("01")
                      .t(twoDigits(menu))
                      .t("00"));
            m_rights.push_back(m.id);
            int program = 0;
            for (const ProgramEntry& p : m.programs) {
                if (!p.number) {
                    break;
                }
                ++program;
                const string id = "BAMAS" + std::to_string(p.number);
                t.add(r.t(id)
                          .t(m.id)
                          .t(p.caption)
                          .t(std::to_string(p.number))
                          .t("3")
                          .t("Y")
                          .t("01")
                          .t(twoDigits(menu))
                          .t(twoDigits(program)));
                m_rights.push_back(id);
            }
        }
        t.flush();
    }

    void codes() {
        DemoTable t(m_db, "C_GONGTONG", "L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ");
        DemoRow r;
        for (const CodeRow& c : kCommonCodes) {
            t.add(r.t(c.group).t(c.code).t(c.name).t(c.inUse ? "Y" : "N").n(c.order));
        }
        t.flush();
        DemoTable k(m_db, "C_COMCODE", "COMPANY, L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ");
        int order = 0;
        for (const char* name : kUniformTypes) {
            ++order;
            k.add(r.t(kCompany).t("01").t(twoDigits(order)).t(name).t("Y").n(order));
        }
        k.flush();
    }

    void brands() {
        DemoTable t(m_db, "C_BRAND",
                    "COMPANY, BRANDCD, BRANDNAME, BRANDFULLNAME, BRANDMANAGER, BRANDTEL, USEYN, "
                    "REMARK, REGDT, REGUSER, UPDDT, UPDUSER");
        string columns = "COMPANY, BRANDCD, YYYY, TEENSCOPE, SIZETAB";
        for (int n = 1; n <= 24; ++n) {
            columns += ", C" + twoDigits(n);
        }
        DemoTable s(m_db, "C_BRANDSIZE", columns.c_str());
        DemoRow r;
        const string since = stamp(m_today.addYears(-7));
        for (int b = 0; b < int(std::size(kBrands)); ++b) {
            t.add(r.t(kCompany)
                      .t(twoDigits(b + 1))
                      .t(kBrands[b].name)
                      .t(kBrands[b].full)
                      .t(personName())
                      .t("02-" + digits(m_rng.between(300, 999), 3) + "-" +
                         digits(m_rng.between(1000, 9999), 4))
                      .t("Y")
                      .t("")
                      .t(since)
                      .t(kDemoUserId)
                      .t(since)
                      .t(kDemoUserId));
            SizeModel model;
            model.years = {m_year - 6, m_year - 3, m_year};
            for (int teen = 0; teen < 2; ++teen) {
                for (int tab = 0; tab < 4; ++tab) {
                    for (int y = 0; y < 3; ++y) {
                        model.rows[teen][tab][y] = sizeLabels(b, teen, kSizeTabs[tab], y);
                        r.t(kCompany)
                            .t(twoDigits(b + 1))
                            .t(year(model.years[size_t(y)]))
                            .t(teen ? "H" : "L")
                            .t(string(1, kSizeTabs[tab]));
                        const auto& labels = model.rows[teen][tab][y];
                        for (std::size_t n = 0; n < 24; ++n) {
                            r.t(n < labels.size() ? labels[n] : string());
                        }
                        s.add(r);
                    }
                }
            }
            m_sizes.push_back(model);
        }
        t.flush();
        s.flush();
    }

    // Label rows: each label year of a brand adds a size at the large end, and the youngest
    // brand numbers its trousers in centimetres rather than inches.
    static std::vector<string> sizeLabels(int brand, int teen, char tab, int yearIndex) {
        std::vector<string> out;
        switch (tab) {
        case 'X':
        case 'J': {
            const int from = teen ? 85 : 65;
            const int count = (teen ? 8 : 7) + yearIndex;
            for (int i = 0; i < count; ++i) {
                out.push_back(std::to_string(from + 5 * i));
            }
            break;
        }
        case 'P': {
            const int count = (teen ? 8 : 6) + yearIndex;
            for (int i = 0; i < count; ++i) {
                const int inch = (teen ? 24 : 18) + 2 * i;
                out.push_back(brand == 2 ? std::to_string(inch * 254 / 100 / 2 * 2)
                                         : std::to_string(inch));
            }
            break;
        }
        default: {
            static const char* const teenT[] = {"S", "M", "L", "XL", "2XL", "3XL", "4XL"};
            static const char* const kidsT[] = {"110", "120", "130", "140", "150", "160"};
            const int count = teen ? 5 + yearIndex % 3 : 4 + yearIndex;
            for (int i = 0; i < count; ++i) {
                out.push_back(teen ? teenT[i] : kidsT[i]);
            }
            break;
        }
        }
        return out;
    }

    void stores() {
        const int count = std::min(99, 3 + 3 * m_scale);
        DemoTable t(m_db, "C_STORE",
                    "COMPANY, STORECD, STOREGB, BRANDCD, STORENAME, STOREFULLNAME, STORECEO, "
                    "STORETEL, STORENO, STOREADDRES, USEYN, BANKNAME, DEPOSITOR, ACCNO, REMARK, "
                    "VANCD, VANSTRCD, POSID, CASHBOX, PRTPORT, PRTTYPE, PRTSPEED, SET01, SET02, "
                    "SET03, SET04, SET05, SET06, SET07, SET08, SET09, SET10, CURRYYYY, CURRSEASON, "
                    "REGDT, REGUSER, UPDDT, UPDUSER");
        DemoRow r;
        const string season = (m_today.month() >= 5 && m_today.month() <= 9) ? "S" : "N";
        const string since = stamp(m_today.addYears(-5));
        const int cities = int(std::size(kCities));
        for (int i = 0; i < count; ++i) {
            Store s;
            s.code = twoDigits(i + 1);
            s.brand = i % int(std::size(kBrands));
            const City& city = kCities[i % cities];
            s.name = string(city.name) + (i < cities ? "점" : "역점");
            s.full = string(kBrands[s.brand].name) + " " + s.name;
            s.ceo = personName();
            s.tel = cat({city.areaCode, "-", digits(m_rng.between(200, 999), 3), "-",
                         digits(m_rng.between(1000, 9999), 4)});
            s.address = cat({city.province, " ", city.name, " ", m_rng.pick(kStreets), " ",
                             std::to_string(m_rng.between(1, 399))});
            const string owner = s.ceo;
            r.t(kCompany)
                .t(s.code)
                .t(i % 5 == 0 ? "1" : "2")
                .t(twoDigits(s.brand + 1))
                .t(s.name)
                .t(s.full)
                .t(s.ceo)
                .t(s.tel)
                .t(cat({digits(m_rng.between(100, 899), 3), "-", digits(m_rng.between(10, 99), 2),
                        "-", digits(m_rng.between(10000, 99999), 5)}))
                .t(s.address)
                .t("Y")
                .t(m_rng.pick(kBanks))
                .t(owner)
                .t(cat({digits(m_rng.between(100, 999), 3), "-", digits(m_rng.between(10, 99), 2),
                        "-", digits(m_rng.between(100000, 999999), 6)}))
                .t("")
                .t(twoDigits(1 + i % 3))
                .t(digits(m_rng.between(1000000, 9999999), 7))
                .t("POS" + s.code)
                .t(i % 4 == 0 ? "N" : "Y")
                .n(1 + i % 4)
                .t(i % 3 == 0 ? "T" : "C")
                .t("9600");
            for (int set = 0; set < 10; ++set) {
                r.t(m_rng.percent(25) ? "1" : "0");
            }
            r.t(year(m_year)).t(season).t(since).t(kDemoUserId).t(since).t(kDemoUserId);
            t.add(r);
            m_stores.push_back(std::move(s));
        }
        t.flush();
    }

    void items() {
        DemoTable t(m_db, "C_UNIFORM",
                    "COMPANY, SEASON, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ, UNIFORMNAME, "
                    "UNIFORMBTNVIEW, UNIFORMSPEC, SIZETAB, SUBMAIN, UNITYPE, MIXUNIFORM, USEYN, "
                    "DISP_SEQ, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoRow r;
        const string since = stamp(m_today.addYears(-6));
        int order = 0;
        for (const ItemSpec& spec : kItems) {
            Item item{spec.season,  spec.divide,  spec.seq, spec.comseq, spec.name, spec.unitype,
                      spec.sizetab, spec.submain, spec.mix, spec.inUse,  spec.price};
            ++order;
            const string button =
                string(spec.name).size() > 12 ? string(spec.name).substr(0, 12) : string(spec.name);
            t.add(r.t(kCompany)
                      .t(item.season)
                      .t(item.divide)
                      .t(item.seq)
                      .t(item.comseq)
                      .t(item.name)
                      .t(button)
                      .t(m_rng.pick(kFabrics))
                      .t(string(1, item.sizetab))
                      .t(string(1, item.submain))
                      .t(item.unitype)
                      .t(item.mix ? "1" : "0")
                      .t(item.inUse ? "Y" : "N")
                      .n(order)
                      .t(since)
                      .t(kDemoUserId)
                      .t(since)
                      .t(kDemoUserId));
            m_items.push_back(std::move(item));
        }
        t.flush();
    }

    bool itemFits(const Item& item, const School& school, bool withCommon) const {
        if (!item.inUse && item.common()) {
            return false;
        }
        if (item.common() && !withCommon) {
            return false;
        }
        const bool boys = school.divide != '2';
        const bool girls = school.divide != '1';
        if ((item.divide == "B" && !boys) || (item.divide == "G" && !girls)) {
            return false;
        }
        // Kids' shops sell the everyday and sports wear and a winter set, no vests.
        return school.level != '3' || item.season == "A" ||
               (item.unitype != "04" && !item.common());
    }

    void schools() {
        DemoTable t(m_db, "C_SCHOOL",
                    "COMPANY, SCHOOLCD, SCHOOLNAME, SCHOOLFULLNAME, SCHOOLLEVEL, SCHOOLDIVIDE, "
                    "USEYN, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoTable su(m_db, "C_SCHOOLUNIFORM",
                     "COMPANY, SCHOOLCD, SEASON, SUDIVIDE, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ, "
                     "USEYN, BASESELECT, DISP_SEQ, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoTable ss(m_db, "C_STORESCHOOL",
                     "COMPANY, STORECD, SCHOOLCD, USEYN, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoTable notice(m_db, "C_SCHOOLNOTICE",
                         "COMPANY, SCHOOLCD, NOTICESEQ, STARTDT, ENDDT, NOTICE");
        DemoRow r;
        const string since = stamp(m_today.addYears(-4));
        const int perStore = 7;
        const int total = std::min(999, perStore * int(m_stores.size()));
        const int names = int(std::size(kSchoolNames));
        for (int i = 0; i < total; ++i) {
            School s;
            s.code = digits(i + 1, 3);
            s.homeStore = i % int(m_stores.size());
            const int slot = i / int(m_stores.size()); // 0..perStore-1 within the store
            // Per store: three middle, two high, one girls' high, one Kids.
            static const char levels[] = {'1', '1', '1', '2', '2', '2', '3'};
            static const char divides[] = {'3', '1', '2', '3', '1', '2', '3'};
            s.level = levels[slot % 7];
            s.divide = divides[slot % 7];
            const City& city = kCities[s.homeStore % int(std::size(kCities))];
            const string base = kSchoolNames[(s.homeStore * 5 + slot * 3) % names];
            const string girls = s.divide == '2' ? "여" : "";
            switch (s.level) {
            case '1':
                s.name = base + girls + "중";
                s.full = string(city.name) + base + (s.divide == '2' ? "여자" : "") + "중학교";
                break;
            case '2':
                s.name = base + girls + "고";
                s.full = string(city.name) + base + (s.divide == '2' ? "여자" : "") + "고등학교";
                break;
            default:
                s.name = base + "초";
                s.full = string(city.name) + base + "초등학교";
                break;
            }
            const bool withCommon = m_rng.percent(40);
            for (int k = 0; k < int(m_items.size()); ++k) {
                if (itemFits(m_items[size_t(k)], s, withCommon)) {
                    s.items.push_back(k);
                }
            }
            t.add(r.t(kCompany)
                      .t(s.code)
                      .t(s.name)
                      .t(s.full)
                      .t(string(1, s.level))
                      .t(string(1, s.divide))
                      .t("Y")
                      .t(since)
                      .t(kDemoUserId)
                      .t(since)
                      .t(kDemoUserId));
            int order = 0;
            for (int k : s.items) {
                const Item& item = m_items[size_t(k)];
                ++order;
                su.add(r.t(kCompany)
                           .t(s.code)
                           .t(item.season)
                           .t(item.divide == "G" ? "2" : "1")
                           .t(item.divide)
                           .t(item.seq)
                           .t(item.comseq)
                           .t("Y")
                           .t(item.submain == '1' ? "*" : "")
                           .n(order)
                           .t(since)
                           .t(kDemoUserId)
                           .t(since)
                           .t(kDemoUserId));
            }
            m_stores[size_t(s.homeStore)].schools.push_back(i);
            ss.add(r.t(kCompany)
                       .t(m_stores[size_t(s.homeStore)].code)
                       .t(s.code)
                       .t("Y")
                       .t(since)
                       .t(kDemoUserId)
                       .t(since)
                       .t(kDemoUserId));
            // Some schools are also served by the next store of the same brand.
            const int other = s.homeStore + int(std::size(kBrands));
            if (other < int(m_stores.size()) && m_rng.percent(15)) {
                m_stores[size_t(other)].schools.push_back(i);
                ss.add(r.t(kCompany)
                           .t(m_stores[size_t(other)].code)
                           .t(s.code)
                           .t("Y")
                           .t(since)
                           .t(kDemoUserId)
                           .t(since)
                           .t(kDemoUserId));
            }
            if (m_rng.percent(20)) {
                const QDate from(m_year, 2, 1);
                notice.add(r.t(kCompany)
                               .t(s.code)
                               .t("001")
                               .t(dashed(from))
                               .t(dashed(from.addDays(58)))
                               .t(s.name + " 신입생 교복 맞춤은 2월 말까지 받습니다."));
            }
            m_schools.push_back(std::move(s));
        }
        t.flush();
        su.flush();
        ss.flush();
        notice.flush();

        // Exclusive uniforms: colour and cloth of a few items for a handful of schools.
        DemoTable tu(m_db, "C_TRANSUNIFORM",
                     "COMPANY, TRANSCD, TRANSSEQ, UNIFORMCD, COLOR, MATERIL, BUTTON, PATTERN, "
                     "USEYN, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoTable ts(m_db, "C_TRANSSCHOOL", "COMPANY, TRANSCD, TRANSSEQ, SCHOOLCD");
        const int exclusive = std::min(int(m_schools.size()), 4 + m_scale);
        for (int seq = 1; seq <= std::min(99, exclusive); ++seq) {
            const School& school = m_schools[size_t((seq * 7) % int(m_schools.size()))];
            for (int k : school.items) {
                const Item& item = m_items[size_t(k)];
                if (item.unitype != "01" && item.unitype != "02") {
                    continue;
                }
                tu.add(r.t(kCompany)
                           .t("TS")
                           .t(twoDigits(seq))
                           .t(item.code())
                           .t(m_rng.pick(kColours))
                           .t(m_rng.pick(kFabrics))
                           .t(twoDigits(m_rng.between(2, 6)))
                           .t(m_rng.pick(kPatterns))
                           .t("Y")
                           .t(since)
                           .t(kDemoUserId)
                           .t(since)
                           .t(kDemoUserId));
            }
            ts.add(r.t(kCompany).t("TS").t(twoDigits(seq)).t(school.code));
        }
        tu.flush();
        ts.flush();
    }

    void users() {
        DemoTable u(m_db, "C_USER",
                    "COMPANY, USERID, USERNAME, USERPW, USERAUT, USEYN, STORECD, REGDT, REGUSER, "
                    "UPDDT, UPDUSER");
        DemoTable a(m_db, "C_USER_AUTH", "COMPANY, USERID, PROGID, USEYN");
        DemoRow r;
        const string since = stamp(m_today.addYears(-3));
        const auto grant = [&](const string& user, bool storeOnly) {
            a.add(r.t(kCompany).t(user).t("*******").t("Y"));
            a.add(r.t(kCompany).t(user).t("TORVIX").t("Y"));
            for (const string& id : m_rights) {
                // A store's user sees stock and sales, not the masters.
                const bool master =
                    id == "M100" || id.rfind("BAMAS1", 0) == 0 || id == "M500" || id == "BAMAS505";
                if (!storeOnly || !master) {
                    a.add(r.t(kCompany).t(user).t(id).t("Y"));
                }
            }
        };
        u.add(r.t(kCompany)
                  .t(kDemoUserId)
                  .t(kDemoUserName)
                  .t("1234")
                  .t("S")
                  .t("Y")
                  .t("")
                  .t(since)
                  .t(kDemoUserId)
                  .t(since)
                  .t(kDemoUserId));
        grant(kDemoUserId, false);
        u.add(r.t(kCompany)
                  .t("hq01")
                  .t(personName())
                  .t("1234")
                  .t("M")
                  .t("Y")
                  .t("")
                  .t(since)
                  .t(kDemoUserId)
                  .t(since)
                  .t(kDemoUserId));
        grant("hq01", false);
        for (const Store& s : m_stores) {
            const string id = "store" + s.code;
            u.add(r.t(kCompany)
                      .t(id)
                      .t(personName())
                      .t("1234")
                      .t("A")
                      .t(s.code == "03" ? "N" : "Y")
                      .t(s.code)
                      .t(since)
                      .t(kDemoUserId)
                      .t(since)
                      .t(kDemoUserId));
            grant(id, true);
        }
        u.flush();
        a.flush();
    }

    int priceOf(const Item& item, int brand, int modelYear) const {
        // A few per cent dearer each model year and per brand, rounded to a thousand won.
        const int raised = item.price * (100 + 3 * (modelYear - (m_year - 2)) + 2 * brand) / 100;
        return raised / 1000 * 1000;
    }

    void prices() {
        DemoTable t(m_db, "C_PRICE",
                    "COMPANY, GUBUN, BRANDCD, BASICDT, SCHOOLCD, UNIFORMCD, YYYY, PRICE, REGDT, "
                    "REGUSER, UPDDT, UPDUSER");
        DemoRow r;
        const string basic = dashed(QDate(m_year, 1, 1));
        const string older = dashed(QDate(m_year - 1, 1, 1));
        for (const School& school : m_schools) {
            const int brand = m_stores[size_t(school.homeStore)].brand;
            const bool special = m_rng.percent(10);
            for (int k : school.items) {
                const Item& item = m_items[size_t(k)];
                for (int y = m_year - 1; y <= m_year; ++y) {
                    for (const string& day : {older, basic}) {
                        const int price = priceOf(item, brand, y) - (day == older ? 2000 : 0);
                        const string when =
                            stamp(QDate::fromString(QString::fromStdString(day), Qt::ISODate));
                        t.add(r.t(kCompany)
                                  .t("B")
                                  .t(twoDigits(brand + 1))
                                  .t(day)
                                  .t(school.code)
                                  .t(item.code())
                                  .t(year(y))
                                  .n(price)
                                  .t(when)
                                  .t(kDemoUserId)
                                  .t(when)
                                  .t(kDemoUserId));
                        if (special && item.submain == '1') {
                            t.add(r.t(kCompany)
                                      .t("S")
                                      .t(twoDigits(brand + 1))
                                      .t(day)
                                      .t(school.code)
                                      .t(item.code())
                                      .t(year(y))
                                      .n(price * 9 / 10 / 1000 * 1000)
                                      .t(when)
                                      .t(kDemoUserId)
                                      .t(when)
                                      .t(kDemoUserId));
                        }
                    }
                }
            }
        }
        t.flush();
    }

    void contracts() {
        DemoTable t(m_db, "C_G2B",
                    "COMPANY, YYYY, SEASON, BRANDCD, SCHOOLCD, GT30, GT31, GT32, GT33, GT34, "
                    "STARTDT, ENDDT, BTNNAME1, PRICE1, BTNNAME2, PRICE2, BTNNAME3, PRICE3, REGDT, "
                    "REGUSER, UPDDT, UPDUSER");
        DemoRow r;
        for (int i = 0; i < int(m_schools.size()); ++i) {
            const School& school = m_schools[size_t(i)];
            if (school.level == '3' || !m_rng.percent(35)) {
                continue;
            }
            const int brand = m_stores[size_t(school.homeStore)].brand;
            for (int y = m_year - 1; y <= m_year; ++y) {
                Contract c{i, brand, y, QDate(y, 2, 1), QDate(y, 3, 31), 0, {}};
                c.price =
                    (priceOf(m_items[0], brand, y) + priceOf(m_items[1], brand, y)) / 10000 * 10000;
                const string when = stamp(QDate(y - 1, 12, 10));
                t.add(r.t(kCompany)
                          .t(year(y))
                          .t("N")
                          .t(twoDigits(brand + 1))
                          .t(school.code)
                          .t(twoDigits(1 + m_rng.below(2)))
                          .t(twoDigits(1 + m_rng.below(2)))
                          .t(twoDigits(1 + m_rng.below(2)))
                          .t("01")
                          .t(twoDigits(1 + m_rng.below(2)))
                          .t(dashed(c.start))
                          .t(dashed(c.end))
                          .t("동복세트")
                          .n(c.price)
                          .t("동복상의")
                          .n(c.price * 6 / 10 / 1000 * 1000)
                          .t("동복하의")
                          .n(c.price * 4 / 10 / 1000 * 1000)
                          .t(when)
                          .t(kDemoUserId)
                          .t(when)
                          .t(kDemoUserId));
                const int count = 20 + m_rng.below(15 + 5 * std::min(m_scale, 10));
                for (int n = 0; n < count; ++n) {
                    c.students.push_back(int(m_students.size()));
                    m_students.push_back(Student{int(m_contracts.size()),
                                                 std::to_string(1 + n / 30),
                                                 std::to_string(1 + n % 30), personName(), ""});
                }
                m_contracts.push_back(std::move(c));
            }
        }
        t.flush();
    }

    // The contract of a school in force on a day, or -1.
    int contractFor(int school, const QDate& day) const {
        for (int c = 0; c < int(m_contracts.size()); ++c) {
            const Contract& k = m_contracts[size_t(c)];
            if (k.school == school && day >= k.start && day <= k.end) {
                return c;
            }
        }
        return -1;
    }

    static void sizes(DemoRow& r, const std::array<int, 24>& q) {
        for (int v : q) {
            r.n(v);
        }
    }
    static string sizeColumns(const char* prefix) {
        string out;
        for (int n = 1; n <= 24; ++n) {
            out += string(", ") + prefix + twoDigits(n);
        }
        return out;
    }

    std::array<int, 24> quantities(int labels, int lo, int hi) {
        std::array<int, 24> q{};
        for (int n = 0; n < labels && n < 24; ++n) {
            const int centre = labels / 2;
            const int weight = std::max(1, labels / 2 - std::abs(n - centre) + 1);
            q[size_t(n)] = std::max(0, m_rng.between(lo, hi) * weight / std::max(1, labels / 2));
        }
        return q;
    }

    int nextSeq(std::map<string, int>& perDay, const string& day) { return ++perDay[day]; }

    // Orders, receipts, transfers, corrections and opening stock of every store.
    void stock() {
        DemoTable base(
            m_db, "T_BASSTOCKQTY",
            ("COMPANY, STORECD, SCHOOLCD, UNIFORMCD, YYYY, SIZETAB, SUDIVIDE" + sizeColumns("C"))
                .c_str());
        DemoTable order(m_db, "T_ORDER",
                        ("COMPANY, STORECD, ORDERDT, ORDERSEQ, SCHOOLCD, SUDIVIDE, UNIFORMCD, "
                         "ORDYYYY, SIZETAB" +
                         sizeColumns("O") +
                         ", FINISHGB, ORDERSTORE, REGDT, REGUSER, UPDDT, UPDUSER")
                            .c_str());
        DemoTable in(m_db, "T_INBOUND",
                     ("COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, UNIFORMCD, "
                      "INYYYY, SIZETAB" +
                      sizeColumns("I") +
                      ", ORDERDT, ORDERSEQ, OUTBOUNDSTORE, INBOUNDGB, REGDT, REGUSER, UPDDT, "
                      "UPDUSER")
                         .c_str());
        DemoTable out(m_db, "T_OUTBOUND",
                      ("COMPANY, STORECD, OUTBOUNDDT, OUTBOUNDSEQ, SCHOOLCD, SUDIVIDE, UNIFORMCD, "
                       "OUTYYYY" +
                       sizeColumns("O") +
                       ", INBOUNDSTORE, OUTBOUNDGB, INSTOREFULLNAME, INSTOREADDRES, INSTORETEL, "
                       "REGDT, REGUSER, UPDDT, UPDUSER")
                          .c_str());
        DemoRow r;
        for (int si = 0; si < int(m_stores.size()); ++si) {
            Store& store = m_stores[size_t(si)];
            const SizeModel& model = m_sizes[size_t(store.brand)];
            const string supplier = string(kBrands[store.brand].full) + " 물류센터";
            for (int schoolIndex : store.schools) {
                const School& school = m_schools[size_t(schoolIndex)];
                for (int k : school.items) {
                    const Item& item = m_items[size_t(k)];
                    if (!item.inUse) {
                        continue;
                    }
                    const string sudivide = item.divide == "G" ? "2" : "1";
                    const int previous = m_year - 1;
                    const auto& oldLabels = model.labels(school.level, item.sizetab, previous);
                    const auto& newLabels = model.labels(school.level, item.sizetab, m_year);
                    // Opening stock of last year's goods.
                    if (!item.common() || schoolIndex == store.schools.front()) {
                        r.t(kCompany)
                            .t(store.code)
                            .t(school.code)
                            .t(item.code())
                            .t(year(previous))
                            .t(string(1, item.sizetab))
                            .t(sudivide);
                        sizes(r, quantities(int(oldLabels.size()), 0, 8));
                        base.add(r);
                    }
                    if (item.submain != '1' || !m_rng.percent(55)) {
                        continue;
                    }
                    // An order of this year's goods, mostly received.
                    const QDate orderDay = m_today.addDays(-m_rng.between(20, 150));
                    const string od = ymd(orderDay);
                    const int seq = nextSeq(store.orderSeq, od);
                    const auto ordered = quantities(int(newLabels.size()), 4, 14);
                    const int state = m_rng.below(10);
                    const char* finish = state < 6 ? "A" : state < 8 ? "I" : "E";
                    const string when = stamp(orderDay, 11);
                    r.t(kCompany)
                        .t(store.code)
                        .t(od)
                        .n(seq)
                        .t(school.code)
                        .t(sudivide)
                        .t(item.code())
                        .t(year(m_year))
                        .t(string(1, item.sizetab));
                    sizes(r, ordered);
                    r.t(finish)
                        .t(supplier)
                        .t(when)
                        .t("store" + store.code)
                        .t(when)
                        .t("store" + store.code);
                    order.add(r);
                    const int receipts = state < 2 ? 0 : 1 + (state % 3 == 0 ? 1 : 0);
                    for (int n = 0; n < receipts; ++n) {
                        const QDate day = orderDay.addDays(m_rng.between(5, 18) * (n + 1));
                        if (day > m_today) {
                            break;
                        }
                        const string dd = ymd(day);
                        std::array<int, 24> got{};
                        for (std::size_t p = 0; p < 24; ++p) {
                            got[p] = receipts == 1
                                         ? ordered[p] - (m_rng.percent(20) ? 1 : 0)
                                         : (n == 0 ? ordered[p] / 2 : ordered[p] - ordered[p] / 2);
                            got[p] = std::max(0, got[p]);
                        }
                        const string at = stamp(day, 15);
                        r.t(kCompany)
                            .t(store.code)
                            .t(dd)
                            .n(nextSeq(store.inboundSeq, dd))
                            .t(school.code)
                            .t(sudivide)
                            .t(item.code())
                            .t(year(m_year))
                            .t(string(1, item.sizetab));
                        sizes(r, got);
                        r.t(od)
                            .n(seq)
                            .t(supplier)
                            .t("A")
                            .t(at)
                            .t("store" + store.code)
                            .t(at)
                            .t("store" + store.code);
                        in.add(r);
                    }
                    // Now and then a transfer to another store and a correction.
                    if (m_rng.percent(12) && m_stores.size() > 1) {
                        const int to =
                            (si + 1 + m_rng.below(int(m_stores.size()) - 1)) % int(m_stores.size());
                        const Store& receiver = m_stores[size_t(to)];
                        const QDate day = m_today.addDays(-m_rng.between(1, 15));
                        const string dd = ymd(day);
                        std::array<int, 24> moved{};
                        moved[size_t(middlePick(int(oldLabels.size())))] = m_rng.between(1, 3);
                        const string at = stamp(day, 16);
                        r.t(kCompany)
                            .t(store.code)
                            .t(dd)
                            .n(nextSeq(store.outboundSeq, dd))
                            .t(school.code)
                            .t(sudivide)
                            .t(item.code())
                            .t(year(previous));
                        sizes(r, moved);
                        r.t(receiver.code)
                            .t(receiver.brand == store.brand ? "M" : "T")
                            .t(receiver.full)
                            .t(receiver.address)
                            .t(receiver.tel)
                            .t(at)
                            .t("store" + store.code)
                            .t(at)
                            .t("store" + store.code);
                        out.add(r);
                    }
                    if (m_rng.percent(6)) {
                        const QDate day = m_today.addDays(-m_rng.between(1, 40));
                        const string dd = ymd(day);
                        std::array<int, 24> fix{};
                        fix[size_t(middlePick(int(oldLabels.size())))] =
                            m_rng.percent(50) ? -m_rng.between(1, 2) : m_rng.between(1, 2);
                        const string at = stamp(day, 18);
                        r.t(kCompany)
                            .t(store.code)
                            .t(dd)
                            .n(nextSeq(store.outboundSeq, dd))
                            .t(school.code)
                            .t(sudivide)
                            .t(item.code())
                            .t(year(previous));
                        sizes(r, fix);
                        r.t("").t("D").t("").t("").t("").t(at).t(kDemoUserId).t(at).t(kDemoUserId);
                        out.add(r);
                    }
                    if (m_rng.percent(4)) {
                        const QDate day = m_today.addDays(-m_rng.between(1, 60));
                        const string dd = ymd(day);
                        std::array<int, 24> found{};
                        found[size_t(middlePick(int(oldLabels.size())))] = m_rng.between(1, 3);
                        const string at = stamp(day, 17);
                        r.t(kCompany)
                            .t(store.code)
                            .t(dd)
                            .n(nextSeq(store.inboundSeq, dd))
                            .t(school.code)
                            .t(sudivide)
                            .t(item.code())
                            .t(year(previous))
                            .null();
                        sizes(r, found);
                        r.t("").null().t("").t("D").t(at).t(kDemoUserId).t(at).t(kDemoUserId);
                        in.add(r);
                    }
                }
            }
        }
        base.flush();
        order.flush();
        in.flush();
        out.flush();
    }

    // The tills' slips: heads, lines, payments, receivables, returns, reservations, repairs
    // and deliveries, day by day for every store over the last thirteen months.
    void slips() {
        DemoTable head(m_db, "S_ORDERHEAD",
                       "COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, BILLNO, STATNM, HANDDT, "
                       "CANCELDT, SCHDIV, SCHLEV, YYYY, SCHBAN, SCHBUN, CUSTNAME, CUSTTEL, "
                       "RECEIPTNO, REGTM, ORDMEMO, RECVAMT, G2BAMT, CANCELG2BAMT, DCAMT");
        DemoTable line(m_db, "S_ORDERDETAIL",
                       "COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, PKEY, UNIFORMCD, YYYY, SEASON, "
                       "SIZETAB, SIZE, CNT, AMT, ST, RESERVE, DELIVERY, SCHOOLNM, UNIFORMNM");
        DemoTable ret(m_db, "S_RETURN",
                      "COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, UNIFORMCD, YYYY, SEASON, "
                      "SIZETAB, SIZE, CNT, AMT, RETDT, RETMEMO, DETAILSEQ");
        DemoTable adjust(
            m_db, "S_ADJUST",
            "COMPANY, STORECD, ORDDT, ORDSEQ, PAYSEQ, APPDTTM, PAYNAME, PAYTYPE, APPAMT");
        DemoTable credit(
            m_db, "S_CREDIT",
            "COMPANY, STORECD, ORDDT, ORDSEQ, PAYSEQ, APPDTTM, PAYNAME, PAYTYPE, APPAMT");
        DemoTable repair(m_db, "S_REPAIR",
                         "COMPANY, STORECD, ORDDT, ORDSEQ, PKEY, REPAIRAMT, REPAIRITM, REPAIRDTL1, "
                         "REPAIRDTL2, REPAIRDTL3, REPAIRDTL4, REPAIRSIZE, REPAIRUNIT, REPAIRMEMO, "
                         "RECEIPTNO, USEYN");
        DemoTable piece(m_db, "S_REPAIRDETAIL",
                        "COMPANY, STORECD, ORDDT, ORDSEQ, PKEY, RESEQ, RESERVEDT, REPAIRDT, "
                        "DEBENTDT, DEBENTTM, DELIVERY, DELIVERYCD, DEBENTURE, DELIVERYNO, USEYN");
        DemoTable delivery(
            m_db, "S_DELIVERY",
            "COMPANY, STORECD, ORDDT, ORDSEQ, DELIVERYAMT, DELIVERYADDR, DELIVERYMEMO");
        Tables t{head, line, ret, adjust, credit, repair, piece, delivery};

        // Day weights: the new school year (February, March) and the change to summer wear
        // (May, June) are the busy months.
        const QDate first = m_today.addDays(-395);
        std::vector<int> weights;
        int weightSum = 0;
        for (QDate d = first; d <= m_today; d = d.addDays(1)) {
            static const int byMonth[] = {2, 9, 6, 2, 4, 3, 1, 2, 1, 1, 1, 2};
            const int w = d.dayOfWeek() == 7 ? 0 : byMonth[d.month() - 1];
            weights.push_back(w);
            weightSum += w;
        }
        // About 1,600 slips of 3.5 lines each per scale step.
        const long long slipsWanted = 1600LL * m_scale;
        const double perStoreWeight =
            double(slipsWanted) / double(m_stores.size()) / double(weightSum);
        for (Store& store : m_stores) {
            double carry = 0.0;
            int dayIndex = 0;
            for (QDate d = first; d <= m_today; d = d.addDays(1), ++dayIndex) {
                carry += perStoreWeight * weights[size_t(dayIndex)];
                const int today = int(carry);
                carry -= today;
                for (int n = 1; n <= today; ++n) {
                    slip(t, store, d, n);
                }
            }
        }
        for (DemoTable* table :
             {&head, &line, &ret, &adjust, &credit, &repair, &piece, &delivery}) {
            table->flush();
        }
    }

    struct Tables {
        DemoTable &head, &line, &ret, &adjust, &credit, &repair, &piece, &delivery;
    };

    string appTime(const QDate& d, int minutes) {
        char buf[32];
        std::snprintf(buf, sizeof buf, "%02d%02d%02d%02d%02d%02d", d.year() % 100, d.month(),
                      d.day(), minutes / 60, minutes % 60, m_rng.below(60));
        return buf;
    }

    void payment(DemoTable& table, const Store& store, const string& od, const string& seq,
                 const string& paySeq, const string& when, const char* name, const string& type,
                 long long amount) {
        DemoRow r;
        table.add(
            r.t(kCompany).t(store.code).t(od).t(seq).t(paySeq).t(when).t(name).t(type).n(amount));
    }

    string payType(const char* name) {
        if (string(name) == "카드") {
            return m_rng.percent(3) ? string() : string(m_rng.pick(kCards));
        }
        if (string(name) == "현금" || string(name) == "계좌") {
            static const char* const proofs[] = {"소득공제", "소득공제", "사업증빙", "미발행"};
            return m_rng.pick(proofs);
        }
        return string();
    }

    void slip(Tables& t, Store& store, const QDate& day, int number) {
        const int schoolIndex = store.schools[size_t(m_rng.below(int(store.schools.size())))];
        const School& school = m_schools[size_t(schoolIndex)];
        const SizeModel& model = m_sizes[size_t(store.brand)];
        const bool boy = school.divide == '1' || (school.divide == '3' && m_rng.percent(50));
        const string od = ymd(day);
        const string seq = digits(number, 4);
        const int minutes = 10 * 60 + m_rng.below(9 * 60);
        const string regtm = twoDigits(minutes / 60) + ":" + twoDigits(minutes % 60) + ":" +
                             twoDigits(m_rng.below(60));
        // Winter wear until the summer change, summer wear from May to September.
        const bool summer = day.month() >= 5 && day.month() <= 9;
        const int modelYear = day.month() >= 11 ? day.year() + 1 : day.year();

        const int held = m_rng.below(100);
        const bool completed = held >= 3; // 3 in 100 still open at the till
        const bool cancelled = completed && held < 6;
        const bool recent = day.daysTo(m_today) < 21;

        std::vector<int> choices;
        for (int k : school.items) {
            const Item& item = m_items[size_t(k)];
            const bool rightSex = item.divide == (boy ? "B" : "G");
            const bool rightSeason =
                item.season == "A" || item.season == (summer ? string("S") : string("N"));
            if (item.inUse && rightSex && rightSeason) {
                choices.push_back(k);
            }
        }
        if (choices.empty()) {
            return;
        }
        const int contract =
            completed && !cancelled && !summer ? contractFor(schoolIndex, day) : -1;
        Student* student = nullptr;
        if (contract >= 0 && m_rng.percent(60)) {
            Contract& c = m_contracts[size_t(contract)];
            if (c.nextStudent < c.students.size()) {
                student = &m_students[size_t(c.students[c.nextStudent++])];
            }
        }

        DemoRow r;
        long long goods = 0;
        long long repairs = 0;
        int lines = 1 + m_rng.below(5);
        lines += m_rng.percent(30) ? 1 : 0;
        if (student) {
            lines = std::max(lines, 3);
        }
        bool delivered = false;
        struct SoldLine {
            int item;
            string year, size, pkey;
            int cnt;
            long long amt;
        };
        std::vector<SoldLine> sold;
        for (int n = 1; n <= lines; ++n) {
            const int k = choices[size_t(
                n <= int(choices.size()) && student ? n - 1 : m_rng.below(int(choices.size())))];
            const Item& item = m_items[size_t(k)];
            // Mostly this model year's goods, some of last year's.
            const int y = m_rng.percent(80) ? modelYear : modelYear - 1;
            const auto& labels = model.labels(school.level, item.sizetab, y);
            if (labels.empty()) {
                continue;
            }
            const bool aftercare = m_rng.percent(1);
            const string size = aftercare ? "A/S" : labels[size_t(middlePick(int(labels.size())))];
            const int cnt = aftercare ? 1 : (m_rng.percent(12) ? 2 : 1);
            const long long amt = aftercare ? 0 : (long long)priceOf(item, store.brand, y) * cnt;
            const string yearDigit = year(y).substr(3, 1);
            const string pkey = item.padded() + yearDigit + item.season + twoDigits(n);
            const bool reserve = !aftercare && m_rng.percent(8);
            const bool courier = !aftercare && m_rng.percent(3);
            delivered = delivered || courier;
            r.t(kCompany)
                .t(store.code)
                .t(school.code)
                .t(od)
                .t(seq)
                .t(pkey)
                .t(item.code())
                .t(year(y))
                .t(item.season)
                .t(string(1, item.sizetab))
                .t(size)
                .n(cnt)
                .n(amt)
                .t(yearDigit + item.season)
                .t(reserve ? "예약" : "")
                .t(courier ? "택배" : "")
                .t(school.name)
                .t(item.name);
            t.line.add(r);
            goods += amt;
            sold.push_back(SoldLine{k, year(y), size, pkey, cnt, amt});

            int reseq = 0;
            if (reserve || courier) {
                for (int p = 0; p < cnt; ++p) {
                    // Recent reservations are still waiting for goods; older ones were secured
                    // and mostly handed over.
                    const QDate secured = day.addDays(m_rng.between(3, 25));
                    const bool securedYet = !recent && secured <= m_today && m_rng.percent(85);
                    const bool handed = securedYet && m_rng.percent(80);
                    const QDate sent = day.addDays(m_rng.between(1, 5));
                    const int courierIndex = m_rng.below(int(std::size(kCouriers)));
                    const bool sentYet = courier && sent <= m_today && !recent;
                    r.t(kCompany)
                        .t(store.code)
                        .t(od)
                        .t(seq)
                        .t(pkey)
                        .n(++reseq)
                        .t(reserve ? (securedYet ? ymd(secured) : "●") : "")
                        .t("")
                        .t(handed ? ymd(secured.addDays(m_rng.between(0, 10))) : "")
                        .t(handed ? cat({twoDigits(m_rng.between(10, 19)), ":",
                                         twoDigits(m_rng.below(60))})
                                  : string())
                        .t(courier ? (sentYet ? ymd(sent) : "●") : "")
                        .t(courier ? twoDigits(1 + courierIndex) : "")
                        .t(courier ? kCouriers[courierIndex] : "")
                        .t(sentYet ? digits(m_rng.between(100000, 999999), 6) +
                                         digits(m_rng.between(100000, 999999), 6)
                                   : "")
                        .t("Y");
                    t.piece.add(r);
                }
            }
            if (aftercare || (item.unitype == "02" && m_rng.percent(6))) {
                const int charge = aftercare ? 5000 : m_rng.percent(50) ? 0 : 3000;
                repairs += charge;
                const char* what = m_rng.pick(kRepairs);
                r.t(kCompany)
                    .t(store.code)
                    .t(od)
                    .t(seq)
                    .t(pkey)
                    .n(charge)
                    .t(what)
                    .t(std::to_string(m_rng.between(1, 4)) + "cm")
                    .t("")
                    .t("")
                    .t("")
                    .t(size)
                    .t("cm")
                    .t(aftercare ? "수선 의뢰" : "")
                    .t(digits(m_rng.between(1, 99999), 6))
                    .t("Y");
                t.repair.add(r);
                const QDate done = day.addDays(m_rng.between(2, 7));
                const bool doneYet = done <= m_today && !recent;
                r.t(kCompany)
                    .t(store.code)
                    .t(od)
                    .t(seq)
                    .t(pkey)
                    .n(++reseq)
                    .t("")
                    .t(doneYet ? ymd(done) : "●")
                    .t(doneYet && m_rng.percent(80) ? ymd(done) : "")
                    .t(doneYet ? "17:30" : "")
                    .t("")
                    .t("")
                    .t("")
                    .t("")
                    .t("Y");
                t.piece.add(r);
            }
        }
        if (sold.empty()) {
            return;
        }
        const long long deliveryAmt = delivered ? 4000 : 0;
        if (delivered) {
            r.t(kCompany)
                .t(store.code)
                .t(od)
                .t(seq)
                .n(deliveryAmt)
                .t(cat({kCities[size_t(m_rng.below(int(std::size(kCities))))].province, " ",
                        m_rng.pick(kStreets), " ", std::to_string(m_rng.between(1, 300)), ", ",
                        std::to_string(m_rng.between(101, 120)), "동 ",
                        std::to_string(m_rng.between(101, 1504)), "호"}))
                .t(m_rng.percent(30) ? "부재시 경비실" : "");
            t.delivery.add(r);
        }
        const long long discount = goods >= 100000 && m_rng.percent(15) ? 10000 : 0;
        long long g2b = 0;
        if (student) {
            g2b = std::min<long long>(m_contracts[size_t(contract)].price, goods - discount);
        }
        const long long due = goods - discount + repairs + deliveryAmt - g2b;
        string bill;
        if (completed) {
            store.bills = store.bills % 9999 + 1;
            bill = "0" + store.code + "A" + digits(store.bills, 4);
        }
        if (student) {
            student->bill = bill;
        }
        const string custName = student ? student->name : personName();
        const QDate hand = day;
        string cancelTime;
        QDate cancelDay;
        if (cancelled) {
            cancelDay = day.addDays(m_rng.between(0, 5));
            if (cancelDay > m_today) {
                cancelDay = m_today;
            }
            cancelTime = stamp(cancelDay, 15, m_rng.below(60));
        }
        r.t(kCompany).t(store.code).t(school.code).t(od).t(seq);
        if (completed) {
            r.t(bill);
        } else {
            r.null();
        }
        r.t(completed ? "완료" : "보류").t(completed ? ymd(hand) : "");
        if (cancelled) {
            r.t(cancelTime);
        } else {
            r.null();
        }
        r.t(boy ? "[ 남 ]" : "[ 여 ]")
            .t(string(1, school.level))
            .t(year(day.year()))
            .t(student ? student->ban : std::to_string(1 + m_rng.below(10)))
            .t(student ? student->bun : std::to_string(1 + m_rng.below(35)))
            .t(custName)
            .t(phone())
            .t(digits(m_rng.between(1, 999999), 6))
            .t(regtm)
            .t(m_rng.percent(5) ? "교복 수선 후 연락 요망" : "")
            .n(completed ? due : 0)
            .n(g2b)
            .n(0)
            .n(discount);
        t.head.add(r);
        if (!completed) {
            return;
        }

        // Payments: card, cash or transfer, now and then split or left owing.
        int paySeq = 0;
        const auto nextPay = [&] { return store.code + od + seq + twoDigits(++paySeq); };
        const string when = appTime(day, minutes);
        const int how = m_rng.below(100);
        struct Paid {
            const char* name;
            string type;
            long long amount;
            string seq;
        };
        std::vector<Paid> paid;
        if (due > 0) {
            if (how < 6) {
                // Part owing: collected later as cash or card.
                const long long owing =
                    std::max<long long>(due / 2 / 1000 * 1000, due > 1000 ? 1000 : due);
                paid.push_back({"카드", payType("카드"), due - owing, nextPay()});
                paid.push_back({"미수금", string(), owing, nextPay()});
            } else if (how < 60) {
                paid.push_back({"카드", payType("카드"), due, nextPay()});
            } else if (how < 88) {
                paid.push_back({"현금", payType("현금"), due, nextPay()});
            } else if (how < 96) {
                paid.push_back({"계좌", payType("계좌"), due, nextPay()});
            } else {
                const long long cash = due / 3 / 1000 * 1000;
                paid.push_back({"현금", payType("현금"), cash, nextPay()});
                paid.push_back({"카드", payType("카드"), due - cash, nextPay()});
            }
        }
        for (const Paid& p : paid) {
            if (p.amount == 0) {
                continue;
            }
            payment(t.adjust, store, od, seq, p.seq, when, p.name, p.type, p.amount);
            if (string(p.name) == "미수금" && !cancelled) {
                const QDate collected = day.addDays(m_rng.between(3, 30));
                if (collected <= m_today) {
                    const char* how2 = m_rng.percent(50) ? "현금" : "카드";
                    payment(t.credit, store, od, seq, p.seq, appTime(collected, 14 * 60), how2,
                            payType(how2), p.amount);
                }
            }
        }
        if (cancelled) {
            const string at = appTime(cancelDay, 15 * 60);
            for (const Paid& p : paid) {
                if (p.amount == 0) {
                    continue;
                }
                const string name = string(p.name) + "취소";
                payment(t.adjust, store, od, seq, nextPay(), at, name.c_str(), p.type, -p.amount);
            }
            return;
        }
        // A few lines come back later: a return row and the money paid back.
        if (!student && m_rng.percent(3)) {
            const SoldLine& back = sold.front();
            if (back.size == "A/S" || back.amt == 0) {
                return;
            }
            const QDate retDay = day.addDays(m_rng.between(1, 20));
            if (retDay > m_today) {
                return;
            }
            const Item& item = m_items[size_t(back.item)];
            r.t(kCompany)
                .t(store.code)
                .t(school.code)
                .t(od)
                .t(seq)
                .t(item.code())
                .t(back.year)
                .t(item.season)
                .t(string(1, item.sizetab))
                .t(back.size)
                .n(back.cnt)
                .n(back.amt)
                .t(ymd(retDay))
                .t(m_rng.pick(kReturnReasons))
                .n(1);
            t.ret.add(r);
            // Money goes back the way it came; a receivable is paid back in cash.
            const string first = paid.empty() ? string("현금") : string(paid.front().name);
            const string refund =
                (first == "카드" || first == "계좌" ? first : string("현금")) + "취소";
            payment(t.adjust, store, od, seq, nextPay(), appTime(retDay, 13 * 60), refund.c_str(),
                    string(), -back.amt);
        }
    }

    void students() {
        DemoTable t(m_db, "C_G2B_Student",
                    "COMPANY, YYYY, SEASON, BRANDCD, SCHOOLCD, G2BSEQ, SCHBAN, SCHBUN, STUDNAME, "
                    "STUDDIV, G2BSTATE, G2BAMT, REGDT, REGTM, UPDDT, UPDUSER, BILLNO");
        DemoRow r;
        for (const Contract& c : m_contracts) {
            int seq = 0;
            const QDate listed = c.start.addDays(-20);
            for (int index : c.students) {
                const Student& s = m_students[size_t(index)];
                const int number = ++seq;
                t.add(r.t(kCompany)
                          .t(year(c.year))
                          .t("N")
                          .t(twoDigits(c.brand + 1))
                          .t(m_schools[size_t(c.school)].code)
                          .n(number)
                          .t(s.ban)
                          .t(s.bun)
                          .t(s.name)
                          .t(number % 9 == 0 ? "전입" : "신입")
                          .t("정상")
                          .n(c.price)
                          .t(ymd(listed))
                          .t("09:30")
                          .t(stamp(listed, 9, 30))
                          .t(kDemoUserId)
                          .t(s.bill));
            }
        }
        t.flush();
    }

    Database& m_db;
    Rng m_rng;
    int m_scale;
    QDate m_today;
    int m_year;
    std::vector<string> m_rights;
    std::vector<SizeModel> m_sizes;
    std::vector<Store> m_stores;
    std::vector<Item> m_items;
    std::vector<School> m_schools;
    std::vector<Contract> m_contracts;
    std::vector<Student> m_students;
};

} // namespace

void generateDemoChain(Database& db, int seed, int scale, const QDate& today) {
    db.begin();
    try {
        Generator(db, seed, scale, today).run();
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}

bool demoChainMissing(Database& db) {
    const RecordSet rs = db.select(QStringLiteral("SELECT COUNT(*) FROM C_STORE WHERE COMPANY = ") +
                                   quoted(QString::fromUtf8(kDemoCompany)));
    return rs.recordCount() == 0 || rs.at(0, 0).toLongLong() == 0;
}
