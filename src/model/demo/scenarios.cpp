// scenarios.cpp — model layer, demo data: which bills are drafted, the showcase first, then
// scenarios drawn by weight, and how each scenario drafts its bill and its partner.
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"
#include "model/demo/names.h"
#include "model/demo/showcase.h"

namespace quillon::demo {

namespace {

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
    {Scenario::PaidAfterYearEnd, 150},
    {Scenario::OpenParkingTwoItems, 40},
    {Scenario::OpenNullTaxLine, 20},
    {Scenario::OpenExchange, 20},
    {Scenario::OpenSpecialByFullE, 20},
    {Scenario::ParkingBatch, 120},
    {Scenario::ParkingBatchWeChat, 30},
    {Scenario::ParkingBatchTwoTimes, 40},
};

// The plain scenario that a scenario of a bill still open at the year end is drafted as.
Scenario ShapeOf(Scenario s) {
    switch (s) {
    case Scenario::OpenParkingTwoItems:
        return Scenario::Ordinary;
    case Scenario::OpenNullTaxLine:
        return Scenario::NullTaxLine;
    case Scenario::OpenExchange:
        return Scenario::InternalExchange;
    case Scenario::OpenSpecialByFullE:
        return Scenario::ReplaceSpecialByFullE;
    default:
        return s;
    }
}

bool IsPair(Scenario s) {
    return s == Scenario::Negative || s == Scenario::VoidedNegative || s == Scenario::InternalExchange ||
           s == Scenario::ReplaceSpecialByFullE || s == Scenario::ReplaceOrdinaryByFullE ||
           s == Scenario::ReplaceSameType || s == Scenario::SameNumberTwoLots;
}

bool IsBatch(Scenario s) {
    return s == Scenario::ParkingBatch || s == Scenario::ParkingBatchWeChat ||
           s == Scenario::ParkingBatchTwoTimes;
}

} // namespace

// Drafts one bill of the scenario, with its partner where the scenario has one.
void DemoBuilder::Make(Scenario s, int office, int day, int remaining) {
    if (IsBatch(s)) return MakeParkingBatch(s, office, day, remaining);
    // Parking lines need a registration or a space to bill, which shops have not.
    if (s == Scenario::OpenParkingTwoItems && kOffices[office].kind == OfficeKind::Commercial)
        s = Scenario::NeverPaidFlagged;
    const bool twoParkingItems = s == Scenario::OpenParkingTwoItems;
    const bool open = ShapeOf(s) != s; // still open when the year closed
    s = ShapeOf(s);
    const bool pair = IsPair(s);
    if (pair && remaining < 2) s = Scenario::Ordinary;
    const int end = offices_[office].endDay;
    if (day > end) day = static_cast<int>(rng_.Int(kFirstDay, end));
    if (pair) {
        // A partner comes up to a month later, so leave it room before the office ends, and for a
        // bill open at the year end, before the year ends.
        const int last = open ? std::min(end, LastDayOfYear(day)) : end;
        const int from = open ? FirstDayOfYear(day) : kFirstDay;
        if (day > last - 40) day = static_cast<int>(rng_.Int(from, last - 40));
    }
    if (s == Scenario::PaidAfterYearEnd) {
        // Pre-invoiced late in the year.
        const int last = std::min(end, LastDayOfYear(day));
        if (day < last - 60) day = last - static_cast<int>(rng_.Int(0, 60));
    }

    int type = -1;
    if (s == Scenario::ReplaceSpecialByFullE) type = kSpecial;
    if (s == Scenario::ReplaceOrdinaryByFullE || s == Scenario::SameNumberTwoLots) type = kOrdinary;
    if (s == Scenario::NullTaxLine) type = kOrdinary;
    int firstItem = -1;
    if (twoParkingItems) {
        type = day >= DaysFromCivil(2025, 1, 1) ? kFullE : kOrdinary;
        firstItem = offices_[office].registrations.empty() ? kSpaceFee : kParkMonthly;
    }
    if (s == Scenario::FundReceipt && kOffices[office].kind == OfficeKind::Residential) {
        type = kReceipt; // the maintenance fund is taken on receipts, by estates only
        firstItem = kFund;
    }
    Draft d = Fresh(office, day, type, firstItem);
    if (s == Scenario::ModeWeChat) d.mode = "微信";
    if (s == Scenario::ModeWeChatPay) d.mode = "微信支付";
    if (s == Scenario::ModeNotInList) d.mode = "代金券";
    if (s == Scenario::ModeCash) d.mode = "现金";
    if (twoParkingItems) // the space's fee billed with the monthly parking, or the other way round
        d.lines.push_back(
            MakeLine(office, d.type, firstItem == kParkMonthly ? kSpaceFee : kParkMonthly, d.issueDay, 0));
    // A bill open at the year end is either paid in the next year or never, by turns.
    SetPayment(d, !open ? s : openBills_++ % 2 ? Scenario::PaidAfterYearEnd : Scenario::NeverPaidFlagged);

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
        // The money was taken once, on the first bill; the new bill takes its place and names it.
        p.paidDay = d.paidDay;
        p.paidSecond = d.paidSecond;
        p.replaces = static_cast<int>(first);
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
    // The showcase first, so that a small demo database holds it all; the rest is drawn at random.
    const std::vector<ShowcaseEntry> showcase = ShowcaseEntries();
    std::vector<int> scenarioWeights;
    int rest = 10000;
    for (const auto& sw : kScenarioWeights) {
        scenarioWeights.push_back(sw.weight);
        rest -= sw.weight;
    }
    scenarioWeights.push_back(rest);

    drafts_.reserve(static_cast<std::size_t>(count) + 2);
    for (std::size_t i = 0; static_cast<int>(drafts_.size()) < count; ++i) {
        int day = static_cast<int>(rng_.Int(kFirstDay, kLastDay));
        const int remaining = count - static_cast<int>(drafts_.size());
        if (i < showcase.size()) {
            const ShowcaseEntry& e = showcase[i];
            if (e.year) day = DaysFromCivil(e.year, 1, 1) + (day - kFirstDay) % 365;
            Make(e.scenario, e.office, day, remaining);
        } else {
            const int pick = rng_.Weighted(scenarioWeights);
            const Scenario s = pick < static_cast<int>(std::size(kScenarioWeights)) ? kScenarioWeights[pick].s
                                                                                    : Scenario::Ordinary;
            Make(s, PickOffice(), day, remaining);
        }
    }
}

} // namespace quillon::demo
