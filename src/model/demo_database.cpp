// demo_database.cpp — the demo billing database: a property-management company with a department
// tree, offices, estates and car parks, and two years (2024-2025) of invoices, ledger rows and
// income vouchers, including every irregular case the reports treat on their own.
//
// Determinism: one std::mt19937 stream, mapped to ranges by our own arithmetic (the standard
// distributions differ between library versions), a fixed calendar and no hash-ordered
// containers. Money is kept in integer cents so that sums and taxes are exact decimals.
#include "model/demo_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "model/billing_schema.h"

namespace quillon {

namespace {

using Cents = std::int64_t;
using OptText = std::optional<std::string>;

// ---------------------------------------------------------------------------------------------
// Randomness

class Rng {
public:
    explicit Rng(unsigned seed) : gen_(seed) {}

    // Uniform in [lo, hi], both ends included.
    std::int64_t Int(std::int64_t lo, std::int64_t hi) {
        const auto span = static_cast<std::uint64_t>(hi - lo + 1);
        const std::uint64_t draw = (static_cast<std::uint64_t>(gen_()) << 32) | gen_();
        return lo + static_cast<std::int64_t>(draw % span);
    }
    // Uniform in [0, 1).
    double Real() { return static_cast<double>(gen_()) / 4294967296.0; }
    bool Chance(double p) { return Real() < p; }
    // Index chosen by integer weights.
    int Weighted(const std::vector<int>& weights) {
        int total = 0;
        for (int w : weights) total += w;
        int draw = static_cast<int>(Int(0, total - 1));
        for (int i = 0; i < static_cast<int>(weights.size()); ++i) {
            if (draw < weights[i]) return i;
            draw -= weights[i];
        }
        return static_cast<int>(weights.size()) - 1;
    }
    template <class T> const T& Pick(const std::vector<T>& v) {
        return v[static_cast<std::size_t>(Int(0, static_cast<std::int64_t>(v.size()) - 1))];
    }

private:
    std::mt19937 gen_;
};

// ---------------------------------------------------------------------------------------------
// Calendar: days since 1970-01-01, proleptic Gregorian.

constexpr int DaysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = y - era * 400;
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

struct Civil {
    int y, m, d;
};

Civil CivilFromDays(int z) {
    z += 719468;
    const int era = (z >= 0 ? z : z - 146096) / 146097;
    const int doe = z - era * 146097;
    const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int mp = (5 * doy + 2) / 153;
    const int d = doy - (153 * mp + 2) / 5 + 1;
    const int m = mp + (mp < 10 ? 3 : -9);
    return {yoe + era * 400 + (m <= 2), m, d};
}

constexpr int kFirstDay = DaysFromCivil(2024, 1, 1);
constexpr int kLastDay = DaysFromCivil(2025, 12, 31);
// The day the data were taken: nothing happened after it.
constexpr int kCutDay = DaysFromCivil(2026, 1, 10);

// Day of an ISO date text "yyyy-mm-dd".
int DayOf(const char* iso) {
    const std::string t(iso);
    return DaysFromCivil(std::stoi(t.substr(0, 4)), std::stoi(t.substr(5, 2)), std::stoi(t.substr(8, 2)));
}

std::string IsoDate(int day) {
    const Civil c = CivilFromDays(day);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", c.y, c.m, c.d);
    return buf;
}

std::string IsoDateTime(int day, int second) {
    const Civil c = CivilFromDays(day);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", c.y, c.m, c.d, second / 3600,
                  second / 60 % 60, second % 60);
    return buf;
}

int MonthIndex(int day) {
    const Civil c = CivilFromDays(day);
    return c.y * 12 + c.m - 1;
}

std::string YearMonthText(int monthIndex) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d%02d", monthIndex / 12, monthIndex % 12 + 1);
    return buf;
}

int LastDayOfMonth(int day) {
    const int next = MonthIndex(day) + 1;
    return DaysFromCivil(next / 12, next % 12 + 1, 1) - 1;
}

// ---------------------------------------------------------------------------------------------
// Money

// Tax contained in a gross amount at a rate in percent, rounded half away from zero to the cent.
Cents TaxOf(Cents gross, int ratePercent) {
    if (ratePercent == 0) return 0;
    const Cents num = gross * ratePercent;
    const Cents den = 100 + ratePercent;
    const Cents half = (2 * (num < 0 ? -num : num) + den) / (2 * den);
    return num < 0 ? -half : half;
}

double Money(Cents c) {
    return static_cast<double>(c) / 100.0;
}

// ---------------------------------------------------------------------------------------------
// Fixed catalogues of the company

struct DeptDef {
    const char* code;
    const char* name;
    const char* ended;
};

// Codes of several lengths, so that lists ordered by length first differ from plain order.
const DeptDef kDepartments[] = {
    {"01", "总公司", nullptr},
    {"0101", "华南事业部", nullptr},
    {"0102", "华东事业部", nullptr},
    {"0103", "华北事业部", "2024-06-30"},
    {"0104", "停车场运营部", nullptr},
    {"0105", "临时停车项目部", nullptr},
    {"010101", "天河物业服务中心", nullptr},
    {"010102", "海珠物业服务中心", nullptr},
    {"010103", "番禺物业服务中心", nullptr},
    {"010201", "浦东物业服务中心", nullptr},
    {"010202", "徐汇物业服务中心", nullptr},
    {"010301", "朝阳物业服务中心", nullptr},
    {"09", "行政人事部", nullptr}, // no office: never in a department list
};

struct LinkDef {
    const char* dept;
    const char* parent;
    const char* ended;
};

const LinkDef kLinks[] = {
    {"0101", "01", nullptr},          {"0102", "01", nullptr},
    {"0103", "01", nullptr},          {"0104", "01", nullptr},
    {"0105", "0104", nullptr},        {"010101", "0101", nullptr},
    {"010102", "0101", nullptr},      {"010103", "0102", "2024-03-31"}, // moved from 华东 to 华南
    {"010103", "0101", nullptr},      {"010201", "0102", nullptr},
    {"010202", "0102", "2025-06-30"}, // its only link has ended
    {"010301", "0103", nullptr},      // parent department has ended
};

enum class OfficeKind { Residential, Commercial, Parking };

struct OfficeDef {
    const char* code;
    const char* name;
    const char* dept;
    const char* ended;
    OfficeKind kind;
    const char* estate; // 地址1 of its buildings
    int feePerM2;       // management fee in cents per square metre and month
    int weight;         // share of the invoices
};

const OfficeDef kOffices[] = {
    {"1", "天河花园管理处", "010101", nullptr, OfficeKind::Residential, "天河花园", 320, 14},
    {"12", "天河 商铺管理处", "010101", nullptr, OfficeKind::Commercial, "天河商业街", 0, 4},
    {"2", "江景豪庭管理处", "010102", nullptr, OfficeKind::Residential, "江景豪庭", 380, 11},
    {"3", "海珠商业广场管理处", "010102", nullptr, OfficeKind::Commercial, "海珠商业广场", 0, 8},
    {"4", "番禺雅苑\r\n管理处", "010103", nullptr, OfficeKind::Residential, "番禺雅苑", 260, 10},
    {"5", "金桥新城管理处", "010201", nullptr, OfficeKind::Residential, "金桥新城", 450, 11},
    {"6", "滨江苑管理处", "010202", nullptr, OfficeKind::Residential, "滨江苑", 420, 8},
    {"7", "国贸公寓管理处", "010301", nullptr, OfficeKind::Residential, "国贸公寓", 500, 7},
    {"8", "华北旧址管理处", "0103", nullptr, OfficeKind::Residential, "华北小区", 220, 3},
    {"10", "中心停车场管理处", "0104", nullptr, OfficeKind::Parking, nullptr, 0, 12},
    {"9", "临时停车场管理处", "0105", "2024-09-30", OfficeKind::Parking, nullptr, 0, 3},
};
constexpr int kOfficeCount = static_cast<int>(std::size(kOffices));

struct TypeDef {
    const char* code;
    const char* name;
    int fixedValue;   // 定额
    const char* kind; // 类别
    const char* lotPrefix;
    const char* invoiceCode; // 发票代码, nullptr for none
    bool longNumber;         // 20-digit numbers of fully electronic invoices
};

enum TypeIx { kSpecial, kOrdinary, kOrdinaryE, kFullE, kElectronic, kReceipt, kFixed, kFullESpecial };

