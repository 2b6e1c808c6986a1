// bills.cpp — model layer, demo data: one bill drafted: its type, lines, payer, staff, mode and
// payment.
#include <algorithm>
#include <string>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"
#include "model/demo/names.h"

namespace quillon::demo {

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
            for (int m : line.months) s += calendar_.YearMonth(m) + ",";
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
    case Scenario::PaidAfterYearEnd: {
        // Pre-invoiced, and paid only after the year closed (by the day the data were taken).
        d.preInvoice = 1;
        const int yearEnd = LastDayOfYear(day);
        d.paidDay = yearEnd + static_cast<int>(rng_.Int(1, std::min(60, kCutDay - yearEnd)));
        break;
    }
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
        d.orderNo = OrderNumber(*d.mode, *d.paidDay);
    } else {
        d.orderNo.reset();
    }
}

std::string DemoBuilder::OrderNumber(const std::string& mode, int day) {
    return mode == "支付宝" ? calendar_.Date(day).substr(0, 4) + Digits(rng_, 24) : "4200" + Digits(rng_, 24);
}

} // namespace quillon::demo
