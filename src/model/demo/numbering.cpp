// numbering.cpp — model layer, demo data: IDs, lots and invoice numbers of the drafted bills.
#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <utility>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"

namespace quillon::demo {

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
        const Civil c = CivilFromDays(calendar_.Day(d.issueDay)); // lots are named for the year written
        // A batch takes one run of numbers: a lot too short for it is left with its last numbers
        // unused.
        if (ls.next == ls.end || ls.end - ls.next < d.runLength) {
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

} // namespace quillon::demo
