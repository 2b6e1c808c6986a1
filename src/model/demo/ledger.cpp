// ledger.cpp — model layer, demo data: the charge ledger WYZJ and the income vouchers with their
// attachments, following the bills that settled the charges.
#include <string>

#include "model/demo/catalogue.h"
#include "model/demo/writer.h"

namespace quillon::demo {

std::int64_t DemoWriter::NewVoucher(int day, bool refund, const std::string& mode) {
    Voucher v{static_cast<std::int64_t>(vouchers_.size()) + 1, std::nullopt, 0, refund ? "退款" : mode};
    const int approveDay = day + static_cast<int>(b_.rng_.Int(1, 6));
    // Most vouchers are approved; a steady few wait or are turned down.
    const std::size_t n = vouchers_.size();
    if (approveDay > kCutDay || n % 13 == 7) {
        // still waiting for approval
    } else if (n % 23 == 4) { // looked at and turned down
        v.approved = b_.calendar_.Date(approveDay);
    } else {
        v.approved = b_.calendar_.Date(approveDay);
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
        ledger_->Bind(b_.calendar_.Date(*paidDay));
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
                LedgerRow(owner, reg, space, l.item, b_.calendar_.YearMonth(l.months[m]), part, l.rate,
                          d.paidDay, d.taker, d.mode, d.lot, d.number);
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
                          b_.calendar_.YearMonth(MonthIndex(day) + m), fee, kItems[kParkMonthly].rate, day,
                          taker, std::string("现金"), std::string(), std::string());
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
                LedgerRow(room.ownerId, std::nullopt, std::nullopt, item, b_.calendar_.YearMonth(m), fee,
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

} // namespace quillon::demo
