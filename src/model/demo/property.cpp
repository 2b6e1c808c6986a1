// property.cpp — model layer, demo data: the offices' buildings, rooms, owners, parking spaces,
// registrations and staff, and what each kind of office bills.
#include <algorithm>
#include <string>

#include "model/demo/builder.h"
#include "model/demo/catalogue.h"
#include "model/demo/names.h"

namespace quillon::demo {

std::string DemoBuilder::Address(const Building& b, const std::string& room) const {
    std::string s;
    for (const auto* piece : {&b.a1, &b.z1, &b.a2, &b.z2, &b.a3, &b.z3, &b.a4, &b.z4})
        if (*piece) s += **piece;
    return s + room + "室";
}

void DemoBuilder::BuildProperty() {
    offices_.resize(kOfficeCount);
    for (int o = 0; o < kOfficeCount; ++o) {
        const OfficeDef& def = kOffices[o];
        OfficeState& st = offices_[o];
        if (def.ended) st.endDay = DayOf(def.ended);
        for (const auto& dept : kDepartments)
            if (std::string(dept.code) == def.dept && dept.ended)
                st.endDay = std::min(st.endDay, DayOf(dept.ended));
        for (int i = 0; i < 3; ++i) st.takers.push_back(PersonName(rng_));
        for (int i = 0; i < 2; ++i) st.writers.push_back(PersonName(rng_));

        // Buildings, rooms and owners.
        if (def.kind == OfficeKind::Residential) {
            const bool phases = o % 2 == 1; // some estates are built in phases
            const int nb = static_cast<int>(rng_.Int(4, 8));
            for (int b = 1; b <= nb; ++b) {
                Building bd{nextBuildingId_++, def.code, def.estate, {}, {}, {}, {}, {}, {}, {}};
                const int units = static_cast<int>(rng_.Int(1, 2));
                if (phases) {
                    bd.a2 = b <= nb / 2 ? "一" : "二";
                    bd.z2 = "期";
                    bd.a3 = std::to_string(b);
                    bd.z3 = "栋";
                } else {
                    bd.a2 = std::to_string(b);
                    bd.z2 = "栋";
                }
                buildings_.push_back(bd);
                const int floors = static_cast<int>(rng_.Int(6, 12));
                const int perFloor = static_cast<int>(rng_.Int(2, 4));
                for (int u = 1; u <= units; ++u) {
                    for (int f = 1; f <= floors; ++f) {
                        for (int r = 1; r <= perFloor; ++r) {
                            // Multi-unit buildings name the unit in the room number.
                            std::string room = (units > 1 ? std::to_string(u) + "-" : std::string()) +
                                               std::to_string(f * 100 + r);
                            Room rm{nextRoomId_++, nextOwnerId_++, PersonName(rng_), Address(bd, room),
                                    static_cast<int>(rng_.Int(60, 180))};
                            roomRows_.push_back({rm.roomId, bd.id, room});
                            ownerRows_.push_back({rm.ownerId, rm.roomId, rm.owner});
                            st.rooms.push_back(std::move(rm));
                        }
                    }
                }
            }
        } else if (def.kind == OfficeKind::Commercial) {
            Building bd{nextBuildingId_++, def.code, def.estate, {}, "A", "座", {}, {}, {}, {}};
            buildings_.push_back(bd);
            const int shops = static_cast<int>(rng_.Int(30, 60));
            for (int s = 1; s <= shops; ++s) {
                std::string room = std::to_string(100 * rng_.Int(1, 3) + s);
                Room rm{nextRoomId_++, nextOwnerId_++, FirmName(rng_, "广州市"), Address(bd, room),
                        static_cast<int>(rng_.Int(40, 300))};
                roomRows_.push_back({rm.roomId, bd.id, room});
                ownerRows_.push_back({rm.ownerId, rm.roomId, rm.owner});
                st.rooms.push_back(std::move(rm));
            }
        }

        // Parking spaces and registrations.
        if (def.kind != OfficeKind::Commercial) {
            const bool park = def.kind == OfficeKind::Parking;
            const int spaces = static_cast<int>(park ? rng_.Int(150, 220) : rng_.Int(40, 80));
            for (int s = 0; s < spaces; ++s) {
                std::string holder = !st.rooms.empty() && rng_.Chance(0.6) ? rng_.Pick(st.rooms).owner
                                     : rng_.Chance(0.5)                    ? kDeveloper
                                                                           : PersonName(rng_);
                st.spaces.push_back({nextSpaceId_, holder});
                spaceRows_.push_back({nextSpaceId_++, holder, def.code});
            }
            const int regs = static_cast<int>(park ? rng_.Int(120, 160) : rng_.Int(30, 60));
            for (int r = 0; r < regs; ++r) {
                std::string name = PersonName(rng_);
                st.registrations.push_back({nextRegId_, name});
                regRows_.push_back({nextRegId_++, name, def.code});
            }
        }

        // What the office bills, with weights for the first line of a bill.
        auto add = [](std::vector<int>& items, std::vector<int>& weights, int item, int w) {
            items.push_back(item);
            weights.push_back(w);
        };
        switch (def.kind) {
        case OfficeKind::Residential:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kMgmtFee, 40);
                add(*list, w, kWater, 12);
                add(*list, w, kPower, 12);
                add(*list, w, kPowerLoss, 4);
                add(*list, w, kService, 6);
                add(*list, w, kParkMonthly, 8);
                add(*list, w, kParkTemp, 5);
                add(*list, w, kSpaceFee, 7);
                if (std::string(def.code) == "7") add(*list, w, kRent, 6);
            }
            add(st.receiptItems, st.receiptWeights, kFund, 10);
            add(st.receiptItems, st.receiptWeights, kDeposit, 8);
            st.typeWeights = {4, 26, 6, 24, 14, 20, 2, 1};
            break;
        case OfficeKind::Commercial:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kShopFee, 40);
                add(*list, w, kPower, 15);
                add(*list, w, kPowerLoss, 6);
                add(*list, w, kService, 8);
                add(*list, w, kRent, 20);
                add(*list, w, kParkTemp, 4);
            }
            add(st.receiptItems, st.receiptWeights, kDeposit, 10);
            st.typeWeights = {30, 12, 3, 15, 5, 8, 1, 12};
            break;
        case OfficeKind::Parking:
            for (auto* list : {&st.invoiceItems, &st.receiptItems}) {
                auto& w = list == &st.invoiceItems ? st.invoiceWeights : st.receiptWeights;
                add(*list, w, kParkMonthly, 40);
                add(*list, w, kParkTemp, 35);
                add(*list, w, kSpaceFee, 25);
            }
            st.typeWeights = {1, 8, 4, 30, 25, 7, 25, 0};
            break;
        }
    }
}

} // namespace quillon::demo
