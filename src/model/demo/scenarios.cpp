// scenarios.cpp — model layer, demo data: which bills are drafted: a showcase of every scenario in
// a few offices, then scenarios drawn by weight.
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"
#include "model/demo/names.h"

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
};

} // namespace

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

} // namespace quillon::demo
