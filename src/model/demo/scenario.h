// scenario.h — model layer, demo data: the situations a drafted bill (with its partner or batch)
// stands for; each is a case the reports treat on their own.
#pragma once

namespace quillon::demo {

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
    // Pre-invoices still open when the year closed: paid in the next year or never.
    PaidAfterYearEnd,
    OpenParkingTwoItems, // lines of two parking items
    OpenNullTaxLine,     // an invoice line without tax
    OpenExchange,        // exchanged internally, the new bill open too
    OpenSpecialByFullE,  // a 全电发票 replacing a 增值税专用发票, both open
    // Parking bills written in one go and collected together: one lot, one run of numbers.
    ParkingBatch,         // collected at one time
    ParkingBatchWeChat,   // collected at one time, recorded as "微信"
    ParkingBatchTwoTimes, // collected at two times of one day, by two modes
};

} // namespace quillon::demo
