// showcase.cpp — model layer, demo data: the showcase drafts.
#include "model/demo/showcase.h"

namespace quillon::demo {

namespace {

// Offices by position in kOffices.
constexpr int kTianhe = 0;         // "1", residential, department 010101
constexpr int kJiangjing = 2;      // "2", residential, department 010102
constexpr int kHaizhuShops = 3;    // "3", commercial, department 010102
constexpr int kJinqiao = 5;        // "5", residential, department 010201
constexpr int kHuabeiOld = 8;      // "8", of department 0103, which ended
constexpr int kCarPark = 9;        // "10", car park, department 0104
constexpr int kShortStayPark = 10; // "9", car park of department 0105, ended 2024-09-30

} // namespace

std::vector<ShowcaseEntry> ShowcaseEntries() {
    std::vector<ShowcaseEntry> list;
    // Every scenario of a single bill or a pair at least once in a residential, a commercial and a
    // parking office.
    const Scenario each[] = {Scenario::Ordinary,
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
    for (Scenario s : each)
        for (int o : {kTianhe, kHaizhuShops, kCarPark}) list.push_back({s, o, 0});
    list.push_back({Scenario::SameNumberTwoLots, kTianhe, 0});
    // Parking bills paid online, with and without an order number, come from the car park.
    for (int i = 0; i < 6; ++i)
        list.push_back({i % 2 ? Scenario::ModeWeChat : Scenario::ModeWeChatPay, kCarPark, 0});
    // Offices that ended still issued bills while they were open.
    list.push_back({Scenario::Ordinary, kHuabeiOld, 0});
    list.push_back({Scenario::Ordinary, kShortStayPark, 0});

    for (int year : {2024, 2025}) {
        // The pre-invoice detail of a year: bills still open at its end, beside bills paid in it,
        // voided and exchanged ones, for estates and the car park.
        for (int o : {kTianhe, kJiangjing, kJinqiao, kCarPark})
            for (Scenario s : {Scenario::PaidAfterYearEnd, Scenario::NeverPaidFlagged,
                               Scenario::OpenParkingTwoItems, Scenario::OpenNullTaxLine, Scenario::Voided,
                               Scenario::OpenExchange, Scenario::OpenSpecialByFullE, Scenario::Ordinary})
                list.push_back({s, o, year});
        // The parking-fee detail of a year: batches collected at the car parks and the estates.
        for (int o : {kCarPark, kShortStayPark, kTianhe, kJiangjing, kJinqiao}) {
            if (o == kShortStayPark && year > 2024) continue;
            list.push_back({Scenario::ParkingBatchWeChat, o, year});
            list.push_back({Scenario::ParkingBatchTwoTimes, o, year});
        }
        // The invoice detail's maintenance-fund form.
        for (int o : {kTianhe, kJinqiao}) list.push_back({Scenario::FundReceipt, o, year});
    }
    return list;
}

} // namespace quillon::demo
