// catalogue.cpp — model layer, demo data: the rows of the fixed catalogues.
#include "model/demo/catalogue.h"

#include <iterator>

namespace quillon::demo {

namespace {

// Codes of several lengths, so that lists ordered by length first differ from plain order.
constexpr DeptDef kDepartmentTable[] = {
    {"01", "总公司", nullptr},
    {"0101", "华南事业部", nullptr},
    {"0102", "华东事业部", nullptr},
    {"0103", "华北事业部", "2025-06-30"},
    {"0104", "停车场运营部", nullptr},
    {"0105", "临时停车项目部", nullptr},
    {"010101", "天河物业服务中心", nullptr},
    {"010102", "海珠物业服务中心", nullptr},
    {"010103", "番禺物业服务中心", nullptr},
    {"010201", "浦东物业服务中心", nullptr},
    {"010202", "徐汇物业服务中心", nullptr},
    {"010301", "朝阳物业服务中心", nullptr},
    {"09", "行政人事部", nullptr}, // no office: never in a department list
};
constexpr LinkDef kLinkTable[] = {
    {"0101", "01", nullptr},          {"0102", "01", nullptr},
    {"0103", "01", nullptr},          {"0104", "01", nullptr},
    {"0105", "0104", nullptr},        {"010101", "0101", nullptr},
    {"010102", "0101", nullptr},      {"010103", "0102", "2024-03-31"}, // moved from 华东 to 华南
    {"010103", "0101", nullptr},      {"010201", "0102", nullptr},
    {"010202", "0102", "2025-06-30"}, // its only link has ended
    {"010301", "0103", nullptr},      // parent department has ended
};
constexpr OfficeDef kOfficeTable[] = {
    {"1", "天河花园管理处", "010101", nullptr, OfficeKind::Residential, "天河花园", 320, 14},
    {"12", "天河 商铺管理处", "010101", nullptr, OfficeKind::Commercial, "天河商业街", 0, 4},
    {"2", "江景豪庭管理处", "010102", nullptr, OfficeKind::Residential, "江景豪庭", 380, 11},
    {"3", "海珠商业广场管理处", "010102", nullptr, OfficeKind::Commercial, "海珠商业广场", 0, 8},
    {"4", "番禺雅苑\r\n管理处", "010103", nullptr, OfficeKind::Residential, "番禺雅苑", 260, 10},
    {"5", "金桥新城管理处", "010201", nullptr, OfficeKind::Residential, "金桥新城", 450, 11},
    {"6", "滨江苑管理处", "010202", nullptr, OfficeKind::Residential, "滨江苑", 420, 8},
    {"7", "国贸公寓管理处", "010301", nullptr, OfficeKind::Residential, "国贸公寓", 500, 7},
    {"8", "华北旧址管理处", "0103", nullptr, OfficeKind::Residential, "华北小区", 220, 3},
    {"10", "中心停车场管理处", "0104", nullptr, OfficeKind::Parking, nullptr, 0, 12},
    {"9", "临时停车场管理处", "0105", "2024-09-30", OfficeKind::Parking, nullptr, 0, 3},
};
constexpr TypeDef kTypeTable[] = {
    {"01", "增值税专用发票", 0, "发票", "ZY", "01", false},
    {"02", "增值税普通发票", 0, "发票", "PT", "04", false},
    {"03", "增值税普通发票(电子)", 0, "发票", "PD", "10", false},
    {"04", "全电发票", 0, "发票", "QD", nullptr, true},
    {"05", "电子发票", 0, "发票", "DZ", "11", false},
    {"06", "收据", 0, "收据", "SJ", nullptr, false},
    {"07", "停车定额发票", 1, "发票", "DE", "144001900111", false},
    {"08", "全电发票（增值税专用发票）", 0, "发票", "QZ", nullptr, true},
};
// Names hold "(", "（" and "%", which the reports strip to make column names.
constexpr ItemDef kItemTable[] = {
    {"001", "物业管理费", "物业服务", "物业服务费", 6, true, true},
    {"002", "商铺管理费(含空调)", "物业服务", nullptr, 6, true, true},
    {"003", "代收水费（居民）", "代收代付", "水费", 3, true, true},
    {"004", "代收电费", "代收代付", "电费", 13, true, true},
    {"005", "停车费（月租）", "停车服务", "月租停车费", 9, true, true},
    {"006", "临时停车费", "临时停车", nullptr, 3, false, false},
    {"007", "车位管理费", "停车管理", nullptr, 6, true, true},
    {"008", "维修基金", "代收代付", nullptr, 0, false, true},
    {"009", "装修押金", "押金", nullptr, 0, false, false},
    {"010", "公共电损分摊(10%)", "能源", "电损分摊", 13, true, true},
    {"011", "有偿服务费", "经营服务", nullptr, 6, false, false},
    {"012", "场地租金", "租赁", nullptr, 9, true, true},
};
constexpr const char* kPaymentModeTable[] = {"现金", "银行转账", "POS刷卡", "微信支付", "支付宝", "托收"};

} // namespace

const std::span<const DeptDef> kDepartments{kDepartmentTable};
const std::span<const LinkDef> kLinks{kLinkTable};
const std::span<const OfficeDef> kOffices{kOfficeTable};
const std::span<const TypeDef> kTypes{kTypeTable};
const std::span<const ItemDef> kItems{kItemTable};
const std::span<const char* const> kPaymentModes{kPaymentModeTable};

static_assert(std::size(kOfficeTable) == kOfficeCount);
static_assert(std::size(kTypeTable) == kTypeCount);
static_assert(std::size(kItemTable) == kItemCount);

bool IsParkingItem(int item) {
    return item == kParkMonthly || item == kParkTemp || item == kSpaceFee;
}

} // namespace quillon::demo
