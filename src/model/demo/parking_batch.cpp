// parking_batch.cpp — model layer, demo data: parking bills written in one go at the counter and
// collected together, as the parking-fee detail folds them into one row: one lot, one run of
// numbers, one collection time (or two) on the day of issue.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"

namespace quillon::demo {

int DemoBuilder::PickParkingItem(int office) {
    const OfficeState& st = offices_[office];
    std::vector<int> items, weights;
    for (std::size_t i = 0; i < st.invoiceItems.size(); ++i) {
        if (!IsParkingItem(st.invoiceItems[i])) continue;
        items.push_back(st.invoiceItems[i]);
        weights.push_back(st.invoiceWeights[i]);
    }
    return items[static_cast<std::size_t>(rng_.Weighted(weights))];
}

void DemoBuilder::MakeParkingBatch(Scenario s, int office, int day, int remaining) {
    const int end = offices_[office].endDay;
    if (day > end) day = static_cast<int>(rng_.Int(kFirstDay, end));
    const bool twoTimes = s == Scenario::ParkingBatchTwoTimes;
    const int count =
        static_cast<int>(std::min<std::int64_t>(remaining, rng_.Int(twoTimes ? 4 : 3, twoTimes ? 6 : 5)));
    const int type = PickType(office, day);
    // Fixed-value books are for short-stay parking only.
    const int item = type == kFixed ? kParkTemp : PickParkingItem(office);
    // Written in the morning; the first collection follows within the hour, a second one in the
    // afternoon by another mode.
    const int issueSecond = static_cast<int>(rng_.Int(8 * 3600 + 1800, 11 * 3600 + 1800));
    const int firstPaid = issueSecond + static_cast<int>(rng_.Int(300, 3600));
    const int secondPaid = static_cast<int>(rng_.Int(14 * 3600, 20 * 3600));
    OptText firstMode, secondMode;
    for (int i = 0; i < count; ++i) {
        Draft b = Fresh(office, day, type, item);
        if (i == 0) {
            firstMode = s == Scenario::ParkingBatchWeChat ? std::string("微信") : b.mode;
            secondMode = firstMode == "现金" ? "支付宝" : "现金";
            b.runLength = count;
        }
        const bool later = twoTimes && i >= count / 2;
        b.issueSecond = issueSecond;
        b.mode = later ? secondMode : firstMode;
        b.paidDay = b.issueDay;
        b.paidSecond = later ? secondPaid : firstPaid;
        if (IsOnline(b.mode)) b.orderNo = OrderNumber(*b.mode, *b.paidDay);
        Add(b);
    }
}

} // namespace quillon::demo
