// The two stages of the pre-invoice detail: the checks of Command3, what each stage leaves
// enabled, the title, and the ends of a run without rows or with a failure.
#include "base/vb_error.h"
#include "controls/screen.h"
#include "preinvoice_rig.h"

namespace quillon {
namespace {

TEST_F(PreInvoiceTest, ExtractionChecksAndTheirMessages) {
    struct Case {
        const char* why;
        bool pickDepartment;
        DateTime from, to;
        const char* message;
        bool command6;
    };
    const Case cases[] = {
        {"no department", false, Day(2024, 1, 1), Day(2024, 3, 31), "请先选择统计部门!", false},
        {"end before start", true, Day(2024, 3, 1), Day(2024, 2, 29), "截至日期不能小于开始日期!", false},
        {"a range without pre-invoices", true, Day(2022, 1, 1), Day(2022, 12, 31),
         "没有满足条件的预开票数据,请重新设置条件!", false},
        {"items found", true, Day(2024, 1, 1), Day(2024, 3, 31), nullptr, true},
    };
    AddPreInvoiceBook(db);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        frm票据预开明细表New& w = Open();
        const std::size_t before = dialogs.Messages().size();
        if (c.pickDepartment) w.List1.SetListIndex(0);
        w.DTPicker1_0.SetValue(c.from);
        w.DTPicker1_1.SetValue(c.to);
        const int focus = w.DTPicker1_1.FocusRequests();
        w.Command3.Click();
        const Lines all = Messages();
        const Lines shown(all.begin() + static_cast<long>(before), all.end());
        EXPECT_EQ(shown, c.message ? Lines{c.message} : Lines{});
        if (c.message) {
            EXPECT_EQ(dialogs.Messages().back().Title, "系统提示");
        }
        EXPECT_EQ(w.DTPicker1_1.FocusRequests() - focus, std::string(c.why) == "end before start" ? 1 : 0);
        EXPECT_EQ(w.Command6.Enabled(), c.command6);
        EXPECT_FALSE(w.Picture5.Visible());
    }
}

TEST_F(PreInvoiceTest, AnEmptyExtractionAfterAGoodOneLeavesCommand6AndItsItems) {
    AddPreInvoiceBook(db);
    frm票据预开明细表New& w = Open();
    Extract();
    ASSERT_TRUE(w.Command6.Enabled());
    Extract(Day(2022, 1, 1), Day(2022, 12, 31));
    EXPECT_EQ(Messages(), Lines{"没有满足条件的预开票数据,请重新设置条件!"});
    EXPECT_TRUE(w.Command6.Enabled());
    EXPECT_TRUE(w.ChargeItems.empty());
    const std::size_t statements = sent.size();
    w.Command6.Click();
    EXPECT_EQ(sent.size(), statements) << "no items: Command6 does nothing, silently";
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(PreInvoiceTest, TitleFollowsTheListButTheRunKeepsTheExtractedDepartment) {
    AddPreInvoiceBook(db);
    db.Department("0202", "二号部门").Office({.code = "G02", .name = "二号\r\n管理处", .dept = "0202"});
    frm票据预开明细表New& w = Open();
    EXPECT_EQ(w.Label1_0.Caption(), "增值税预开票明细表");
    Extract();
    EXPECT_EQ(w.Label1_0.Caption(), "【一号管理处】增值税预开票明细表");
    w.List1.SetListIndex(1);
    EXPECT_EQ(w.Label1_0.Caption(), "【二号管理处】增值税预开票明细表");
    EXPECT_EQ(w.DeptCode, "0101");
    EXPECT_EQ(w.OfficeCode, "G01");
    w.Command6.Click();
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 2 + 5) << "the bills of 0101 under the title of the other entry";
}

TEST_F(PreInvoiceTest, ARunWithoutBillsKeepsTheFormerPageCount) {
    AddPreInvoiceBook(db);
    frm票据预开明细表New& w = Open();
    Extract();
    w.Command6.Click();
    ASSERT_EQ(w.Pager.PageCount, 1);
    Extract();
    // New dates with the old items: no bill of them issued in this range.
    w.DTPicker1_0.SetValue(Day(2024, 4, 2));
    w.DTPicker1_1.SetValue(Day(2024, 4, 30));
    w.Command6.Click();
    EXPECT_EQ(Messages(), Lines{kNoResultMessage});
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 2);
    EXPECT_EQ(w.Label19.Caption(), "第 00 页 共 00 页");
    EXPECT_EQ(w.Pager.PageCount, 1);
    EXPECT_FALSE(w.Command6.Enabled());
    w.Image2_2.ClickImage();
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 2) << "the list holds only its empty slot";
    EXPECT_EQ(w.Label19.Caption(), "第 01 页 共 01 页");
}

TEST_F(PreInvoiceTest, FailuresOfTheRunAndOfTheExtraction) {
    AddPreInvoiceBook(db);
    frm票据预开明细表New& w = Open();
    Extract();
    w.Command6.Click();
    ASSERT_EQ(w.MSFlexGrid1.Rows(), 7);

    // 30% passes the sum check but is no number for the statement's share.
    Extract();
    Split("P1", "70", "30%");
    EXPECT_EQ(Messages(), Lines{});
    w.Command6.Click();
    EXPECT_EQ(Messages(), Lines{"错误号: 13错误描述: 类型不匹配"});
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 2);
    EXPECT_FALSE(w.Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
    w.Image2_0.ClickImage();
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 2) << "nothing of the failed run, nor of the one before, is shown";

    // A database failure while extracting: Str(number) and the description, items kept.
    db.Exec("DROP TABLE SetupSFXM");
    Extract();
    ASSERT_EQ(Messages().size(), 2u);
    EXPECT_EQ(Messages()[1].rfind("-2147217900", 0), 0u) << Messages()[1];
    EXPECT_EQ(w.ChargeItems.size(), 3u);
    EXPECT_TRUE(w.Command6.Enabled());
    EXPECT_FALSE(w.Picture5.Visible());
}

} // namespace
} // namespace quillon
