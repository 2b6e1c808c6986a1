// draft.h — model layer, demo data: a bill as drafted, before it gets its ID, lot and number.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/demo/calendar.h"
#include "model/demo/catalogue.h"
#include "model/demo/money.h"

namespace quillon::demo {

using OptText = std::optional<std::string>;

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
    int runLength = 0; // on the first bill of a batch: the bills that take one run of numbers with it
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

// Paid through a payment platform ("微信", "微信支付", "支付宝").
bool IsOnline(const OptText& mode);

} // namespace quillon::demo
