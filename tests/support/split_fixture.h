// split_fixture.h — test support for the statements of the detail reports: a split table filled
// from some charge items, as an extraction leaves it, and the items the statement tests use.
#pragma once

#include "controls/flex_grid.h"
#include "controls/scripted_dialogs.h"
#include "controls/text_box.h"
#include "workbench/split_ratio_table.h"

namespace quillon {

inline const ChargeItem kMonthlyParking{.CodeLiteral = "'P1'",
                                        .ColumnName = "停车费月租",
                                        .TaxRate = 0.09,
                                        .Category = "停车服务",
                                        .TaxColumnName = "停车费月租税额"};
inline const ChargeItem kShortStayParking{.CodeLiteral = "'P2'",
                                          .ColumnName = "临时停车费",
                                          .TaxRate = 0.03,
                                          .Category = "临时停车",
                                          .TaxColumnName = "临时停车费税额"};
inline const ChargeItem kFundItem{
    .CodeLiteral = "'WX'", .ColumnName = "维修基金", .Category = "代收", .TaxColumnName = "维修基金税额"};
inline const ChargeItem kManagementFee{.CodeLiteral = "'WY'",
                                       .ColumnName = "物业管理费住宅",
                                       .TaxRate = 0.06,
                                       .Category = "物业",
                                       .TaxColumnName = "物业管理费住宅税额"};

struct SplitFixture {
    explicit SplitFixture(const ChargeItemColumns& charged) : items(charged) {
        split.InitGrid();
        split.FillSplitRatioTable(items);
    }

    ChargeItemColumns items;
    FlexGrid grid;
    TextBox box;
    ScriptedDialogs dialogs;
    SplitRatioTable split{grid, box, dialogs};
};

} // namespace quillon