const TypeDef kTypes[] = {
    {"01", "增值税专用发票", 0, "发票", "ZY", "01", false},
    {"02", "增值税普通发票", 0, "发票", "PT", "04", false},
    {"03", "增值税普通发票(电子)", 0, "发票", "PD", "10", false},
    {"04", "全电发票", 0, "发票", "QD", nullptr, true},
    {"05", "电子发票", 0, "发票", "DZ", "11", false},
    {"06", "收据", 0, "收据", "SJ", nullptr, false},
    {"07", "停车定额发票", 1, "发票", "DE", "144001900111", false},
    {"08", "全电发票（增值税专用发票）", 0, "发票", "QZ", nullptr, true},
};
constexpr int kTypeCount = static_cast<int>(std::size(kTypes));

struct ItemDef {
    const char* code;
    const char* name;
    const char* category;
    const char* display;
    int rate; // percent
    bool monthly;
    bool ledger; // charged through the ledger WYZJ
};

enum ItemIx {
    kMgmtFee,
    kShopFee,
    kWater,
    kPower,
    kParkMonthly,
    kParkTemp,
    kSpaceFee,
    kFund,
    kDeposit,
    kPowerLoss,
    kService,
    kRent
};

// Names hold "(", "（" and "%", which the reports strip to make column names.
const ItemDef kItems[] = {
    {"001", "物业管理费", "物业服务", "物业服务费", 6, true, true},
    {"002", "商铺管理费(含空调)", "物业服务", nullptr, 6, true, true},
    {"003", "代收水费（居民）", "代收代付", "水费", 3, true, true},
    {"004", "代收电费", "代收代付", "电费", 13, true, true},
    {"005", "停车费（月租）", "停车服务", "月租停车费", 9, true, true},
    {"006", "临时停车费", "临时停车", nullptr, 3, false, false},
    {"007", "车位管理费", "停车管理", nullptr, 6, true, true},
    {"008", "维修基金", "代收代付", nullptr, 0, false, true},
    {"009", "装修押金", "押金", nullptr, 0, false, false},
    {"010", "公共电损分摊(10%)", "能源", "电损分摊", 13, true, true},
    {"011", "有偿服务费", "经营服务", nullptr, 6, false, false},
    {"012", "场地租金", "租赁", nullptr, 9, true, true},
};
constexpr int kItemCount = static_cast<int>(std::size(kItems));

bool IsParkingItem(int item) {
    return item == kParkMonthly || item == kParkTemp || item == kSpaceFee;
}

const char* const kPaymentModes[] = {"现金", "银行转账", "POS刷卡", "微信支付", "支付宝", "托收"};

const char* const kSurnames[] = {"王", "李", "张", "刘", "陈", "杨", "黄", "赵", "吴",   "周",  "徐", "孙",
                                 "马", "朱", "胡", "郭", "何", "高", "林", "罗", "郑",   "梁",  "谢", "宋",
                                 "唐", "许", "韩", "冯", "邓", "曹", "彭", "曾", "肖",   "田",  "董", "袁",
                                 "潘", "蒋", "蔡", "余", "杜", "叶", "程", "苏", "魏",   "吕",  "丁", "沈",
                                 "姚", "卢", "钟", "谭", "陆", "汪", "范", "廖", "欧阳", "司徒"};
const char* const kGivenOne[] = {"伟", "芳", "娜", "敏", "静", "丽", "强", "磊", "军", "洋",
                                 "勇", "艳", "杰", "娟", "涛", "明", "超", "霞", "平", "刚",
                                 "华", "萍", "红", "文", "辉", "力", "俊", "海", "宇", "浩",
                                 "婷", "雪", "晨", "欣", "斌", "琳", "颖", "鹏", "蕾", "峰"};
const char* const kGivenTwo[] = {"秀英", "桂英", "玉兰", "建华", "建国", "志强", "子涵", "梓轩",
                                 "一鸣", "思远", "佳怡", "雨萱", "家豪", "嘉欣", "美玲", "国强",
                                 "振华", "晓东", "晓燕", "丽华", "春梅", "永强", "德明", "俊杰",
                                 "淑芬", "海燕", "文博", "雅婷", "志明", "秋菊"};
const char* const kFirmWords[] = {"华盛", "恒通", "金穗", "宏达", "鼎盛", "广源", "信诚", "瑞丰",
                                  "联创", "天成", "誉峰", "嘉禾", "百顺", "盈科", "东升", "富力"};
const char* const kTrades[] = {"贸易",     "科技",     "餐饮管理", "文化传播", "信息技术",
                               "医疗器械", "教育咨询", "建筑装饰", "物流",     "商务服务"};
const char* const kDeveloper = "广州天瑞房地产开发有限公司";

template <class T, std::size_t N> const T& PickFrom(Rng& rng, const T (&arr)[N]) {
    return arr[rng.Int(0, static_cast<std::int64_t>(N) - 1)];
}

std::string PersonName(Rng& rng) {
    std::string name = PickFrom(rng, kSurnames);
    const double form = rng.Real();
    if (form < 0.45)
        name += PickFrom(rng, kGivenTwo);
    else if (form < 0.75)
        name += PickFrom(rng, kGivenOne);
    else
        name = name + PickFrom(rng, kGivenOne) + PickFrom(rng, kGivenOne);
    return name;
}

std::string FirmName(Rng& rng, const char* city) {
    return std::string(city) + PickFrom(rng, kFirmWords) + PickFrom(rng, kTrades) + "有限公司";
}

std::string Digits(Rng& rng, int count) {
    std::string s;
    for (int i = 0; i < count; ++i) s += static_cast<char>('0' + rng.Int(0, 9));
    return s;
}

// ---------------------------------------------------------------------------------------------
// Property of the offices

struct Room {
    int roomId;
    int ownerId;
    std::string owner;
    std::string address; // building address, room and "室"
    int area;            // square metres
};

struct Holder {
    int id;
    std::string name;
};

struct OfficeState {
    std::vector<Room> rooms;
    std::vector<Holder> spaces;        // 车位说明表
    std::vector<Holder> registrations; // 车位申请登记表
    std::vector<std::string> takers, writers;
    std::vector<int> invoiceItems, invoiceWeights; // items on invoices, first line
    std::vector<int> receiptItems, receiptWeights; // items on receipts, first line
    std::vector<int> typeWeights;
    int endDay = kLastDay; // last day it issues bills
};

// ---------------------------------------------------------------------------------------------
// Invoices as drafted before they get their IDs and numbers

struct Line {
    int item;
    Cents amount;
    std::optional<Cents> tax;
    int rate; // percent stored as the line's fraction
    OptText summary;
    std::vector<int> months; // month indexes the line covers (ledger periods)
};

enum class PayerKind { Owner, Company, Space, Registration, Walkin };

struct Draft {
    int office = 0;
    int type = kOrdinary;
    int issueDay = kFirstDay;
    int issueSecond = 9 * 3600;
    std::optional<int> paidDay;
    int paidSecond = -1; // -1: the payment is stored as a date without time
    int preInvoice = 0;
    std::optional<int> voidDay, returnDay, exchangeDay;
    int exchangedTo = -1; // draft index of the bill that took this one's place internally
    int replaces = -1;    // draft index of the bill this one replaced
    int replacedBy = -1;  // draft index of the bill that replaced this one
    int sameNumberAs = -1;
    OptText mode, payer, address, orderNo;
    std::string taker, writer;
    PayerKind payerKind = PayerKind::Walkin;
    int payerRef = -1; // room, space or registration index in the office
    std::vector<Line> lines;
    // set when numbered
    std::int64_t id = 0;
    std::string lot, number;

    Cents Amount() const {
        Cents sum = 0;
        for (const auto& l : lines) sum += l.amount;
        return sum;
    }
};

enum class Scenario {
    Ordinary,
    PaidLaterInMonth,
    PaidLaterFlagged,
    PaidLaterUnflagged,
    NeverPaidFlagged,
    NeverPaidUnflagged,
    PaidBeforeIssue,
    Voided,
    VoidedNegative,
    Returned,
    Negative,
    InternalExchange,
    ReplaceSpecialByFullE,
    ReplaceOrdinaryByFullE,
    ReplaceSameType,
    NullTaxLine,
    ModeWeChat,
    ModeWeChatPay,
    ModeNotInList,
    PayerLineBreak,
    FundReceipt,
    ModeCash,
    SameNumberTwoLots,
};

struct ScenarioWeight {
    Scenario s;
    int weight; // per ten thousand
};

const ScenarioWeight kScenarioWeights[] = {
    {Scenario::PaidLaterInMonth, 800},
    {Scenario::PaidLaterFlagged, 800},
    {Scenario::PaidLaterUnflagged, 300},
    {Scenario::NeverPaidFlagged, 350},
    {Scenario::NeverPaidUnflagged, 120},
    {Scenario::PaidBeforeIssue, 300},
    {Scenario::Voided, 150},
    {Scenario::VoidedNegative, 30},
    {Scenario::Returned, 80},
    {Scenario::Negative, 120},
    {Scenario::InternalExchange, 60},
    {Scenario::ReplaceSpecialByFullE, 40},
    {Scenario::ReplaceOrdinaryByFullE, 40},
    {Scenario::ReplaceSameType, 30},
    {Scenario::NullTaxLine, 40},
    {Scenario::ModeNotInList, 40},
    {Scenario::PayerLineBreak, 20},
};

