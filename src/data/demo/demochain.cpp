#include "data/demo/demochain.h"

#include "data/database.h"
#include "data/demo/demonames.h"
#include "data/demo/rng.h"
#include "data/demo/rowsink.h"
#include "data/recordset.h"
#include "data/sqlvalue.h"

#include <algorithm>
#include <array>
#include <cmath>
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
          m_year(today.year()), m_first(today.addDays(-395)) {}

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
        history();
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

        // Exclusive uniforms: a jacket or vest in a colour and cloth of its own for a group of
        // two or three schools that wear it. The school lists hang on the number alone, so each
        // group has the company's next number.
        DemoTable tu(m_db, "C_TRANSUNIFORM",
                     "COMPANY, TRANSCD, TRANSSEQ, UNIFORMCD, COLOR, MATERIL, BUTTON, PATTERN, "
                     "USEYN, REGDT, REGUSER, UPDDT, UPDUSER");
        DemoTable ts(m_db, "C_TRANSSCHOOL", "COMPANY, TRANSCD, TRANSSEQ, SCHOOLCD");
        const int groups = std::min({99, int(m_schools.size()), 4 + m_scale});
        int number = 0;
        for (int g = 1; g <= groups && number < 99; ++g) {
            const int first = (g * 7) % int(m_schools.size());
            std::vector<int> worn;
            for (int k : m_schools[size_t(first)].items) {
                const Item& item = m_items[size_t(k)];
                if (item.inUse && (item.unitype == "01" || item.unitype == "02")) {
                    worn.push_back(k);
                }
            }
            if (worn.empty()) {
                continue;
            }
            const int k = worn[size_t(m_rng.below(int(worn.size())))];
            const Item& item = m_items[size_t(k)];
            // The school and the next ones that wear the item too.
            std::vector<int> members{first};
            const int wanted = 2 + m_rng.below(2);
            for (int step = 1; step < int(m_schools.size()) && int(members.size()) < wanted;
                 ++step) {
                const int other = (first + step * 3) % int(m_schools.size());
                const auto& items = m_schools[size_t(other)].items;
                if (std::find(members.begin(), members.end(), other) == members.end() &&
                    std::find(items.begin(), items.end(), k) != items.end()) {
                    members.push_back(other);
                }
            }
            if (members.size() < 2) {
                continue;
            }
            const string seq = twoDigits(++number);
            tu.add(r.t(kCompany)
                       .t("TS")
                       .t(seq)
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
            for (int member : members) {
                ts.add(r.t(kCompany).t("TS").t(seq).t(m_schools[size_t(member)].code));
            }
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

    int nextSeq(std::map<string, int>& perDay, const string& day) { return ++perDay[day]; }

    // ---- Stock, kept in time order ------------------------------------------------------
    //
    // Goods arrive before they are sold. Each store buys twice a year ahead of the season
    // (mid-October the winter goods of the next model year, early April the summer goods),
    // enough for what the season is expected to sell; a line that runs short is reordered and
    // booked in a few days before the sale that needed it. Last year's goods that run out are
    // sold from the newer model. Only in the last week may a shop sell what an open order will
    // bring, so those few lines stand below zero until the goods are booked in. Transfers and
    // corrections move only stock that is there.
    //
    // The books follow the stock report's reading of the movements: a common item's stock is
    // one pile per store (the report gathers it under the greatest school offering the item),
    // and a common item sold where that school is not served never reaches the report.

    struct StockLine {
        int school; // the school its documents carry
        int item;
        int year;
        int labels; // size positions in use
        std::array<int, 24> onHand{};
        bool opening = false; // has opening stock: receipts would count it again in the report
        bool awaited = false; // an open order will bring what is missing
        bool stocked = false; // has had goods
    };

    struct Tables {
        DemoTable &head, &line, &ret, &adjust, &credit, &repair, &piece, &delivery;
        DemoTable &base, &order, &in, &out;
    };

    // A model year's goods are sold from November of the year before.
    static int modelYearOf(const QDate& d) { return d.month() >= 11 ? d.year() + 1 : d.year(); }
    static bool summerDay(const QDate& d) { return d.month() >= 5 && d.month() <= 9; }

    // The buying days: 10 April (summer) and 15 October (winter of the next model year).
    std::vector<QDate> buyingDays() const {
        std::vector<QDate> days;
        for (int y = m_first.year() - 1; y <= m_today.year() + 1; ++y) {
            days.push_back(QDate(y, 4, 10));
            days.push_back(QDate(y, 10, 15));
        }
        return days;
    }

    // Chance of each size position among n labels, as the till picks them (middlePick).
    const std::vector<double>& sizeShare(int n) {
        auto found = m_sizeShare.find(n);
        if (found == m_sizeShare.end()) {
            std::vector<double> share(size_t(n), 0.0);
            for (int a = 0; a < n; ++a) {
                for (int b = 0; b < n; ++b) {
                    share[size_t((a + b + 1) / 2 % n)] += 1.0 / double(n * n);
                }
            }
            found = m_sizeShare.emplace(n, std::move(share)).first;
        }
        return found->second;
    }

    // Items a slip of the school may hold for one sex and season.
    int choiceCount(const School& school, const string& divide, bool summer) const {
        int n = 0;
        for (int k : school.items) {
            const Item& item = m_items[size_t(k)];
            if (item.inUse && item.divide == divide &&
                (item.season == "A" || item.season == (summer ? "S" : "N"))) {
                ++n;
            }
        }
        return n;
    }

    // Pieces of an item of one model year that the store's tills are expected to sell to
    // pupils of one school between two days, by size position, from the day weights and the
    // rules by which a slip picks its lines.
    void expect(std::array<double, 24>& pieces, const Store& store, int schoolIndex, int k,
                int year, const QDate& from, const QDate& to) {
        const School& school = m_schools[size_t(schoolIndex)];
        const Item& item = m_items[size_t(k)];
        const auto& labels = m_sizes[size_t(store.brand)].labels(school.level, item.sizetab, year);
        const double sex = item.divide == "B"   ? (school.divide == '1'   ? 1.0
                                                   : school.divide == '3' ? 0.5
                                                                          : 0.0)
                           : item.divide == "G" ? (school.divide == '2'   ? 1.0
                                                   : school.divide == '3' ? 0.5
                                                                          : 0.0)
                                                : 0.0;
        if (labels.empty() || sex == 0.0 || !item.inUse) {
            return;
        }
        // 3.3 lines a slip, 1.12 pieces a line, one line in a hundred is aftercare.
        const double perSlip = sex / double(store.schools.size()) * 3.3 * 1.12 * 0.99;
        double slips[2] = {0.0, 0.0};
        const int lo = std::max(0, int(m_first.daysTo(from)));
        const int hi = std::min(int(m_slipsPerDay.size()) - 1, int(m_first.daysTo(to)));
        for (int i = lo; i <= hi; ++i) {
            const int current = m_dayModelYear[size_t(i)];
            const double share = year == current ? 0.8 : year == current - 1 ? 0.2 : 0.0;
            slips[m_daySummer[size_t(i)] ? 1 : 0] += share * m_slipsPerDay[size_t(i)];
        }
        double total = 0.0;
        for (int summer = 0; summer < 2; ++summer) {
            const bool fits = item.season == "A" || item.season == (summer ? "S" : "N");
            const int choices = choiceCount(school, item.divide, summer == 1);
            if (fits && choices > 0) {
                total += slips[summer] * perSlip / choices;
            }
        }
        const auto& share = sizeShare(int(labels.size()));
        for (std::size_t p = 0; p < share.size() && p < 24; ++p) {
            pieces[p] += total * share[p];
        }
    }

    // The schools of the store whose pupils buy from a line: its own school, or every school
    // of the store offering a common item.
    void expectLine(std::array<double, 24>& pieces, const Store& store, int school, int k, int year,
                    const QDate& from, const QDate& to) {
        if (school >= 0) {
            expect(pieces, store, school, k, year, from, to);
            return;
        }
        for (int s : store.schools) {
            const auto& items = m_schools[size_t(s)].items;
            if (std::find(items.begin(), items.end(), k) != items.end()) {
                expect(pieces, store, s, k, year, from, to);
            }
        }
    }

    // A little over what is expected, and a piece of every size that sells at all: a shop
    // keeps each size on the shelf.
    static int toBuy(double expected) {
        return expected < 0.05 ? 0 : int(std::ceil(expected * 1.15));
    }

    // The line of the store's books, made when first needed. school -1: a common item.
    int stockLine(const Store& store, int school, int k, int year) {
        const std::array<int, 3> key{school, k, year};
        const auto found = m_lineIndex.find(key);
        if (found != m_lineIndex.end()) {
            return found->second;
        }
        const Item& item = m_items[size_t(k)];
        int docSchool = school;
        if (school < 0) {
            const int greatest = m_commonSchool[size_t(k)];
            const bool served = std::find(store.schools.begin(), store.schools.end(), greatest) !=
                                store.schools.end();
            docSchool = served ? greatest : -1;
            for (int s = 0; docSchool < 0 && s < int(store.schools.size()); ++s) {
                const auto& items = m_schools[size_t(store.schools[size_t(s)])].items;
                if (std::find(items.begin(), items.end(), k) != items.end()) {
                    docSchool = store.schools[size_t(s)];
                }
            }
        }
        if (docSchool < 0) {
            docSchool = store.schools.front();
        }
        const School& doc = m_schools[size_t(docSchool)];
        StockLine line{
            docSchool, k, year,
            int(m_sizes[size_t(store.brand)].labels(doc.level, item.sizetab, year).size())};
        m_lines.push_back(line);
        m_lineIndex.emplace(key, int(m_lines.size()) - 1);
        return int(m_lines.size()) - 1;
    }

    void stockRowHead(DemoRow& r, const Store& store, const string& day, int seq,
                      const StockLine& line) {
        const Item& item = m_items[size_t(line.item)];
        r.t(kCompany)
            .t(store.code)
            .t(day)
            .n(seq)
            .t(m_schools[size_t(line.school)].code)
            .t(item.divide == "G" ? "2" : "1")
            .t(item.code())
            .t(year(line.year));
    }

    // An order line; returns its sequence of the day.
    int writeOrder(Tables& t, Store& store, const StockLine& line, const QDate& day,
                   const std::array<int, 24>& q, const char* finish) {
        const string od = ymd(day);
        const int seq = nextSeq(store.orderSeq, od);
        const string when = stamp(day, 11);
        DemoRow r;
        stockRowHead(r, store, od, seq, line);
        r.t(string(1, m_items[size_t(line.item)].sizetab));
        sizes(r, q);
        r.t(finish)
            .t(string(kBrands[store.brand].full) + " 물류센터")
            .t(when)
            .t("store" + store.code)
            .t(when)
            .t("store" + store.code);
        t.order.add(r);
        return seq;
    }

    void writeReceipt(Tables& t, Store& store, const StockLine& line, const QDate& day,
                      const std::array<int, 24>& q, const QDate& orderDay, int orderSeq) {
        const string dd = ymd(day);
        const string at = stamp(day, 15);
        DemoRow r;
        stockRowHead(r, store, dd, nextSeq(store.inboundSeq, dd), line);
        r.t(string(1, m_items[size_t(line.item)].sizetab));
        sizes(r, q);
        r.t(ymd(orderDay))
            .n(orderSeq)
            .t(string(kBrands[store.brand].full) + " 물류센터")
            .t("A")
            .t(at)
            .t("store" + store.code)
            .t(at)
            .t("store" + store.code);
        t.in.add(r);
    }

    static void addTo(StockLine& line, const std::array<int, 24>& q) {
        for (std::size_t p = 0; p < 24; ++p) {
            line.onHand[p] += q[p];
        }
        line.stocked = true;
    }

    // The lines of goods a store keeps: each school's own items, and each common item once.
    std::vector<std::pair<int, int>> storeLines(const Store& store) const {
        std::vector<std::pair<int, int>> lines;
        for (int s : store.schools) {
            for (int k : m_schools[size_t(s)].items) {
                const Item& item = m_items[size_t(k)];
                if (!item.inUse) {
                    continue;
                }
                const std::pair<int, int> line{item.common() ? -1 : s, k};
                if (std::find(lines.begin(), lines.end(), line) == lines.end()) {
                    lines.push_back(line);
                }
            }
        }
        return lines;
    }

    // Opening stock: what the shop held of older models when its books start.
    void openingStock(Tables& t, const Store& store, int firstBought) {
        DemoRow r;
        for (const auto& [school, k] : storeLines(store)) {
            for (int y = firstBought - 2; y < firstBought; ++y) {
                std::array<double, 24> expected{};
                expectLine(expected, store, school, k, y, m_first, m_today);
                std::array<int, 24> q{};
                int total = 0;
                for (std::size_t p = 0; p < 24; ++p) {
                    q[p] = toBuy(expected[p]);
                    total += q[p];
                }
                if (total == 0) {
                    continue;
                }
                StockLine& line = m_lines[size_t(stockLine(store, school, k, y))];
                line.opening = true;
                addTo(line, q);
                const Item& item = m_items[size_t(k)];
                r.t(kCompany)
                    .t(store.code)
                    .t(m_schools[size_t(line.school)].code)
                    .t(item.code())
                    .t(year(y))
                    .t(string(1, item.sizetab))
                    .t(item.divide == "G" ? "2" : "1");
                sizes(r, q);
                t.base.add(r);
            }
        }
    }

    // The season's buy, booked in on `day` (ordered three to six weeks before): for every line
    // what the season until the next buy is expected to sell, less what is on the shelf.
    // Goods due after the chain's last day stand as open orders.
    void seasonBuy(Tables& t, Store& store, const QDate& day, const QDate& nextBuy) {
        const int modelYear = modelYearOf(day.addDays(20));
        const QDate orderDay = day.addDays(-m_rng.between(20, 40));
        if (orderDay > m_today) {
            return;
        }
        if (day <= m_today) {
            m_newestYear = std::max(m_newestYear, modelYear);
        }
        for (const auto& [school, k] : storeLines(store)) {
            std::array<double, 24> fresh{};
            std::array<double, 24> older{};
            const QDate until = nextBuy.addDays(-1);
            expectLine(fresh, store, school, k, modelYear, day, until);
            for (int y = modelYear - 2; y < modelYear; ++y) {
                expectLine(older, store, school, k, y, day, until);
            }
            std::array<int, 24> olderOnHand{};
            for (int y = modelYear - 2; y < modelYear; ++y) {
                const auto found = m_lineIndex.find({school, k, y});
                if (found != m_lineIndex.end()) {
                    const auto& held = m_lines[size_t(found->second)].onHand;
                    for (std::size_t p = 0; p < 24; ++p) {
                        olderOnHand[p] += held[p];
                    }
                }
            }
            const int index = stockLine(store, school, k, modelYear);
            std::array<int, 24> q{};
            int total = 0;
            for (std::size_t p = 0; p < 24; ++p) {
                const int spill = std::max(0, toBuy(older[p]) - std::max(0, olderOnHand[p]));
                q[p] = std::max(0, toBuy(fresh[p]) + spill - m_lines[size_t(index)].onHand[p]);
                total += q[p];
            }
            if (total == 0) {
                continue;
            }
            const StockLine& line = m_lines[size_t(index)];
            // Now and then a remainder comes later or never.
            const int state = m_rng.below(20);
            std::array<int, 24> now = q;
            if (state < 3) {
                for (int& v : now) {
                    v -= v / 3;
                }
            }
            const bool arrives = day <= m_today;
            const char* finish = !arrives || state >= 3 ? "A" : state < 2 ? "I" : "E";
            const int seq = writeOrder(t, store, line, orderDay, q, finish);
            if (!arrives) {
                continue;
            }
            writeReceipt(t, store, line, day, now, orderDay, seq);
            addTo(m_lines[size_t(index)], now);
            if (state < 2) {
                // The remainder follows within two weeks, unless that is still to come.
                const QDate later = day.addDays(m_rng.between(5, 14));
                std::array<int, 24> rest{};
                for (std::size_t p = 0; p < 24; ++p) {
                    rest[p] = q[p] - now[p];
                }
                if (later <= m_today) {
                    m_pending.push_back(Pending{later, index, rest, orderDay, seq});
                }
            }
        }
    }

    struct Pending {
        QDate day;
        int line;
        std::array<int, 24> q;
        QDate orderDay;
        int orderSeq;
    };

    // Remainders of earlier orders booked in on their day.
    void bookPending(Tables& t, Store& store, const QDate& day) {
        for (auto it = m_pending.begin(); it != m_pending.end();) {
            if (it->day > day) {
                ++it;
                continue;
            }
            StockLine& line = m_lines[size_t(it->line)];
            writeReceipt(t, store, line, it->day, it->q, it->orderDay, it->orderSeq);
            addTo(line, it->q);
            it = m_pending.erase(it);
        }
    }

    // Weeks in which a shop's orders still stand open in part.
    static constexpr int kRecentDays = 21;

    // A shop in season tops its shelves up every week: a few lines are reordered for the weeks
    // ahead, and the goods come in part, the rest of the order still to come. Only receipts:
    // the stock never goes below what was there.
    void topUp(Tables& t, Store& store, const QDate& day) {
        const std::vector<std::pair<int, int>> lines = storeLines(store);
        if (lines.empty() || m_newestYear == 0) {
            return;
        }
        const int start = m_rng.below(int(lines.size()));
        int ordered = 0;
        for (int n = 0; n < int(lines.size()) && ordered < 3; ++n) {
            const auto [school, k] = lines[size_t((start + n) % int(lines.size()))];
            const int index = stockLine(store, school, k, m_newestYear);
            const int labels = std::min(24, m_lines[size_t(index)].labels);
            // A line sold ahead of an awaited order gets its goods from that order.
            if (labels == 0 || m_lines[size_t(index)].awaited) {
                continue;
            }
            std::array<double, 24> expected{};
            expectLine(expected, store, school, k, m_newestYear, day, day.addDays(45));
            std::array<int, 24> q{};
            int total = 0;
            for (int p = 0; p < labels; ++p) {
                q[size_t(p)] = std::max(0, toBuy(expected[size_t(p)]) -
                                               m_lines[size_t(index)].onHand[size_t(p)]);
                total += q[size_t(p)];
            }
            if (total < 2) {
                // A full shelf all the same takes a few of the middle sizes.
                q[size_t(labels / 2)] += 2;
                q[size_t(std::max(0, labels / 2 - 1))] += 1;
            }
            // Three in five of each size now, at least one size in full when that is none.
            std::array<int, 24> now{};
            bool some = false;
            for (int p = 0; p < labels; ++p) {
                now[size_t(p)] = q[size_t(p)] * 3 / 5;
                some = some || now[size_t(p)] > 0;
            }
            for (int p = 0; !some && p < labels; ++p) {
                if (q[size_t(p)] > 0) {
                    now[size_t(p)] = q[size_t(p)];
                    some = true;
                }
            }
            const QDate orderDay = std::max(m_first, day.addDays(-m_rng.between(3, 8)));
            const StockLine& line = m_lines[size_t(index)];
            const int seq = writeOrder(t, store, line, orderDay, q, m_rng.percent(50) ? "I" : "A");
            writeReceipt(t, store, line, day, now, orderDay, seq);
            addTo(m_lines[size_t(index)], now);
            ++ordered;
        }
    }

    // The line and size position a sold piece is taken from, as the stock report sees it. A
    // common item counts where the report gathers it; where the report cannot see the sale (the
    // greatest school offering the item is not served here, or has no such label), the piece
    // still leaves the store's one pile of the item.
    std::pair<int, int> soldFrom(const Store& store, int schoolIndex, int k, int year, int pos) {
        const Item& item = m_items[size_t(k)];
        if (!item.common()) {
            return {stockLine(store, schoolIndex, k, year), pos};
        }
        const int line = stockLine(store, -1, k, year);
        const int greatest = m_commonSchool[size_t(k)];
        if (m_lines[size_t(line)].school != greatest) {
            return {line, pos};
        }
        const SizeModel& model = m_sizes[size_t(store.brand)];
        const auto& sold = model.labels(m_schools[size_t(schoolIndex)].level, item.sizetab, year);
        const auto& shown = model.labels(m_schools[size_t(greatest)].level, item.sizetab, year);
        const auto at = std::find(shown.begin(), shown.end(), sold[size_t(pos)]);
        return {line, at == shown.end() ? pos : int(at - shown.begin())};
    }

    // Takes `cnt` pieces at size position `pos` of a sold line off the shelf and returns the
    // model year they come from: the one asked for, a newer one when that has run out, or the
    // newest, reordered in time (or, in the last week, awaited from an open order).
    int takeStock(Tables& t, Store& store, int schoolIndex, int k, int asked, int pos, int cnt,
                  const QDate& day) {
        const SizeModel& model = m_sizes[size_t(store.brand)];
        const Item& item = m_items[size_t(k)];
        const char level = m_schools[size_t(schoolIndex)].level;
        for (int y = asked; y <= m_newestYear; ++y) {
            if (int(model.labels(level, item.sizetab, y).size()) <= pos) {
                continue;
            }
            const auto [index, at] = soldFrom(store, schoolIndex, k, y, pos);
            if (m_lines[size_t(index)].onHand[size_t(at)] >= cnt) {
                m_lines[size_t(index)].onHand[size_t(at)] -= cnt;
                return y;
            }
        }
        const int y = std::max(asked, m_newestYear);
        const auto [index, at] = soldFrom(store, schoolIndex, k, y, pos);
        StockLine& line = m_lines[size_t(index)];
        std::array<double, 24> expected{};
        for (int old = y - 2; old <= y; ++old) {
            expectLine(expected, store, item.common() ? -1 : schoolIndex, k, old, day,
                       day.addDays(90));
        }
        std::array<int, 24> q{};
        for (int p = 0; p < line.labels && p < 24; ++p) {
            q[size_t(p)] = std::max(0, toBuy(expected[size_t(p)]) - line.onHand[size_t(p)]);
        }
        q[size_t(at)] = std::max(q[size_t(at)], cnt - line.onHand[size_t(at)]);
        const bool lastWeek = day.daysTo(m_today) < 7;
        if (line.awaited || (lastWeek && line.stocked && m_rng.percent(40))) {
            if (!line.awaited) {
                writeOrder(t, store, line, day.addDays(-m_rng.between(0, 2)), q, "A");
                line.awaited = true;
            }
        } else {
            QDate arrived = day.addDays(-m_rng.between(1, 6));
            arrived = std::max(arrived, m_first);
            const QDate ordered = arrived.addDays(-m_rng.between(4, 10));
            const int seq = writeOrder(t, store, line, ordered, q, "A");
            writeReceipt(t, store, line, arrived, q, ordered, seq);
            addTo(line, q);
        }
        line.onHand[size_t(at)] -= cnt;
        return y;
    }

    // A line of the store's books, from a random one on, that fits and has a size holding at
    // least `least` pieces; and that size.
    template <typename Fits> std::pair<int, int> lineWithStock(int least, Fits fits) {
        if (m_lines.empty()) {
            return {-1, -1};
        }
        const int start = m_rng.below(int(m_lines.size()));
        for (int n = 0; n < int(m_lines.size()); ++n) {
            const int index = (start + n) % int(m_lines.size());
            const StockLine& line = m_lines[size_t(index)];
            int best = 0;
            for (int p = 1; p < line.labels && p < 24; ++p) {
                if (line.onHand[size_t(p)] > line.onHand[size_t(best)]) {
                    best = p;
                }
            }
            if (line.onHand[size_t(best)] >= least && fits(line)) {
                return {index, best};
            }
        }
        return {-1, -1};
    }

    // Stores of the same brand that could take a line's goods, with the school they would
    // book them under: the same school, or for a common item one with the same size range.
    const std::vector<std::pair<int, int>>& receiversOf(int si, const StockLine& line) {
        const Item& item = m_items[size_t(line.item)];
        const std::pair<int, int> family{item.common() ? -1 : line.school, line.item};
        auto found = m_receivers.find(family);
        if (found != m_receivers.end()) {
            return found->second;
        }
        std::vector<std::pair<int, int>> receivers; // store, school
        const char teen = m_schools[size_t(line.school)].level == '3' ? 'L' : 'H';
        for (int other = 0; other < int(m_stores.size()); ++other) {
            const Store& o = m_stores[size_t(other)];
            if (other == si || o.brand != m_stores[size_t(si)].brand) {
                continue;
            }
            for (int s : o.schools) {
                const School& school = m_schools[size_t(s)];
                const bool same = item.common()
                                      ? std::find(school.items.begin(), school.items.end(),
                                                  line.item) != school.items.end() &&
                                            (school.level == '3' ? 'L' : 'H') == teen
                                      : s == line.school;
                if (same) {
                    receivers.emplace_back(other, s);
                    break;
                }
            }
        }
        return m_receivers.emplace(family, std::move(receivers)).first->second;
    }

    // Now and then a transfer of spare goods to a store of the same brand serving the same
    // pupils, booked in there on the same day. Older goods stay: a receipt of them would count
    // the receiver's opening stock again.
    void transfer(Tables& t, Store& store, int si, const QDate& day) {
        const auto [index, pos] = lineWithStock(3, [&](const StockLine& line) {
            return line.year >= m_firstBought && !receiversOf(si, line).empty();
        });
        if (index < 0) {
            return;
        }
        StockLine& line = m_lines[size_t(index)];
        const Item& item = m_items[size_t(line.item)];
        const auto& receivers = receiversOf(si, line);
        const auto [to, toSchool] = receivers[size_t(m_rng.below(int(receivers.size())))];
        Store& receiver = m_stores[size_t(to)];
        std::array<int, 24> moved{};
        moved[size_t(pos)] = m_rng.between(1, std::min(3, line.onHand[size_t(pos)] - 2));
        line.onHand[size_t(pos)] -= moved[size_t(pos)];
        const string dd = ymd(day);
        const string at = stamp(day, 16);
        DemoRow r;
        stockRowHead(r, store, dd, nextSeq(store.outboundSeq, dd), line);
        sizes(r, moved);
        r.t(receiver.code)
            .t("M")
            .t(receiver.full)
            .t(receiver.address)
            .t(receiver.tel)
            .t(at)
            .t("store" + store.code)
            .t(at)
            .t("store" + store.code);
        t.out.add(r);
        StockLine there = line;
        there.school = toSchool;
        stockRowHead(r, receiver, dd, nextSeq(receiver.inboundSeq, dd), there);
        r.t(string(1, item.sizetab));
        sizes(r, moved);
        r.t("")
            .n(0)
            .t(store.code)
            .t("B")
            .t(at)
            .t("store" + receiver.code)
            .t(at)
            .t("store" + receiver.code);
        t.in.add(r);
    }

    // A stock count: a piece or two missing (out) or found (a negative correction), or goods
    // found and registered.
    void countStock(Tables& t, Store& store, const QDate& day) {
        const auto [index, pos] = lineWithStock(1, [](const StockLine&) { return true; });
        if (index < 0) {
            return;
        }
        StockLine& line = m_lines[size_t(index)];
        const string dd = ymd(day);
        std::array<int, 24> fix{};
        DemoRow r;
        if (m_rng.percent(80) || line.opening) {
            fix[size_t(pos)] = m_rng.percent(50)
                                   ? std::min(line.onHand[size_t(pos)], m_rng.between(1, 2))
                                   : -m_rng.between(1, 2);
            line.onHand[size_t(pos)] -= fix[size_t(pos)];
            const string at = stamp(day, 18);
            stockRowHead(r, store, dd, nextSeq(store.outboundSeq, dd), line);
            sizes(r, fix);
            r.t("").t("D").t("").t("").t("").t(at).t(kDemoUserId).t(at).t(kDemoUserId);
            t.out.add(r);
            return;
        }
        fix[size_t(pos)] = m_rng.between(1, 3);
        line.onHand[size_t(pos)] += fix[size_t(pos)];
        const string at = stamp(day, 17);
        stockRowHead(r, store, dd, nextSeq(store.inboundSeq, dd), line);
        r.null();
        sizes(r, fix);
        r.t("").null().t("").t("D").t(at).t(kDemoUserId).t(at).t(kDemoUserId);
        t.in.add(r);
    }

    // The chain's last thirteen months, store by store and day by day: the stock documents and
    // the tills' slips (heads, lines, payments, receivables, returns, reservations, repairs and
    // deliveries) in the order they happened.
    void history() {
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
        Tables t{head, line, ret, adjust, credit, repair, piece, delivery, base, order, in, out};

        // Day weights: the new school year (February, March) and the change to summer wear
        // (May, June) are the busy months.
        std::vector<int> weights;
        int weightSum = 0;
        for (QDate d = m_first; d <= m_today; d = d.addDays(1)) {
            static const int byMonth[] = {2, 9, 6, 2, 4, 3, 1, 2, 1, 1, 1, 2};
            const int w = d.dayOfWeek() == 7 ? 0 : byMonth[d.month() - 1];
            weights.push_back(w);
            weightSum += w;
            m_dayModelYear.push_back(modelYearOf(d));
            m_daySummer.push_back(summerDay(d));
        }
        // About 1,600 slips of 3.5 lines each per scale step, the same days busy in every store.
        // A store sells as its size goes: by the schools it serves and a footfall of its own,
        // from a third to twice the chain's mean.
        const long long slipsWanted = 1600LL * m_scale;
        std::vector<double> storeSize;
        double sizeSum = 0.0;
        for (const Store& store : m_stores) {
            static const double footfall[] = {0.4, 0.6, 0.8, 1.0, 1.0, 1.3, 1.6, 2.0};
            storeSize.push_back(double(store.schools.size()) * m_rng.pick(footfall));
            sizeSum += storeSize.back();
        }
        const double perStoreWeight =
            double(slipsWanted) / double(m_stores.size()) / double(weightSum);
        const auto slipsPerDayOf = [&](int si) {
            const double weight =
                perStoreWeight * storeSize[size_t(si)] * double(m_stores.size()) / sizeSum;
            std::vector<int> perDay;
            double carry = 0.0;
            for (int w : weights) {
                carry += weight * w;
                perDay.push_back(int(carry));
                carry -= perDay.back();
            }
            return perDay;
        };
        // The greatest school offering each common item: the report keeps its stock there.
        m_commonSchool.assign(m_items.size(), -1);
        for (int s = 0; s < int(m_schools.size()); ++s) {
            for (int k : m_schools[size_t(s)].items) {
                m_commonSchool[size_t(k)] = s;
            }
        }
        const std::vector<QDate> buys = buyingDays();
        for (int si = 0; si < int(m_stores.size()); ++si) {
            Store& store = m_stores[size_t(si)];
            m_slipsPerDay = slipsPerDayOf(si);
            m_lines.clear();
            m_lineIndex.clear();
            m_pending.clear();
            m_receivers.clear();
            m_newestYear = 0;
            // The books start with the last buy before the first slip.
            std::size_t next = 0;
            while (next + 1 < buys.size() && buys[next + 1] <= m_first) {
                ++next;
            }
            m_firstBought = modelYearOf(buys[next].addDays(20));
            openingStock(t, store, m_firstBought);
            const auto buy = [&] {
                const QDate after =
                    next + 1 < buys.size() ? buys[next + 1] : buys[next].addMonths(6);
                seasonBuy(t, store, buys[next], after);
                ++next;
            };
            buy();
            int dayIndex = 0;
            for (QDate d = m_first; d <= m_today; d = d.addDays(1), ++dayIndex) {
                while (next < buys.size() && buys[next] <= d) {
                    buy();
                }
                bookPending(t, store, d);
                if (d.daysTo(m_today) < kRecentDays && d.dayOfWeek() == 2) {
                    topUp(t, store, d);
                }
                for (int n = 1; n <= m_slipsPerDay[size_t(dayIndex)]; ++n) {
                    slip(t, store, d, n);
                }
                if (m_rng.percent(2)) {
                    transfer(t, store, si, d);
                }
                if (m_rng.percent(2)) {
                    countStock(t, store, d);
                }
            }
            // The next season's goods, ordered and not yet here.
            if (next < buys.size()) {
                buy();
            }
        }
        for (DemoTable* table : {&head, &line, &ret, &adjust, &credit, &repair, &piece, &delivery,
                                 &base, &order, &in, &out}) {
            table->flush();
        }
    }

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
            int y = m_rng.percent(80) ? modelYear : modelYear - 1;
            const auto& asked = model.labels(school.level, item.sizetab, y);
            if (asked.empty()) {
                continue;
            }
            const bool aftercare = m_rng.percent(1);
            const int pos = aftercare ? -1 : middlePick(int(asked.size()));
            const int cnt = aftercare ? 1 : (m_rng.percent(12) ? 2 : 1);
            // What the till sells leaves the shelf; a held or cancelled slip leaves it alone.
            if (!aftercare && completed && !cancelled) {
                y = takeStock(t, store, schoolIndex, k, y, pos, cnt, day);
            }
            const auto& labels = model.labels(school.level, item.sizetab, y);
            const string size = aftercare ? "A/S" : labels[size_t(pos)];
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
    // The days of the history: first day, slips a store writes, model year and season.
    QDate m_first;
    std::vector<int> m_slipsPerDay;
    std::vector<int> m_dayModelYear;
    std::vector<bool> m_daySummer;
    std::vector<int> m_commonSchool;
    std::map<int, std::vector<double>> m_sizeShare;
    // One store's books while its history is written.
    std::vector<StockLine> m_lines;
    std::map<std::array<int, 3>, int> m_lineIndex;
    std::vector<Pending> m_pending;
    std::map<std::pair<int, int>, std::vector<std::pair<int, int>>> m_receivers;
    int m_newestYear = 0;  // the newest model year on the shelf
    int m_firstBought = 0; // the model year of the first buy; older goods are opening stock
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
