// The catalogues every report window loads: department entries, invoice-type in-lists,
// payment modes and the invoice-code probe, each on a small database made for the case.
#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "controls/list_box.h"
#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "model/bill_type_catalog.h"
#include "model/department_catalog.h"
#include "model/payment_catalog.h"
#include "support/test_billing_db.h"

namespace quillon {
namespace {

std::unique_ptr<Connection> Open(const TestBillingDb& db) {
    auto conn = std::make_unique<Connection>();
    conn->ConnectionString = db.ConnectionText();
    conn->Open();
    return conn;
}

std::vector<std::string> Entries(const ListBox& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.ListCount(); ++i) out.push_back(list.List(i));
    return out;
}

TEST(DepartmentCatalog, OneEntryPerOfficeOfEveryActiveDepartmentShortCodesFirst) {
    TestBillingDb db;
    db.Department("0102", "二部")
        .Department("01", "总部")
        .Department("0101", "一部")
        .Department({.code = "0103", .name = "已撤销", .ended = "2023-06-30"})
        .Department("0104", "无管理处")
        .Office({.code = "03", .name = "一区", .dept = "0102"})
        .Office({.code = "04", .name = "二\r\n区", .dept = "0102", .ended = "2024-01-01"})
        .Office({.code = "01", .name = "总部处", .dept = "01"})
        .Office({.code = "02", .name = "东区", .dept = "0101"})
        .Office({.code = "05", .name = "旧区", .dept = "0103"});
    auto conn = Open(db);
    ScriptedDialogs dialogs;
    ListBox list("List1");
    list.AddItem("stays");
    int clicks = 0;
    list.Click.Connect([&] { ++clicks; });
    list.SetListIndex(0);
    clicks = 0;

    LoadDepartmentList(*conn, dialogs, list);

    // The ended department is gone though its office lives; the ended office of an active
    // department stays; a department without office has no entry; the line break is taken out.
    std::vector<std::string> expected = {"stays", "01 总部处【01】", "0101 东区【02】", "0102 一区【03】",
                                         "0102 二区【04】"};
    EXPECT_EQ(Entries(list), expected);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, 1); // clearing the selection is a change like any click
    EXPECT_TRUE(dialogs.Messages().empty());
}

TEST(DepartmentCatalog, AFailedReadIsShownAndTheListKeepsWhatItHad) {
    TestBillingDb db;
    db.Exec("DROP TABLE 设置管理处");
    auto conn = Open(db);
    ScriptedDialogs dialogs;
    ListBox list("List1");
    list.AddItem("earlier");
    LoadDepartmentList(*conn, dialogs, list);
    ASSERT_EQ(dialogs.Messages().size(), 1u);
    EXPECT_EQ(dialogs.Messages()[0].Title, "系统提示");
    EXPECT_EQ(dialogs.Messages()[0].Text.rfind("错误码: -2147217900 错误描述: ", 0), 0u)
        << dialogs.Messages()[0].Text;
    EXPECT_EQ(Entries(list), std::vector<std::string>{"earlier"});
}

TEST(DepartmentCatalog, CodesAndCaptionAreReadBackFromTheEntry) {
    struct Case {
        const char* entry;
        const char* dept;
        const char* office;
        const char* caption;
    } cases[] = {
        {"0102 一区【03】", "0102", "03", "一区"},
        {"01 A 区【7】x】", "01", "7", "A 区"},
        {"01 【】", "01", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entry);
        EXPECT_EQ(DepartmentCodeOf(c.entry), c.dept);
        EXPECT_EQ(OfficeCodeOf(c.entry), c.office);
        EXPECT_EQ(DepartmentCaptionOf(c.entry), c.caption);
    }
    // Without its marks an entry cannot be read, as the old Left(…, -1) failed.
    EXPECT_THROW(DepartmentCodeOf("0102"), VbError);
    EXPECT_THROW(OfficeCodeOf("0102 一区"), VbError);
    EXPECT_THROW(DepartmentCaptionOf("0102 一区"), VbError);
}