class DemoBuilder {
public:
    explicit DemoBuilder(unsigned seed) : rng_(seed) {}

    void BuildProperty();
    void BuildInvoices(int count);
    void NumberInvoices();

    Rng rng_;
    int monthlyLines_ = 0, onlineParking_ = 0;
    std::vector<OfficeState> offices_;
    std::vector<Draft> drafts_;
    std::vector<std::size_t> order_;                // draft indexes by ID
    std::vector<std::pair<std::string, int>> lots_; // lot code, type
    int nextRoomId_ = 1, nextOwnerId_ = 1, nextBuildingId_ = 1, nextSpaceId_ = 1, nextRegId_ = 1;

    struct Building {
        int id;
        const char* office;
        OptText a1, z1, a2, z2, a3, z3, a4, z4;
    };
    std::vector<Building> buildings_;
    struct RoomRow {
        int id, building;
        std::string room;
    };
    std::vector<RoomRow> roomRows_;
    struct OwnerRow {
        int id, room;
        std::string name;
    };
    std::vector<OwnerRow> ownerRows_;
    struct HolderRow {
        int id;
        std::string name;
        const char* office;
    };
    std::vector<HolderRow> spaceRows_, regRows_;

private:
    int PickOffice();
    int PickType(int office, int day);
    void SetPayer(Draft& d);
    std::vector<Line> MakeLines(int office, int type, int day, int firstItem, PayerKind& kind, int& ref);
    Line MakeLine(int office, int type, int item, int day, int area);
    void SetPayment(Draft& d, Scenario s);
    std::size_t Add(Draft d) {
        drafts_.push_back(std::move(d));
        return drafts_.size() - 1;
    }
    Draft Fresh(int office, int day, int type = -1, int firstItem = -1);
    Draft Copy(const Draft& from, int day) const;
    void Make(Scenario s, int office, int day, int remaining);
    std::string Address(const Building& b, const std::string& room) const;
};

std::string DemoBuilder::Address(const Building& b, const std::string& room) const {
    std::string s;
    for (const auto* piece : {&b.a1, &b.z1, &b.a2, &b.z2, &b.a3, &b.z3, &b.a4, &b.z4})
        if (*piece) s += **piece;
    return s + room + "室";
}

void DemoBuilder::BuildProperty() {
    offices_.resize(kOfficeCount);
    for (int o = 0; o < kOfficeCount; ++o) {
        const OfficeDef& def = kOffices[o];
        OfficeState& st = offices_[o];
        if (def.ended) st.endDay = DayOf(def.ended);
        for (const auto& dept : kDepartments)
            if (std::string(dept.code) == def.dept && dept.ended)
                st.endDay = std::min(st.endDay, DayOf(dept.ended));
        for (int i = 0; i < 3; ++i) st.takers.push_back(PersonName(rng_));
        for (int i = 0; i < 2; ++i) st.writers.push_back(PersonName(rng_));

        // Buildings, rooms and owners.
        if (def.kind == OfficeKind::Residential) {
            const bool phases = o % 2 == 1; // some estates are built in phases
            const int nb = static_cast<int>(rng_.Int(4, 8));
            for (int b = 1; b <= nb; ++b) {
                Building bd{nextBuildingId_++, def.code, def.estate, {}, {}, {}, {}, {}, {}, {}};
                const int units = static_cast<int>(rng_.Int(1, 2));
                if (phases) {
                    bd.a2 = b <= nb / 2 ? "一" : "二";
                    bd.z2 = "期";
                    bd.a3 = std::to_string(b);
                    bd.z3 = "栋";
                } else {
                    bd.a2 = std::to_string(b);
                    bd.z2 = "栋";
                }
                buildings_.push_back(bd);
                const int floors = static_cast<int>(rng_.Int(6, 12));
                const int perFloor = static_cast<int>(rng_.Int(2, 4));
                for (int u = 1; u <= units; ++u) {
                    for (int f = 1; f <= floors; ++f) {
                        for (int r = 1; r <= perFloor; ++r) {
                            // Multi-unit buildings name the unit in the room number.
                            std::string room = (units > 1 ? std::to_string(u) + "-" : std::string()) +
                                               std::to_string(f * 100 + r);
                            Room rm{nextRoomId_++, nextOwnerId_++, PersonName(rng_), Address(bd, room),
                                    static_cast<int>(rng_.Int(60, 180))};
                            roomRows_.push_back({rm.roomId, bd.id, room});
                            ownerRows_.push_back({rm.ownerId, rm.roomId, rm.owner});
                            st.rooms.push_back(std::move(rm));
                        }
                    }
                }
            }
        } else if (def.kind == OfficeKind::Commercial) {
            Building bd{nextBuildingId_++, def.code, def.estate, {}, "A", "座", {}, {}, {}, {}};
            buildings_.push_back(bd);
            const int shops = static_cast<int>(rng_.Int(30, 60));
            for (int s = 1; s <= shops; ++s) {
                std::string room = std::to_string(100 * rng_.Int(1, 3) + s);
                Room rm{nextRoomId_++, nextOwnerId_++, FirmName(rng_, "广州市"), Address(bd, room),
                        static_cast<int>(rng_.Int(40, 300))};
                roomRows_.push_back({rm.roomId, bd.id, room});
                ownerRows_.push_back({rm.ownerId, rm.roomId, rm.owner});
                st.rooms.push_back(std::move(rm));
            }
        }

        // Parking spaces and registrations.
        if (def.kind != OfficeKind::Commercial) {
            const bool park = def.kind == OfficeKind::Parking;
            const int spaces = static_cast<int>(park ? rng_.Int(150, 220) : rng_.Int(40, 80));
            for (int s = 0; s < spaces; ++s) {
                std::string holder = !st.rooms.empty() && rng_.Chance(0.6) ? rng_.Pick(st.rooms).owner
                                     : rng_.Chance(0.5)                    ? kDeveloper
                                                                           : PersonName(rng_);
                st.spaces.push_back({nextSpaceId_, holder});
                spaceRows_.push_back({nextSpaceId_++, holder, def.code});
            }
            const int regs = static_cast<int>(park ? rng_.Int(120, 160) : rng_.Int(30, 60));
            for (int r = 0; r < regs; ++r) {
                std::string name = PersonName(rng_);
                st.registrations.push_back({nextRegId_, name});
                regRows_.push_back({nextRegId_++, name, def.code});
            }
        }

        // What the office bills, with weights for the first line of a bill.
        auto add = [](std::vector<int>& items, std::vector<int>& weights, int item, int w) {
            items.push_back(item);
            weights.push_back(w);
        };
        switch (def.kind) {
        case OfficeKind::Residential:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kMgmtFee, 40);
                add(*list, w, kWater, 12);
                add(*list, w, kPower, 12);
                add(*list, w, kPowerLoss, 4);
                add(*list, w, kService, 6);
                add(*list, w, kParkMonthly, 8);
                add(*list, w, kParkTemp, 5);
                add(*list, w, kSpaceFee, 7);
                if (std::string(def.code) == "7") add(*list, w, kRent, 6);
            }
            add(st.receiptItems, st.receiptWeights, kFund, 10);
            add(st.receiptItems, st.receiptWeights, kDeposit, 8);
            st.typeWeights = {4, 26, 6, 24, 14, 20, 2, 1};
            break;
        case OfficeKind::Commercial:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kShopFee, 40);
                add(*list, w, kPower, 15);
                add(*list, w, kPowerLoss, 6);
                add(*list, w, kService, 8);
                add(*list, w, kRent, 20);
                add(*list, w, kParkTemp, 4);
            }
            add(st.receiptItems, st.receiptWeights, kDeposit, 10);
            st.typeWeights = {30, 12, 3, 15, 5, 8, 1, 12};
            break;
        case OfficeKind::Parking:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kParkMonthly, 40);
                add(*list, w, kParkTemp, 35);
                add(*list, w, kSpaceFee, 25);
            }
            st.typeWeights = {1, 8, 4, 30, 25, 7, 25, 0};
            break;
        }
    }
}

int DemoBuilder::PickOffice() {
    std::vector<int> w;
    for (const auto& o : kOffices) w.push_back(o.weight);
    return rng_.Weighted(w);
}

