// builder.h — model layer, demo data: DemoBuilder drafts the company's property and two years of
// bills in memory, each bill by a scenario that the reports treat on their own, then numbers them.
// The writer stores what it built.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "model/demo/calendar.h"
#include "model/demo/draft.h"
#include "model/demo/office_state.h"
#include "model/demo/rng.h"
#include "model/demo/scenario.h"

namespace quillon::demo {

class DemoBuilder {
public:
    // shiftMonths: how far the books are moved on their way out (BookCalendar).
    DemoBuilder(unsigned seed, int shiftMonths) : rng_(seed), calendar_(shiftMonths) {}

    void BuildProperty();
    void BuildInvoices(int count);
    void NumberInvoices();

    Rng rng_;
    const BookCalendar calendar_; // every date text written goes through it
    int monthlyLines_ = 0, onlineParking_ = 0, openBills_ = 0;
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
    void MakeParkingBatch(Scenario s, int office, int day, int remaining);
    // A parking item the office bills, by its weight among them.
    int PickParkingItem(int office);
    // The payment platform's order number of an online payment.
    std::string OrderNumber(const std::string& mode, int day);
    std::string Address(const Building& b, const std::string& room) const;
};

} // namespace quillon::demo
