// The parking-fee detail's statements, written out in full: a typo in a generated statement
// would otherwise only show as wrong figures on a real server.
#include <gtest/gtest.h>

#include "parking/parking_window.h"
#include "support/split_fixture.h"

namespace quillon {
namespace {

TEST(ParkingStatements, ChargeItemQueryTakesParkingItemsInvoicedInTheRange) {
    EXPECT_EQ(ParkingChargeItemQuery("20240301", "20240331", "0104"),
              "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 From 票据 "
              "inner join 票据开票数据 on 票据.票据编号  =票据开票数据.票据编号 And 票据.入库单编号 = "
              "票据开票数据.入库单编号 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 "
              "inner join setupsfxm on 收费项目代号=dh where "
              "CONVERT(char(8),开票日期,112) between '20240301' and '20240331' "
              "and 作废日期 is null  And 开票部门编号 ='0104' And 收费类别 Like '%停车%' "
              "group by  setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 order by 收费项目代号");
}

TEST(ParkingStatements, DetailQueryWithTwoItemsSplitDifferently) {
    SplitFixture f({kMonthlyParking, kShortStayParking});
    f.grid.SetTextMatrix(2, kSplitPropertyCol, "33.5");

    // The share multiplies each line inside the sum; the bills go by their collection date.
    EXPECT_EQ(ParkingDetailQuery(f.items, f.split, "20240301", "20240331", "0104"),
              "Select 票据.票据编号 ,票据.入库单编号 ,  收款日期, 票据.金额, 收款方式, 交易订单号  "
              ",B1.停车费月租KFS ,B1.停车费月租WY , B1.停车费月租税额 ,B2.临时停车费KFS "
              ",B2.临时停车费WY , B2.临时停车费税额 From 票据 inner join 票据入库单 on "
              "票据.入库单编号 =票据入库单.入库单编号 LEFT Join (Select "
              "sum((票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
              "票据开票数据.税额 End)) * 0.3) as 停车费月租WY, sum(票据开票数据.金额-(Case When "
              "票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 End)) As 停车费月租KFS, "
              "sum(票据开票数据.税额) as 停车费月租税额, 票据开票数据.票据编号 From 票据开票数据 Inner "
              "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = "
              "票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Where "
              "作废日期 Is Null  And Convert(Char(8),收款日期,112) Between "
              "'20240301' And '20240331' And 收费项目代号 in ('P1') And 开票部门编号 "
              "='0104' group by 票据开票数据.票据编号 ) B1 On 票据.票据编号 = B1.票据编号 LEFT "
              "Join (Select sum((票据开票数据.金额-(Case When 票据开票数据.税额 Is Null "
              "Then 0 Else 票据开票数据.税额 End)) * 0.335) as 临时停车费WY, "
              "sum(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
              "票据开票数据.税额 End)) As 临时停车费KFS, sum(票据开票数据.税额) as 临时停车费税额, "
              "票据开票数据.票据编号 From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  "
              "=票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join 票据入库单 on "
              "票据开票数据.入库单编号 =票据入库单.入库单编号 Where 作废日期 Is Null  And "
              "Convert(Char(8),收款日期,112) Between '20240301' And '20240331' "
              "And 收费项目代号 in ('P2') And 开票部门编号 ='0104' group by "
              "票据开票数据.票据编号 ) B2 On 票据.票据编号 = B2.票据编号 Where 票据.开票部门编号 "
              "='0104' And 内换日期 Is Null And (停车费月租KFS Is Not Null Or "
              "临时停车费KFS Is Not Null) And Convert(Char(8),收款日期,112) Between "
              "'20240301' And '20240331' Order by 收款日期, 票据.入库单编号, 票据.票据编号, "
              "金额 ");
}

} // namespace
} // namespace quillon