int DemoBuilder::PickType(int office, int day) {
    std::vector<int> w = offices_[office].typeWeights;
    // Fully electronic invoices came in during 2024.
    const int scale = day < DaysFromCivil(2024, 7, 1) ? 15 : day < DaysFromCivil(2024, 12, 1) ? 60 : 100;
    w[kFullE] = w[kFullE] * scale / 100;
    w[kFullESpecial] = w[kFullESpecial] * scale / 100;
    return rng_.Weighted(w);
}

Line DemoBuilder::MakeLine(int office, int type, int item, int day, int area) {
    const ItemDef& def = kItems[item];
    Cents monthly = 0;
    std::vector<int> monthsWeights = {1};
    std::vector<int> monthsChoice = {1};
    switch (item) {
    case kMgmtFee:
        monthly = static_cast<Cents>(area) * kOffices[office].feePerM2;
        monthsChoice = {1, 3, 6, 12}, monthsWeights = {45, 25, 15, 15};
        break;
    case kShopFee:
        monthly = static_cast<Cents>(area) * 1200;
        monthsChoice = {1, 3, 6}, monthsWeights = {60, 30, 10};
        break;
    case kWater:
        monthly = rng_.Int(2000, 15000);
        monthsChoice = {1, 2, 3}, monthsWeights = {80, 15, 5};
        break;
    case kPower:
        monthly = rng_.Int(8000, 60000);
        monthsChoice = {1, 2, 3}, monthsWeights = {80, 15, 5};
        break;
    case kPowerLoss:
        monthly = rng_.Int(1000, 8000);
        monthsChoice = {1, 2, 3}, monthsWeights = {80, 15, 5};
        break;
    case kParkMonthly:
        monthly = 5000 * rng_.Int(6, 12);
        monthsChoice = {1, 3, 6, 12}, monthsWeights = {50, 25, 15, 10};
        break;
    case kSpaceFee:
        monthly = rng_.Int(6000, 15000);
        monthsChoice = {1, 3, 6, 12}, monthsWeights = {40, 20, 20, 20};
        break;
    case kRent:
        monthly = 100 * rng_.Int(2000, 20000);
        monthsChoice = {1, 3}, monthsWeights = {70, 30};
        break;
    case kParkTemp:
        monthly = 500 * rng_.Int(1, 12);
        break;
    case kFund:
        monthly = static_cast<Cents>(area) * rng_.Int(5000, 10000);
        break;
    case kDeposit:
        monthly = 100000 * rng_.Pick(std::vector<Cents>{2, 3, 5});
        break;
    case kService:
        monthly = 100 * rng_.Int(50, 800);
        break;
    }
    Line line{item, monthly, std::nullopt, 0, std::nullopt, {}};
    const int issueMonth = MonthIndex(day);
    if (def.monthly) {
        const int k = monthsChoice[static_cast<std::size_t>(rng_.Weighted(monthsWeights))];
        // Usage charges are billed after the month, fixed fees ahead of it.
        const bool afterUse = item == kWater || item == kPower || item == kPowerLoss;
        const int first = afterUse ? issueMonth - k : issueMonth;
        for (int i = 0; i < k; ++i) line.months.push_back(first + i);
        line.amount = monthly * k;
        // Month lists end in a comma as the counter program writes them; a few old rows lack it,
        // and some lines carry no summary at all. A counter, not chance, keeps both in small files.
        const int form = monthlyLines_++ % 15;
        if (form != 8) {
            std::string s;
            for (int m : line.months) s += YearMonthText(m) + ",";
            if (form == 5 || form == 12) s.pop_back();
            line.summary = s;
        }
    } else {
        line.months.push_back(issueMonth);
        if (rng_.Chance(0.5)) line.summary = def.name;
    }
    if (kTypes[type].kind == std::string("收据")) {
        line.rate = 0; // receipts split no tax out
    } else {
        line.rate = def.rate;
        line.tax = TaxOf(line.amount, def.rate);
    }
    return line;
}

std::vector<Line> DemoBuilder::MakeLines(int office, int type, int day, int firstItem, PayerKind& kind,
                                         int& ref) {
    OfficeState& st = offices_[office];
    const bool receipt = kTypes[type].kind == std::string("收据");
    const auto& items = receipt ? st.receiptItems : st.invoiceItems;
    const auto& weights = receipt ? st.receiptWeights : st.invoiceWeights;
    int first = items[static_cast<std::size_t>(rng_.Weighted(weights))];
    if (type == kFixed) first = kParkTemp; // fixed-value books are for short-stay parking only
    if (firstItem >= 0) first = firstItem;

    // Who pays follows from the first item.
    int area = static_cast<int>(rng_.Int(60, 180));
    if (first == kParkMonthly && !st.registrations.empty()) {
        kind = PayerKind::Registration;
        ref = static_cast<int>(rng_.Int(0, static_cast<std::int64_t>(st.registrations.size()) - 1));
    } else if (first == kSpaceFee && !st.spaces.empty()) {
        kind = PayerKind::Space;
        ref = static_cast<int>(rng_.Int(0, static_cast<std::int64_t>(st.spaces.size()) - 1));
    } else if (first == kParkTemp) {
        kind = PayerKind::Walkin;
    } else if ((type == kSpecial || type == kFullESpecial) &&
               kOffices[office].kind != OfficeKind::Commercial) {
        kind = PayerKind::Company;
    } else if (!st.rooms.empty() && rng_.Chance(0.92)) {
        kind = PayerKind::Owner;
        ref = static_cast<int>(rng_.Int(0, static_cast<std::int64_t>(st.rooms.size()) - 1));
        area = st.rooms[static_cast<std::size_t>(ref)].area;
    } else {
        kind = PayerKind::Walkin;
    }

    std::vector<Line> lines{MakeLine(office, type, first, day, area)};
    if (IsParkingItem(first) || type == kFixed) return lines;
    const int extra = rng_.Chance(0.45) ? (rng_.Chance(0.3) ? 2 : 1) : 0;
    for (int e = 0; e < extra; ++e) {
        const int item = items[static_cast<std::size_t>(rng_.Weighted(weights))];
        if (IsParkingItem(item)) continue;
        bool dup = false;
        for (const auto& l : lines) dup = dup || l.item == item;
        if (!dup) lines.push_back(MakeLine(office, type, item, day, area));
    }
    return lines;
}

void DemoBuilder::SetPayer(Draft& d) {
    const OfficeState& st = offices_[d.office];
    switch (d.payerKind) {
    case PayerKind::Owner: {
        const Room& r = st.rooms[static_cast<std::size_t>(d.payerRef)];
        d.payer = r.owner;
        d.address = r.address;
        break;
    }
    case PayerKind::Company:
        d.payer = FirmName(rng_, "广州市");
        if (rng_.Chance(0.7)) d.address = "广州市天河区天河路" + std::to_string(rng_.Int(1, 600)) + "号";
        break;
    case PayerKind::Space:
        d.payer = st.spaces[static_cast<std::size_t>(d.payerRef)].name;
        break;
    case PayerKind::Registration:
        d.payer = st.registrations[static_cast<std::size_t>(d.payerRef)].name;
        break;
    case PayerKind::Walkin:
        // Short-stay parkers often leave no name at all.
        if (!d.lines.empty() && d.lines[0].item == kParkTemp && rng_.Chance(0.6)) break;
        d.payer = PersonName(rng_);
        break;
    }
}

Draft DemoBuilder::Fresh(int office, int day, int type, int firstItem) {
    Draft d;
    d.office = office;
    d.issueDay = std::min(day, offices_[office].endDay);
    d.issueSecond = static_cast<int>(rng_.Int(8 * 3600 + 1800, 18 * 3600));
    d.type = type >= 0 ? type : PickType(office, d.issueDay);
    d.lines = MakeLines(office, d.type, d.issueDay, firstItem, d.payerKind, d.payerRef);
    SetPayer(d);
    const OfficeState& st = offices_[office];
    d.taker = rng_.Pick(st.takers);
    d.writer = rng_.Pick(st.writers);
    // Modes: "微信" is what the old counter app wrote; the list knows it as "微信支付".
    static const std::vector<const char*> modes = {"现金", "银行转账", "POS刷卡", "微信支付",
                                                   "微信", "支付宝",   "托收"};
    static const std::vector<int> modeWeights = {12, 20, 15, 25, 8, 14, 6};
    d.mode = modes[static_cast<std::size_t>(rng_.Weighted(modeWeights))];
    if (d.lines[0].item == kParkTemp && *d.mode == std::string("托收")) d.mode = "现金";
    return d;
}

Draft DemoBuilder::Copy(const Draft& from, int day) const {
    Draft d = from;
    d.issueDay = std::min(day, kLastDay);
    d.exchangedTo = d.replaces = d.replacedBy = d.sameNumberAs = -1;
    d.voidDay = d.returnDay = d.exchangeDay = std::nullopt;
    return d;
}

