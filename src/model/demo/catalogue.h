// catalogue.h — model layer, demo data: the company's fixed catalogues: departments and their
// links, management offices, invoice types, charge items and the list of payment modes.
#pragma once

#include <span>

namespace quillon::demo {

struct DeptDef {
    const char* code;
    const char* name;
    const char* ended;
};

struct LinkDef {
    const char* dept;
    const char* parent;
    const char* ended;
};

enum class OfficeKind { Residential, Commercial, Parking };

struct OfficeDef {
    const char* code;
    const char* name;
    const char* dept;
    const char* ended;
    OfficeKind kind;
    const char* estate; // 地址1 of its buildings
    int feePerM2;       // management fee in cents per square metre and month
    int weight;         // share of the invoices
};

struct TypeDef {
    const char* code;
    const char* name;
    int fixedValue;   // 定额
    const char* kind; // 类别
    const char* lotPrefix;
    const char* invoiceCode; // 发票代码, nullptr for none
    bool longNumber;         // 20-digit numbers of fully electronic invoices
};

// Positions in kTypes.
enum TypeIx { kSpecial, kOrdinary, kOrdinaryE, kFullE, kElectronic, kReceipt, kFixed, kFullESpecial };

struct ItemDef {
    const char* code;
    const char* name;
    const char* category;
    const char* display;
    int rate; // percent
    bool monthly;
    bool ledger; // charged through the ledger WYZJ
};

// Positions in kItems.
enum ItemIx {
    kMgmtFee,
    kShopFee,
    kWater,
    kPower,
    kParkMonthly,
    kParkTemp,
    kSpaceFee,
    kFund,
    kDeposit,
    kPowerLoss,
    kService,
    kRent
};

extern const std::span<const DeptDef> kDepartments;
extern const std::span<const LinkDef> kLinks;
extern const std::span<const OfficeDef> kOffices;
extern const std::span<const TypeDef> kTypes;
extern const std::span<const ItemDef> kItems;
extern const std::span<const char* const> kPaymentModes; // 收款方式列表

inline constexpr int kOfficeCount = 11;
inline constexpr int kTypeCount = 8;
inline constexpr int kItemCount = 12;

bool IsParkingItem(int item);

} // namespace quillon::demo
