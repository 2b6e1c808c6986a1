// office_state.h — model layer, demo data: what the generator knows of one management office while
// it drafts bills: its rooms and owners, parking spaces and registrations, staff, and what it bills.
#pragma once

#include <string>
#include <vector>

#include "model/demo/calendar.h"

namespace quillon::demo {

struct Room {
    int roomId;
    int ownerId;
    std::string owner;
    std::string address; // building address, room and "室"
    int area;            // square metres
};

struct Holder {
    int id;
    std::string name;
};

struct OfficeState {
    std::vector<Room> rooms;
    std::vector<Holder> spaces;        // 车位说明表
    std::vector<Holder> registrations; // 车位申请登记表
    std::vector<std::string> takers, writers;
    std::vector<int> invoiceItems, invoiceWeights; // items on invoices, first line
    std::vector<int> receiptItems, receiptWeights; // items on receipts, first line
    std::vector<int> typeWeights;
    int endDay = kLastDay; // last day it issues bills
};

} // namespace quillon::demo