bool IsOnline(const OptText& mode) {
    return mode && (*mode == "微信支付" || *mode == "微信" || *mode == "支付宝");
}

void DemoBuilder::SetPayment(Draft& d, Scenario s) {
    const int day = d.issueDay;
    d.preInvoice = 0;
    switch (s) {
    case Scenario::PaidLaterInMonth:
        d.paidDay = std::min(day + static_cast<int>(rng_.Int(1, 12)), LastDayOfMonth(day));
        break;
    case Scenario::PaidLaterFlagged:
    case Scenario::PaidLaterUnflagged: {
        d.preInvoice = s == Scenario::PaidLaterFlagged ? 1 : 0;
        // Paid within four months, and by the day the data were taken.
        const int monthEnd = LastDayOfMonth(day);
        d.paidDay = monthEnd + static_cast<int>(rng_.Int(1, std::min(120, kCutDay - monthEnd)));
        break;
    }
    case Scenario::NeverPaidFlagged:
    case Scenario::NeverPaidUnflagged:
        d.preInvoice = s == Scenario::NeverPaidFlagged ? 1 : 0;
        d.paidDay.reset();
        d.mode.reset(); // no money, no mode
        break;
    case Scenario::PaidBeforeIssue:
        d.paidDay = day - static_cast<int>(rng_.Int(5, 40));
        break;
    default:
        d.paidDay = day;
        break;
    }
    if (d.paidDay && IsOnline(d.mode)) {
        d.paidSecond = *d.paidDay == day
                           ? std::min(d.issueSecond + static_cast<int>(rng_.Int(-3600, 600)), 86399)
                           : static_cast<int>(rng_.Int(7 * 3600, 22 * 3600));
        d.paidSecond = std::max(d.paidSecond, 0);
    } else {
        d.paidSecond = -1;
    }
    // Online parking payments carry the payment platform's order number, nine times in ten.
    const bool parking = IsParkingItem(d.lines[0].item);
    if (parking && d.paidDay && IsOnline(d.mode) && onlineParking_++ % 10 != 1) {
        d.orderNo = *d.mode == "支付宝" ? IsoDate(*d.paidDay).substr(0, 4) + Digits(rng_, 24)
                                        : "4200" + Digits(rng_, 24);
    } else {
        d.orderNo.reset();
    }
}

// Drafts one bill of the scenario, with its partner where the scenario has one.
void DemoBuilder::Make(Scenario s, int office, int day, int remaining) {
    const bool pair = s == Scenario::Negative || s == Scenario::VoidedNegative ||
                      s == Scenario::InternalExchange || s == Scenario::ReplaceSpecialByFullE ||
                      s == Scenario::ReplaceOrdinaryByFullE || s == Scenario::ReplaceSameType ||
                      s == Scenario::SameNumberTwoLots;
    if (pair && remaining < 2) s = Scenario::Ordinary;
    const int end = offices_[office].endDay;
    if (day > end) day = static_cast<int>(rng_.Int(kFirstDay, end));
    // A partner comes up to a month later, so leave it room before the office or the year ends.
    if (pair && day > end - 40) day = static_cast<int>(rng_.Int(kFirstDay, end - 40));

    int type = -1;
    if (s == Scenario::ReplaceSpecialByFullE) type = kSpecial;
    if (s == Scenario::ReplaceOrdinaryByFullE || s == Scenario::SameNumberTwoLots) type = kOrdinary;
    if (s == Scenario::NullTaxLine) type = kOrdinary;
    int firstItem = -1;
    if (s == Scenario::FundReceipt && kOffices[office].kind == OfficeKind::Residential) {
        type = kReceipt; // the maintenance fund is taken on receipts, by estates only
        firstItem = kFund;
    }
    Draft d = Fresh(office, day, type, firstItem);
    if (s == Scenario::ModeWeChat) d.mode = "微信";
    if (s == Scenario::ModeWeChatPay) d.mode = "微信支付";
    if (s == Scenario::ModeNotInList) d.mode = "代金券";
    if (s == Scenario::ModeCash) d.mode = "现金";
    SetPayment(d, s);

    switch (s) {
    case Scenario::Voided:
        d.voidDay = d.issueDay + static_cast<int>(rng_.Int(0, 2));
        d.paidDay.reset();
        d.paidSecond = -1;
        d.orderNo.reset();
        break;
    case Scenario::Returned:
        d.returnDay = std::min(d.issueDay + static_cast<int>(rng_.Int(5, 60)), kCutDay);
        break;
    case Scenario::NullTaxLine:
        d.lines[0].tax.reset(); // an old import that never split the tax out
        break;
    case Scenario::PayerLineBreak:
        d.payer = FirmName(rng_, "广州市") + "\r\n财务部";
        d.payerKind = PayerKind::Company;
        d.address = std::string("广州市海珠区\r\n江南大道") + std::to_string(rng_.Int(1, 300)) + "号";
        break;
    default:
        break;
    }
    const std::size_t first = Add(d);
    if (!pair) return;

    const int partnerDay = d.issueDay + static_cast<int>(rng_.Int(1, 30));
    Draft p = Copy(d, partnerDay);
    switch (s) {
    case Scenario::Negative:
    case Scenario::VoidedNegative:
        // A red-letter bill that reverses the first one.
        for (auto& l : p.lines) {
            l.amount = -l.amount;
            if (l.tax) l.tax = -*l.tax;
        }
        p.payerKind = PayerKind::Walkin; // keeps the reversal out of the ledger
        SetPayment(p, Scenario::Ordinary);
        if (s == Scenario::VoidedNegative) p.voidDay = p.issueDay;
        Add(p);
        break;
    case Scenario::InternalExchange: {
        // The money was taken once, on the first bill; the new bill takes its place.
        p.paidDay = d.paidDay;
        p.paidSecond = d.paidSecond;
        const std::size_t second = Add(p);
        drafts_[first].exchangedTo = static_cast<int>(second);
        drafts_[first].exchangeDay = p.issueDay;
        break;
    }
    case Scenario::ReplaceSpecialByFullE:
    case Scenario::ReplaceOrdinaryByFullE:
    case Scenario::ReplaceSameType: {
        if (s != Scenario::ReplaceSameType) {
            p.type = kFullE;
            for (auto& l : p.lines) {
                l.rate = kItems[l.item].rate;
                l.tax = TaxOf(l.amount, l.rate);
            }
        }
        p.paidDay = d.paidDay;
        p.paidSecond = d.paidSecond;
        p.replaces = static_cast<int>(first);
        const std::size_t second = Add(p);
        drafts_[first].replacedBy = static_cast<int>(second);
        drafts_[first].returnDay = p.issueDay; // the replaced bill comes back
        break;
    }
    case Scenario::SameNumberTwoLots: {
        // A receipt book whose numbers run into those of an invoice lot.
        Draft r = Fresh(office, partnerDay, kReceipt);
        SetPayment(r, Scenario::Ordinary);
        r.sameNumberAs = static_cast<int>(first);
        Add(r);
        break;
    }
    default:
        break;
    }
}

void DemoBuilder::BuildInvoices(int count) {
    // Every scenario at least once in a residential, a commercial and a parking office, so that a
    // small demo database holds them all; the rest is drawn at random.
    std::vector<std::pair<Scenario, int>> showcase;
    const int showOffices[] = {0, 3, 9}; // "1", "3", "10"
    const Scenario all[] = {Scenario::Ordinary,
                            Scenario::PaidLaterInMonth,
                            Scenario::PaidLaterFlagged,
                            Scenario::PaidLaterUnflagged,
                            Scenario::NeverPaidFlagged,
                            Scenario::NeverPaidUnflagged,
                            Scenario::PaidBeforeIssue,
                            Scenario::Voided,
                            Scenario::VoidedNegative,
                            Scenario::Returned,
                            Scenario::Negative,
                            Scenario::InternalExchange,
                            Scenario::ReplaceSpecialByFullE,
                            Scenario::ReplaceOrdinaryByFullE,
                            Scenario::ReplaceSameType,
                            Scenario::NullTaxLine,
                            Scenario::ModeWeChat,
                            Scenario::ModeWeChatPay,
                            Scenario::ModeNotInList,
                            Scenario::PayerLineBreak,
                            Scenario::FundReceipt,
                            Scenario::ModeCash};
    for (Scenario s : all)
        for (int o : showOffices) showcase.push_back({s, o});
    showcase.push_back({Scenario::SameNumberTwoLots, 0});
    // Parking bills paid online, with and without an order number, come from the car park.
    for (int i = 0; i < 6; ++i)
        showcase.push_back({i % 2 ? Scenario::ModeWeChat : Scenario::ModeWeChatPay, 9});
    // Offices that ended still issued bills while they were open.
    showcase.push_back({Scenario::Ordinary, 8});
    showcase.push_back({Scenario::Ordinary, 10});

    std::vector<int> scenarioWeights;
    int rest = 10000;
    for (const auto& sw : kScenarioWeights) {
        scenarioWeights.push_back(sw.weight);
        rest -= sw.weight;
    }
    scenarioWeights.push_back(rest);

    drafts_.reserve(static_cast<std::size_t>(count) + 2);
    for (std::size_t i = 0; static_cast<int>(drafts_.size()) < count; ++i) {
        const int day = static_cast<int>(rng_.Int(kFirstDay, kLastDay));
        const int remaining = count - static_cast<int>(drafts_.size());
        if (i < showcase.size()) {
            Make(showcase[i].first, showcase[i].second, day, remaining);
        } else {
            const int pick = rng_.Weighted(scenarioWeights);
            const Scenario s = pick < static_cast<int>(std::size(kScenarioWeights)) ? kScenarioWeights[pick].s
                                                                                    : Scenario::Ordinary;
            Make(s, PickOffice(), day, remaining);
        }
    }
}