class BillTypes : public ::testing::Test {
protected:
    void SetUp() override {
        db.InvoiceType({.code = "05", .name = "收据", .kind = "收据"})
            .InvoiceType({.code = "01", .name = "增值税专用发票"})
            .InvoiceType({.code = "02", .name = "增值税普通发票(卷式)"})
            .InvoiceType({.code = "03", .name = "全电发票"})
            .InvoiceType({.code = "04", .name = "电子发票"})
            .InvoiceType({.code = "06", .name = "全电发票(专用)"})
            .InvoiceType({.code = "07", .name = "定额发票", .fixedValue = 1})
            .InvoiceType({.code = "08", .name = "电子增值税专用发票"});
        conn = Open(db);
    }
    TestBillingDb db;
    std::unique_ptr<Connection> conn;
};

TEST_F(BillTypes, EachWindowGetsItsOwnLists) {
    struct Case {
        const char* why;
        BillTypeWindow window;
        BillTypeLists lists;
    } cases[] = {
        {"new form: receipts are the fourth list",
         BillTypeWindow::ReconciliationNew,
         {"'01','02','03','04','05','06','08'", "'01','08'", "'02'", "'05'"}},
        {"first form: invoices only, fourth list by whole name",
         BillTypeWindow::Reconciliation,
         {"'01','02','03','04','06','08'", "'01','08'", "'02'", "'03','04'"}},
        {"detail windows: all types alone",
         BillTypeWindow::Detail,
         {"'01','02','03','04','05','06','08'", "", "", ""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto lists = LoadBillTypeLists(*conn, c.window);
        EXPECT_EQ(lists.AllTypes, c.lists.AllTypes);
        EXPECT_EQ(lists.SpecialTypes, c.lists.SpecialTypes);
        EXPECT_EQ(lists.OrdinaryTypes, c.lists.OrdinaryTypes);
        EXPECT_EQ(lists.FourthTypes, c.lists.FourthTypes);
    }
}

TEST(BillTypeCatalog, NoTypeLeavesEveryListEmpty) {
    TestBillingDb db;
    db.InvoiceType({.code = "07", .name = "定额发票", .fixedValue = 1});
    auto conn = Open(db);
    auto lists = LoadBillTypeLists(*conn, BillTypeWindow::ReconciliationNew);
    EXPECT_EQ(lists.AllTypes + lists.SpecialTypes + lists.OrdinaryTypes + lists.FourthTypes, "");
}

TEST(PaymentCatalog, ModesInServerOrderAndTheInvoiceCodeProbe) {
    TestBillingDb db;
    db.PaymentMode("现金").PaymentMode("微信支付").PaymentMode("微信");
    db.InvoiceType({.code = "01", .name = "全电发票"}).Lot({.lot = "L1", .type = "01"});
    db.Invoice({.lot = "L1", .number = "A1", .dept = "0101", .issued = "2024-03-01", .invoiceCode = "01"})
        .Invoice({.lot = "L1", .number = "A2", .dept = "0101", .issued = "2024-03-01", .invoiceCode = "011"})
        .Invoice({.lot = "L1", .number = "A3", .dept = "0101", .issued = "2024-03-01"});
    auto conn = Open(db);
    EXPECT_EQ(LoadPaymentModes(*conn), (std::vector<std::string>{"现金", "微信支付", "微信"}));
    struct Case {
        const char* why;
        const char* dept;
        const char* number;
        bool result;
    } cases[] = {
        {"code 01", "0101", "A1", false},
        {"another code", "0101", "A2", true},
        {"NULL code", "0101", "A3", true},
        {"no such invoice", "0101", "A9", true},
        {"another department's invoice", "0102", "A1", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(InvoiceCodeProbe(*conn, c.dept, c.number), c.result);
    }
}

} // namespace
} // namespace quillon