// IDs follow the time of issue; numbers run up within each lot, and each department draws its
// own lots of each type from the type's number range.
void DemoBuilder::NumberInvoices() {
    order_.resize(drafts_.size());
    for (std::size_t i = 0; i < order_.size(); ++i) order_[i] = i;
    std::stable_sort(order_.begin(), order_.end(), [&](std::size_t a, std::size_t b) {
        const Draft& x = drafts_[a];
        const Draft& y = drafts_[b];
        return std::pair(x.issueDay, x.issueSecond) < std::pair(y.issueDay, y.issueSecond);
    });

    constexpr int kLotSize = 200;
    struct LotState {
        std::string lot;
        std::int64_t next = 0, end = 0;
    };
    std::map<std::pair<int, std::string>, LotState> open; // (type, department)
    std::vector<std::int64_t> typeCounter(kTypeCount, 0);
    std::map<std::pair<int, int>, int> lotSeq; // (type, year)
    std::int64_t id = 0;
    for (std::size_t ix : order_) {
        Draft& d = drafts_[ix];
        d.id = ++id;
        LotState& ls = open[{d.type, kOffices[d.office].dept}];
        const Civil c = CivilFromDays(d.issueDay);
        if (ls.next == ls.end) {
            const int seq = ++lotSeq[{d.type, c.y}];
            char buf[32];
            std::snprintf(buf, sizeof buf, "%s%04d%04d", kTypes[d.type].lotPrefix, c.y, seq);
            ls.lot = buf;
            ls.next = typeCounter[d.type] + 1;
            ls.end = ls.next + kLotSize;
            typeCounter[d.type] += kLotSize;
            lots_.push_back({ls.lot, d.type});
        }
        const std::int64_t n = ls.next++;
        char buf[40];
        if (kTypes[d.type].longNumber)
            std::snprintf(buf, sizeof buf, "%02d44200000%010lld", c.y % 100, static_cast<long long>(n));
        else
            std::snprintf(buf, sizeof buf, "%08lld",
                          static_cast<long long>(10000000LL * (d.type % 8 + 1) + n));
        d.lot = ls.lot;
        d.number = buf;
    }
    for (auto& d : drafts_)
        if (d.sameNumberAs >= 0) d.number = drafts_[static_cast<std::size_t>(d.sameNumberAs)].number;
}

// ---------------------------------------------------------------------------------------------
// Writing

class Statement {
public:
    Statement(sqlite3* db, const char* sql) : db_(db) {
        if (sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr) != SQLITE_OK)
            throw std::runtime_error(std::string("demo database: ") + sqlite3_errmsg(db));
    }
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(const std::string& v) {
        sqlite3_bind_text(stmt_, ++col_, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& Bind(const char* v) {
        if (v)
            sqlite3_bind_text(stmt_, ++col_, v, -1, SQLITE_STATIC);
        else
            sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    Statement& Bind(const OptText& v) {
        if (v) return Bind(*v);
        sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    Statement& Bind(double v) {
        sqlite3_bind_double(stmt_, ++col_, v);
        return *this;
    }
    Statement& Bind(std::int64_t v) {
        sqlite3_bind_int64(stmt_, ++col_, v);
        return *this;
    }
    Statement& Bind(int v) { return Bind(static_cast<std::int64_t>(v)); }
    Statement& Null() {
        sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    void Run() {
        if (sqlite3_step(stmt_) != SQLITE_DONE)
            throw std::runtime_error(std::string("demo database: ") + sqlite3_errmsg(db_));
        sqlite3_reset(stmt_);
        sqlite3_clear_bindings(stmt_);
        col_ = 0;
    }

private:
    sqlite3* db_;
    sqlite3_stmt* stmt_ = nullptr;
    int col_ = 0;
};

void Exec(sqlite3* db, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        std::string text = message ? message : sqlite3_errmsg(db);
        sqlite3_free(message);
        throw std::runtime_error("demo database: " + text);
    }
}

// Creates the schema's tables and returns its index statements, to be run after the rows are in
// (building an index once is faster than keeping it up to date row by row).
std::vector<std::string> CreateTablesOnly(sqlite3* db) {
    std::vector<std::string> indexes;
    const std::string& sql = BillingSchemaSql();
    const char* p = sql.c_str();
    while (*p) {
        sqlite3_stmt* s = nullptr;
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(db, p, -1, &s, &tail) != SQLITE_OK)
            throw std::runtime_error(std::string("demo database: ") + sqlite3_errmsg(db));
        if (s) {
            std::string text(p, tail);
            if (text.find("CREATE INDEX") != std::string::npos) {
                indexes.push_back(std::move(text));
            } else if (sqlite3_step(s) != SQLITE_DONE) {
                const std::string message = sqlite3_errmsg(db);
                sqlite3_finalize(s);
                throw std::runtime_error("demo database: " + message);
            }
            sqlite3_finalize(s);
        }
        p = tail;
    }
    return indexes;
}

struct Voucher {
    std::int64_t id;
    OptText approved; // 审批日期
    int agreed;       // 审批同意
    std::string mode;
};

class DemoWriter {
public:
    DemoWriter(sqlite3* db, DemoBuilder& b) : db_(db), b_(b) {}
    void WriteAll();

private:
    void WriteCatalogues();
    void WriteProperty();
    void WriteInvoices();
    void WriteLedger();
    Voucher& VoucherFor(int office, int day, const OptText& mode);
    std::int64_t NewVoucher(int day, bool refund, const std::string& mode);
    void Attach(std::int64_t voucher, const std::string& lot, const std::string& number, Cents amount);
    void LedgerRow(std::optional<int> owner, std::optional<int> reg, std::optional<int> space, int item,
                   OptText period, Cents amount, int rate, std::optional<int> paidDay, const OptText& taker,
                   const OptText& mode, const OptText& lot, const OptText& number);

    sqlite3* db_;
    DemoBuilder& b_;
    std::vector<Voucher> vouchers_;
    std::map<std::pair<int, int>, std::size_t> weekVoucher_; // (office, week) -> voucher
    std::unique_ptr<Statement> ledger_, attach_;
    int attachments_ = 0;
};

void DemoWriter::WriteCatalogues() {
    {
        Statement s(db_, "INSERT INTO 职能部门new (职能部门编号, 职能部门名称, 终止日期) VALUES (?, ?, ?)");
        for (const auto& d : kDepartments) s.Bind(d.code).Bind(d.name).Bind(d.ended).Run();
    }
    {
        Statement s(db_, "INSERT INTO 上级部门new (职能部门编号, 上级部门编号, 终止日期) VALUES (?, ?, ?)");
        for (const auto& l : kLinks) s.Bind(l.dept).Bind(l.parent).Bind(l.ended).Run();
    }
    {
        Statement s(db_,
                    "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号, 终止日期) VALUES (?, ?, ?, ?)");
        for (const auto& o : kOffices) s.Bind(o.code).Bind(o.name).Bind(o.dept).Bind(o.ended).Run();
    }
    {
        Statement s(db_, "INSERT INTO 票据类型 (票据类型代号, 票据类型, 定额, 类别) VALUES (?, ?, ?, ?)");
        for (const auto& t : kTypes) s.Bind(t.code).Bind(t.name).Bind(t.fixedValue).Bind(t.kind).Run();
    }
    {
        Statement s(db_, "INSERT INTO 票据入库单 (入库单编号, 票据类型编号) VALUES (?, ?)");
        for (const auto& [lot, type] : b_.lots_) s.Bind(lot).Bind(kTypes[type].code).Run();
    }
    {
        Statement s(db_, "INSERT INTO SetupSFXM (DH, XM, 收费类别, 显示名称, 税率) VALUES (?, ?, ?, ?, ?)");
        for (const auto& i : kItems)
            s.Bind(i.code)
                .Bind(i.name)
                .Bind(i.category)
                .Bind(i.display)
                .Bind(static_cast<double>(i.rate))
                .Run();
    }
    {
        // The tax device of each office knows the items it bills; 国贸公寓 has its rent set up at two
        // rates (general and simplified), as some offices do.
        Statement s(db_, "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES (?, ?, ?)");
        for (int o = 0; o < kOfficeCount; ++o) {
            std::vector<int> items = b_.offices_[o].receiptItems;
            std::sort(items.begin(), items.end());
            for (int item : items) {
                s.Bind(kItems[item].code)
                    .Bind(static_cast<double>(kItems[item].rate))
                    .Bind(kOffices[o].code)
                    .Run();
                if (item == kRent && std::string(kOffices[o].code) == "7")
                    s.Bind(kItems[item].code).Bind(5.0).Bind(kOffices[o].code).Run();
            }
        }
    }
    {
        Statement s(db_, "INSERT INTO 收款方式列表 (收款方式) VALUES (?)");
        for (const char* m : kPaymentModes) s.Bind(m).Run();
    }
    {
        struct Right {
            int id;
            const char* group;
            const char* post;
            int granted;
        };
        const Right rights[] = {{1, "CWBB", "财务主管", 1},
                                {2, "CWCX", "会计", 1},
                                {3, "CWBB", "出纳", 0},
                                {4, "CWCX", "出纳", 1}};
        Statement s(db_, "INSERT INTO 岗位权限设置 (id, 组代号, 岗位代号, 授权) VALUES (?, ?, ?, ?)");
        for (const auto& r : rights) s.Bind(r.id).Bind(r.group).Bind(r.post).Bind(r.granted).Run();
        struct Privilege {
            const char* group;
            const char* form;
            int popedom;
            const char* memo;
        };
        const Privilege privileges[] = {
            {"CWBB", "停车费明细表", 1, "收费报表"},         {"CWBB", "增值税开票明细表", 1, "收费报表"},
            {"CWBB", "增值税预开明细表", 1, "收费报表"},     {"CWBB", "开票票据核对表", 1, "收费报表"},
            {"CWBB", "增值税开票统计汇总表", 1, "收费报表"}, {"CWBB", "预开票汇总表", 1, "收费报表"},
            {"CWCX", "增值税开票明细表", 1, "收费报表"},     {"CWCX", "预开票汇总表", 0, "收费报表"},
            {"CWCX", "开票票据核对表", 0, "收费报表"},       {"CWCX", "收费录入", 1, "收费系统"},
        };
        Statement p(db_, "INSERT INTO GroupPrivilege (GroupID, FormName, Popedom, Memo) VALUES (?, ?, ?, ?)");
        for (const auto& r : privileges) p.Bind(r.group).Bind(r.form).Bind(r.popedom).Bind(r.memo).Run();
    }
}

void DemoWriter::WriteProperty() {
    {
        Statement s(db_, "INSERT INTO 楼表 (L_id, 管理处, 地址1, 字1, 地址2, 字2, 地址3, 字3, 地址4, 字4) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (const auto& bd : b_.buildings_)
            s.Bind(bd.id)
                .Bind(bd.office)
                .Bind(bd.a1)
                .Bind(bd.z1)
                .Bind(bd.a2)
                .Bind(bd.z2)
                .Bind(bd.a3)
                .Bind(bd.z3)
                .Bind(bd.a4)
                .Bind(bd.z4)
                .Run();
    }
    {
        Statement s(db_, "INSERT INTO 室表 (S_ID, L_id, 室) VALUES (?, ?, ?)");
        for (const auto& r : b_.roomRows_) s.Bind(r.id).Bind(r.building).Bind(r.room).Run();
    }
    {
        Statement s(db_, "INSERT INTO 业主表 (ZH_ID, S_ID, 姓名) VALUES (?, ?, ?)");
        for (const auto& o : b_.ownerRows_) s.Bind(o.id).Bind(o.room).Bind(o.name).Run();
    }
    {
        Statement s(db_, "INSERT INTO 车位说明表 (ID, 产权人, 管理处) VALUES (?, ?, ?)");
        for (const auto& h : b_.spaceRows_) s.Bind(h.id).Bind(h.name).Bind(h.office).Run();
    }
    {
        Statement s(db_, "INSERT INTO 车位申请登记表 (登记ID, 车主姓名, 管理处) VALUES (?, ?, ?)");
        for (const auto& h : b_.regRows_) s.Bind(h.id).Bind(h.name).Bind(h.office).Run();
    }
}

void DemoWriter::WriteInvoices() {
    Statement bill(db_,
                   "INSERT INTO 票据 (ID, 入库单编号, 票据编号, 开票部门编号, 开票日期, 收款日期, 预开, "
                   "作废日期, 退票日期, 内换日期, 内换票据编号, 对应调换票据入库单, 被换票票据编号, "
                   "被换票入库单编号, 金额, 收款方式, 付款人, 地址, 收款人, 开票人, 交易订单号, 发票代码) "
                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    Statement line(db_,
                   "INSERT INTO 票据开票数据 (票据id, 入库单编号, 票据编号, 收费项目代号, 项目, 摘要, 金额, "
                   "税额, 税率) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    auto date = [](const std::optional<int>& day) -> OptText {
        if (!day) return std::nullopt;
        return IsoDate(*day);
    };
    for (std::size_t ix : b_.order_) {
        const Draft& d = b_.drafts_[ix];
        OptText paid;
        if (d.paidDay) paid = d.paidSecond >= 0 ? IsoDateTime(*d.paidDay, d.paidSecond) : IsoDate(*d.paidDay);
        OptText exNumber, exLot, repNumber, repLot;
        if (d.exchangedTo >= 0) {
            const Draft& to = b_.drafts_[static_cast<std::size_t>(d.exchangedTo)];
            exNumber = to.number;
            exLot = to.lot;
        }
        if (d.replaces >= 0) {
            const Draft& from = b_.drafts_[static_cast<std::size_t>(d.replaces)];
            repNumber = from.number;
            repLot = from.lot;
        }
        // A bill that was paid is collected by one of the office's cashiers.
        OptText taker;
        if (d.paidDay) taker = d.taker;
        bill.Bind(d.id)
            .Bind(d.lot)
            .Bind(d.number)
            .Bind(kOffices[d.office].dept)
            .Bind(IsoDateTime(d.issueDay, d.issueSecond))
            .Bind(paid)
            .Bind(d.preInvoice)
            .Bind(date(d.voidDay))
            .Bind(date(d.returnDay))
            .Bind(date(d.exchangeDay))
            .Bind(exNumber)
            .Bind(exLot)
            .Bind(repNumber)
            .Bind(repLot)
            .Bind(Money(d.Amount()))
            .Bind(d.mode)
            .Bind(d.payer)
            .Bind(d.address)
            .Bind(taker)
            .Bind(d.writer)
            .Bind(d.orderNo)
            .Bind(kTypes[d.type].invoiceCode)
            .Run();
        for (const Line& l : d.lines) {
            line.Bind(d.id).Bind(d.lot).Bind(d.number).Bind(kItems[l.item].code).Bind(kItems[l.item].name);
            line.Bind(l.summary).Bind(Money(l.amount));
            if (l.tax)
                line.Bind(Money(*l.tax));
            else
                line.Null();
            line.Bind(static_cast<double>(l.rate) / 100.0).Run();
        }
    }
}

std::int64_t DemoWriter::NewVoucher(int day, bool refund, const std::string& mode) {
    Voucher v{static_cast<std::int64_t>(vouchers_.size()) + 1, std::nullopt, 0, refund ? "退款" : mode};
    const int approveDay = day + static_cast<int>(b_.rng_.Int(1, 6));
    // Most vouchers are approved; a steady few wait or are turned down.
    const std::size_t n = vouchers_.size();
    if (approveDay > kCutDay || n % 13 == 7) {
        // still waiting for approval
    } else if (n % 23 == 4) { // looked at and turned down
        v.approved = IsoDate(approveDay);
    } else {
        v.approved = IsoDate(approveDay);
        v.agreed = 1;
    }
    vouchers_.push_back(v);
    return v.id;
}

Voucher& DemoWriter::VoucherFor(int office, int day, const OptText& mode) {
    const int week = (day - kFirstDay + 7 * 100) / 7; // offset keeps the division non-negative
    auto [it, fresh] = weekVoucher_.try_emplace({office, week}, vouchers_.size());
    if (fresh) NewVoucher(kFirstDay + (week - 100) * 7 + 6, false, mode.value_or("现金"));
    return vouchers_[it->second];
}

void DemoWriter::Attach(std::int64_t voucher, const std::string& lot, const std::string& number,
                        Cents amount) {
    // Cashiers note remarks behind the number; now and then one writes the remark in front.
    ++attachments_;
    std::string text = number;
    if (!number.empty()) {
        if (attachments_ % 17 == 3)
            text += "(补)";
        else if (attachments_ % 29 == 7)
            text += "(已核销)";
        else if (attachments_ % 97 == 11)
            text = "(重开)" + number;
    }
    attach_->Bind(voucher).Bind(lot).Bind(text).Bind(Money(amount)).Run();
}

void DemoWriter::LedgerRow(std::optional<int> owner, std::optional<int> reg, std::optional<int> space,
                           int item, OptText period, Cents amount, int rate, std::optional<int> paidDay,
                           const OptText& taker, const OptText& mode, const OptText& lot,
                           const OptText& number) {
    auto opt = [&](std::optional<int> v) -> Statement& {
        if (v) return ledger_->Bind(*v);
        return ledger_->Null();
    };
    opt(owner);
    opt(reg);
    opt(space);
    ledger_->Bind(kItems[item].code)
        .Bind(period)
        .Bind(Money(amount))
        .Bind(Money(amount - TaxOf(amount, rate)));
    if (paidDay)
        ledger_->Bind(IsoDate(*paidDay));
    else
        ledger_->Null();
    ledger_->Bind(taker).Bind(mode).Bind(lot).Bind(number).Run();
}

void DemoWriter::WriteLedger() {
    ledger_ = std::make_unique<Statement>(
        db_, "INSERT INTO WYZJ (ZH_ID, DJ_ID, CW_ID, ZJ_LX, zj_cny, zj_je, 收入, zj_skrq, 收款人, 收款方式, "
             "票据入库单编号, 发票号码) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    attach_ = std::make_unique<Statement>(
        db_, "INSERT INTO 收入凭证附件清单 (凭证ID, 票据本编号, 票据编号, 金额) VALUES (?, ?, ?, ?)");
    Rng& rng = b_.rng_;

    // Ledger rows settled by the invoices, attached to the office's voucher of the week.
    for (std::size_t ix : b_.order_) {
        const Draft& d = b_.drafts_[ix];
        // The ledger names the bill that finally settled the charge, not one exchanged or replaced.
        const bool counted =
            d.paidDay && !d.voidDay && d.exchangedTo < 0 && d.replacedBy < 0 && d.Amount() > 0;
        const OfficeState& st = b_.offices_[static_cast<std::size_t>(d.office)];
        if (d.Amount() < 0 && d.paidDay && !d.voidDay) {
            // A reversal is attached with its negative amount to an ordinary voucher.
            Voucher& v = VoucherFor(d.office, *d.paidDay, d.mode);
            Attach(v.id, d.lot, d.number, d.Amount());
            continue;
        }
        if (!counted || d.payerRef < 0) continue;
        std::optional<int> owner, reg, space;
        if (d.payerKind == PayerKind::Owner)
            owner = st.rooms[static_cast<std::size_t>(d.payerRef)].ownerId;
        else if (d.payerKind == PayerKind::Registration)
            reg = st.registrations[static_cast<std::size_t>(d.payerRef)].id;
        else if (d.payerKind == PayerKind::Space)
            space = st.spaces[static_cast<std::size_t>(d.payerRef)].id;
        else
            continue;
        bool any = false;
        for (const Line& l : d.lines) {
            if (!kItems[l.item].ledger) continue;
            any = true;
            const Cents k = static_cast<Cents>(l.months.size());
            for (std::size_t m = 0; m < l.months.size(); ++m) {
                const Cents part = l.amount / k + (m + 1 == l.months.size() ? l.amount % k : 0);
                LedgerRow(owner, reg, space, l.item, YearMonthText(l.months[m]), part, l.rate, d.paidDay,
                          d.taker, d.mode, d.lot, d.number);
            }
        }
        if (!any) continue;
        Voucher& v = VoucherFor(d.office, *d.paidDay, d.mode);
        Attach(v.id, d.lot, d.number, d.Amount());
        if (d.returnDay) {
            // The returned bill's money goes back through a refund voucher.
            const std::int64_t refund = NewVoucher(*d.returnDay, true, "退款");
            attach_->Bind(refund).Bind(d.lot).Bind(d.number + "(退)").Bind(Money(-d.Amount())).Run();
        }
    }

    // Registrations paid in cash at the gate without an invoice: empty lot and number on both sides.
    for (int o = 0; o < kOfficeCount; ++o) {
        const OfficeState& st = b_.offices_[static_cast<std::size_t>(o)];
        for (std::size_t r = 0; r < st.registrations.size(); ++r) {
            if (r != 0 && !rng.Chance(0.04)) continue;
            const int day = static_cast<int>(rng.Int(kFirstDay, st.endDay));
            const int months = static_cast<int>(rng.Int(1, 3));
            const Cents fee = 5000 * rng.Int(6, 10);
            const std::string taker = rng.Pick(st.takers);
            for (int m = 0; m < months; ++m)
                LedgerRow(std::nullopt, st.registrations[r].id, std::nullopt, kParkMonthly,
                          YearMonthText(MonthIndex(day) + m), fee, kItems[kParkMonthly].rate, day, taker,
                          std::string("现金"), std::string(), std::string());
            Voucher& v = VoucherFor(o, day, std::string("现金"));
            Attach(v.id, "", "", fee * months);
        }
    }

    // Arrears: charges raised and not yet paid, with no receipt date and no invoice.
    for (int o = 0; o < kOfficeCount; ++o) {
        const OfficeState& st = b_.offices_[static_cast<std::size_t>(o)];
        for (std::size_t r = 0; r < st.rooms.size(); ++r) {
            if (!rng.Chance(0.03)) continue;
            const Room& room = st.rooms[r];
            const int from = MonthIndex(kLastDay) - static_cast<int>(rng.Int(0, 5));
            const int item = kOffices[o].kind == OfficeKind::Commercial ? kShopFee : kMgmtFee;
            const Cents fee =
                static_cast<Cents>(room.area) * (item == kShopFee ? 1200 : kOffices[o].feePerM2);
            for (int m = from; m <= MonthIndex(kLastDay); ++m)
                LedgerRow(room.ownerId, std::nullopt, std::nullopt, item, YearMonthText(m), fee,
                          kItems[item].rate, std::nullopt, std::nullopt, std::nullopt, std::nullopt,
                          std::nullopt);
        }
    }
    // A charge carried over from the old system without a period.
    if (!b_.offices_[0].rooms.empty())
        LedgerRow(b_.offices_[0].rooms[0].ownerId, std::nullopt, std::nullopt, kMgmtFee, std::nullopt, 10000,
                  kItems[kMgmtFee].rate, std::nullopt, std::nullopt, std::nullopt, std::nullopt,
                  std::nullopt);

    Statement v(db_, "INSERT INTO 收入凭证 (ID, 审批日期, 审批同意, 收款方式) VALUES (?, ?, ?, ?)");
    for (const auto& voucher : vouchers_)
        v.Bind(voucher.id).Bind(voucher.approved).Bind(voucher.agreed).Bind(voucher.mode).Run();
    ledger_.reset();
    attach_.reset();
}

void DemoWriter::WriteAll() {
    WriteCatalogues();
    WriteProperty();
    WriteInvoices();
    WriteLedger();
}

} // namespace

void WriteDemoDatabase(const std::string& path, const DemoOptions& options) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    std::filesystem::remove(path + "-journal", ignored);

    DemoBuilder builder(options.seed);
    builder.BuildProperty();
    builder.BuildInvoices(std::max(options.invoices, 0));
    builder.NumberInvoices();

    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK) {
        const std::string message = db ? sqlite3_errmsg(db) : "out of memory";
        sqlite3_close(db);
        throw std::runtime_error("demo database: cannot create " + path + ": " + message);
    }
    try {
        Exec(db, "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;");
        Exec(db, "BEGIN");
        const std::vector<std::string> indexes = CreateTablesOnly(db);
        DemoWriter(db, builder).WriteAll();
        for (const auto& statement : indexes) Exec(db, statement.c_str());
        Exec(db, "COMMIT");
        // Statistics for the planner: the reports' joins pick the selective index only with them
        // (a 12-month reconciliation on 200,000 invoices runs about a third faster).
        Exec(db, "ANALYZE");
    } catch (...) {
        sqlite3_close(db);
        std::filesystem::remove(path, ignored);
        throw;
    }
    sqlite3_close(db);
}

} // namespace quillon
