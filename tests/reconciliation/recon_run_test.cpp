// The reconciliation run on small books whose figures are worked out by hand: the grid laid out
// with the period's categories, invoice blocks by rate, the categories collected, 小计, the two
// pre-invoice adjustments, the verdict and 合计, in both windows, and the failure of each step.
#include "controls/screen.h"
#include "reconciliation/recon_fixture.h"

namespace quillon {
namespace {

// March 2024 of department 0101: at 6 % a special (1060, tax 60), an ordinary (530, tax 30) and
// a 全电 invoice (212, tax 12) of WY; at 0 % a receipt (500, no tax) and an ordinary invoice
// (300, tax 0) of WX. Every one is paid on its day of issue.
void AddMarchInvoices(TestBillingDb& db) {
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60))
        .Invoice(OneLine(kOrdinaryLot, "O001", "2024-03-10", "2024-03-10", "WY", 530, 30))
        .Invoice(OneLine(kAllElectricLot, "E001", "2024-03-12", "2024-03-12", "WY", 212, 12))
        .Invoice(OneLine(kReceiptLot, "R001", "2024-03-15", "2024-03-15", "WX", 500, std::nullopt))
        .Invoice(OneLine(kOrdinaryLot, "O002", "2024-03-20", "2024-03-20", "WX", 300, 0));
}

TEST_F(ReconTest, AMonthWithEveryInvoiceKindAtTwoRatesInBothForms) {
    AddReconBooks(db);
    AddMarchInvoices(db);
    struct Case {
        const char* why;
        bool newForm;
        Lines grid;
        std::vector<int> widths;
    };
    const Case cases[] = {
        // Categories in code order: WX (维修基金, 0 %) then WY (物业管理费住宅, 6 %). The receipt
        // column of a data row is always 0.00; the receipt counts in 财务交账 only, and so does
        // the 全电 invoice, which has no block in this form: 500 + 212 = 712 short on the invoice
        // side. The 13 % of the other office has no invoice and gives no row.
        {"frm票据核对表New",
         true,
         {"序|开票年月|税率|增值税专用发票|增值税专用发票|增值税普通发票|增值税普通发票|收据|"
          "财务交账|财务交账|财务交账|当月收预开票|当月未收预开|核对结果|备注",
          "序|开票年月|税率|金额|税额|金额|税额|金额|维修基金|物业管理费住宅|小计|金额|金额|差额|备注",
          "1|202403|0|0.00|0.00|300.00|0.00|0.00|800.00|0.00|800.00||||",
          "2|202403|6|1000.00|60.00|500.00|30.00|0.00|0.00|1802.00|1802.00||||",
          "3|202403|小计|1000.00|60.00|800.00|30.00|0.00|800.00|1802.00|2602.00|0.00|0.00|-712.00|",
          "4|合计||1000.00|60.00|800.00|30.00|0.00|800.00|1802.00|2602.00|0.00|0.00||"},
         {500, 900, 600, 1300, 1200, 1300, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1600}},
        // The receipt type is not 类别 发票, so this form never reads it. The 全电 block shows
        // 200 + 12. Category column 1 (维修基金) shows 全电税额, column 2 (物业管理费住宅) shows
        // 维修基金, and WY's 1802 is read by nothing: 2102 invoiced - 312 = 1790.
        {"frm票据核对表 reads its categories one field early",
         false,
         {"序|开票年月|税率|增值税专用发票|增值税专用发票|增值税普通发票|增值税普通发票|"
          "全电发票（含电子发票）|全电发票（含电子发票）|财务交账|财务交账|财务交账|当月收预开票|"
          "当月未收预开|核对结果|备注",
          "序|开票年月|税率|金额|税额|金额|税额|金额|税额|维修基金|物业管理费住宅|小计|金额|金额|差额|备注",
          "1|202403|0|0.00|0.00|300.00|0.00|0.00|0.00|0.00|300.00|300.00||||",
          "2|202403|6|1000.00|60.00|500.00|30.00|200.00|12.00|12.00|0.00|12.00||||",
          "3|202403|小计|1000.00|60.00|800.00|30.00|200.00|12.00|12.00|300.00|312.00|0.00|0.00|1790.00|",
          "4|合计||1000.00|60.00|800.00|30.00|200.00|12.00|12.00|300.00|312.00|0.00|0.00||"},
         {500, 900, 600, 1300, 1200, 1300, 1200, 1300, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1600}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto w = OpenForm(c.newForm);
        const int yields = dialogs.YieldCount();
        Run(*w, "2024", "03", "03");
        const FlexGrid& g = w->MSFlexGrid1;
        EXPECT_EQ(GridLines(g), c.grid);
        EXPECT_EQ(ColWidths(g), c.widths);
        // The 财务交账 texts over the categories and the 小计 merge into one header.
        const int first = w->Traits().firstCategoryCol;
        for (int col : {first, first + 1, first + 2}) EXPECT_FALSE(g.MergeCol(col)) << "column " << col;
        for (int col : {0, 1, 2, g.Cols() - 2, g.Cols() - 1})
            EXPECT_TRUE(g.MergeCol(col)) << "column " << col;
        EXPECT_EQ(g.MergedRangeAt(0, first + 1), (CellRange{0, first, 0, first + 2}));

        const int subtotal = FindRow(g, "202403", "小计");
        const int total = FindRow(g, "合计", "");
        const struct {
            const char* why;
            int row;
            int col;
            std::uint32_t color;
        } colours[] = {
            {"小计 amount", subtotal, 3, kSubtotalColor},
            {"小计 of 财务交账", subtotal, w->SubtotalCol(2), kSubtotalColor},
            {"当月收预开票 of the month", subtotal, w->CollectedCol(2), kSubtotalColor},
            {"verdict", subtotal, w->VerdictCol(2), kSubtotalColor},
            {"合计 amount", total, 3, kTotalColor},
            {"合计 当月未收预开票", total, w->UncollectedCol(2), kTotalColor},
            {"合计 leaves the verdict plain", total, w->VerdictCol(2), kColorWindow},
            {"a rate row stays plain", FindRow(g, "202403", "6"), 3, kColorWindow},
        };
        for (const auto& colour : colours) {
            SCOPED_TRACE(colour.why);
            EXPECT_EQ(g.BackColorAt(colour.row, colour.col), colour.color);
        }
        EXPECT_FALSE(w->Picture5.Visible());
        EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
        EXPECT_EQ(w->Label3.Caption(), "正在生成票据核对表，请稍等......");
        EXPECT_EQ(dialogs.YieldCount() - yields, 2); // before the extraction and before the matrix
        EXPECT_EQ(session.DbConnection->CommandTimeout, 0);
    }
    EXPECT_TRUE(dialogs.Messages().empty());
}

// March: a special invoice paid in April (1060, tax 60), an ordinary invoice never paid (530,
// tax 30), a special invoice voided (10600). April: a special invoice paid at once (212, tax 12).
void AddPreInvoices(TestBillingDb& db) {
    TestInvoice voided = OneLine(kSpecialLot, "V001", "2024-03-11", "2024-03-11", "WY", 10600, 600);
    voided.voided = "2024-03-20";
    db.Invoice(OneLine(kSpecialLot, "P001", "2024-03-08", "2024-04-02", "WY", 1060, 60))
        .Invoice(OneLine(kOrdinaryLot, "P002", "2024-03-09", "", "WY", 530, 30))
        .Invoice(voided)
        .Invoice(OneLine(kSpecialLot, "S003", "2024-04-10", "2024-04-10", "WY", 212, 12));
}

TEST_F(ReconTest, PreInvoicesBridgeTheMonthsAndTheBooksBalance) {
    AddReconBooks(db);
    AddPreInvoices(db);
    auto w = OpenWindow<frm票据核对表New>();
    Run(*w, "2024", "03", "04");

    // March: 1590 invoiced, nothing collected, 1060 + 530 not collected: difference 0.
    // April: 212 invoiced, 212 + 1060 collected (the March invoice paid now), 1060 of it
    // collected on an earlier invoice: difference 0. The voided invoice counts nowhere.
    EXPECT_EQ(GridLines(w->MSFlexGrid1, 2),
              (Lines{"1|202403|6|1000.00|60.00|500.00|30.00|0.00|0.00|0.00||||",
                     "2|202403|小计|1000.00|60.00|500.00|30.00|0.00|0.00|0.00|0.00|1590.00|0.00|",
                     "3|202404|6|200.00|12.00|0.00|0.00|0.00|1272.00|1272.00||||",
                     "4|202404|小计|200.00|12.00|0.00|0.00|0.00|1272.00|1272.00|1060.00|0.00|0.00|",
                     "5|合计||1200.00|72.00|500.00|30.00|0.00|1272.00|1272.00|1060.00|1590.00||"}));
}

TEST_F(ReconTest, AMonthNettingToZeroHasNoSubtotalNoAdjustmentAndNoTotal) {
    AddReconBooks(db);
    // April pre-invoice paid in May, and in May an invoice and its red counterpart.
    db.Invoice(OneLine(kSpecialLot, "A001", "2024-04-20", "2024-05-03", "WY", 318, 18))
        .Invoice(OneLine(kSpecialLot, "N001", "2024-05-06", "2024-05-06", "WY", 106, 6))
        .Invoice(OneLine(kSpecialLot, "N002", "2024-05-07", "2024-05-07", "WY", -106, -6));
    auto w = OpenWindow<frm票据核对表New>();
    Run(*w, "2024", "05", "05");

    // The rate row stands, with the 318 collected; the 318 collected on the April invoice finds
    // no 小计 row to go to, and there is no verdict and no 合计.
    EXPECT_EQ(GridLines(w->MSFlexGrid1, 2), Lines{"1|202405|6|0.00|0.00|0.00|0.00|0.00|318.00|318.00||||"});
    EXPECT_TRUE(dialogs.Messages().empty());
}

TEST_F(ReconTest, OneCategoryInTheFirstFormShowsTheAllElectricTaxInItsColumn) {
    AddReconBooks(db);
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60))
        .Invoice(OneLine(kAllElectricLot, "E001", "2024-03-12", "2024-03-12", "WY", 212, 12));
    struct Case {
        const char* why;
        bool newForm;
        const char* subtotal;
    };
    const Case cases[] = {
        // 1272 collected on WY is read by nothing; its column shows 全电税额 12.
        {"frm票据核对表: N = 1 shows the third block's tax", false,
         "2|202403|小计|1000.00|60.00|0.00|0.00|200.00|12.00|12.00|12.00|0.00|0.00|1260.00|"},
        // The 全电 invoice has no block here but is collected all the same.
        {"frm票据核对表New: the category's own amount", true,
         "2|202403|小计|1000.00|60.00|0.00|0.00|0.00|1272.00|1272.00|0.00|0.00|-212.00|"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto w = OpenForm(c.newForm);
        Run(*w, "2024", "03", "03");
        const FlexGrid& g = w->MSFlexGrid1;
        EXPECT_EQ(g.TextMatrix(1, w->Traits().firstCategoryCol), "物业管理费住宅");
        const int r = FindRow(g, "202403", "小计");
        ASSERT_GT(r, 0);
        EXPECT_EQ(GridLine(g, r), c.subtotal);
    }
}

TEST_F(ReconTest, OnlyTheFirstFormLeavesInternallyExchangedInvoicesOutOfTheAdjustments) {
    AddReconBooks(db);
    TestInvoice exchanged = OneLine(kOrdinaryLot, "X001", "2024-03-25", "", "WY", 106, 6);
    exchanged.exchanged = "2024-03-28";
    exchanged.exchangedNumber = "X002";
    exchanged.exchangedLot = kOrdinaryLot;
    db.Invoice(exchanged);
    struct Case {
        const char* why;
        bool newForm;
        const char* uncollected;
        const char* verdict;
    };
    const Case cases[] = {
        {"frm票据核对表New counts it as not collected", true, "106.00", "0.00"},
        {"frm票据核对表 leaves it out", false, "0.00", "106.00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto w = OpenForm(c.newForm);
        Run(*w, "2024", "03", "03");
        const FlexGrid& g = w->MSFlexGrid1;
        const int r = FindRow(g, "202403", "小计");
        ASSERT_GT(r, 0);
        EXPECT_EQ(g.TextMatrix(r, w->UncollectedCol(1)), c.uncollected);
        EXPECT_EQ(g.TextMatrix(r, w->VerdictCol(1)), c.verdict);
    }
}

TEST_F(ReconTest, AFailedAdjustmentLeavesItsCellsAndTheVerdictIsStillComputed) {
    AddReconBooks(db);
    AddPreInvoices(db);
    // An older 票据 table without 内换日期: only the first form's adjustments ask for it.
    db.Exec("ALTER TABLE 票据 DROP COLUMN 内换日期");
    auto w = OpenWindow<frm票据核对表>();
    Run(*w, "2024", "03", "04");

    ASSERT_EQ(dialogs.Messages().size(), 2u); // one per adjustment, its first month ends it
    for (const auto& m : dialogs.Messages()) {
        EXPECT_EQ(m.Text.rfind("-2147217900", 0), 0u) << m.Text;
        EXPECT_EQ(m.Title, "系统提示");
        EXPECT_EQ(m.Flags, vbInformation);
    }
    const FlexGrid& g = w->MSFlexGrid1;
    ASSERT_EQ(g.Rows(), 7);
    EXPECT_EQ(GridLine(g, 3), "2|202403|小计|1000.00|60.00|500.00|30.00|0.00|0.00|0.00|0.00|||1590.00|");
    EXPECT_EQ(GridLine(g, 5), "4|202404|小计|200.00|12.00|0.00|0.00|0.00|0.00|0.00|0.00|||212.00|");
    EXPECT_EQ(GridLine(g, 6), "5|合计||1200.00|72.00|500.00|30.00|0.00|0.00|0.00|0.00|0.00|0.00||");
    EXPECT_FALSE(w->Picture5.Visible());
}

TEST_F(ReconTest, AFailingMonthStatementEndsTheProcess) {
    AddReconBooks(db);
    // A name with a blank is no valid column alias.
    db.ChargeItem({.code = "ZZ", .name = "临时 停车费", .category = "停车"})
        .DeviceItem({.item = "ZZ", .rate = 6, .office = "G01"})
        .Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "ZZ", 106, 6));
    auto w = OpenWindow<frm票据核对表New>();
    try {
        Run(*w, "2024", "03", "03");
        FAIL() << "the run went on after the month statement failed";
    } catch (const RuntimeErrorRaised& e) {
        EXPECT_EQ(e.Number, -2147217900);
    }
    EXPECT_TRUE(dialogs.Messages().empty());
    EXPECT_EQ(dialogs.RuntimeErrors().size(), 1u);
}

TEST_F(ReconTest, AFailedExtractionGoesOnWithTheFormerCategoriesOrEndsTheFirstRun) {
    AddReconBooks(db);
    AddMarchInvoices(db);
    auto w = OpenWindow<frm票据核对表New>();
    Run(*w, "2024", "03", "03");
    const Lines before = GridLines(w->MSFlexGrid1);

    // The extraction also reads 显示名称; the month statement does not.
    db.Exec("ALTER TABLE SetupSFXM DROP COLUMN 显示名称");
    Run(*w, "2024", "03", "03");
    ASSERT_EQ(dialogs.Messages().size(), 1u);
    EXPECT_EQ(GridLines(w->MSFlexGrid1), before);

    auto fresh = OpenWindow<frm票据核对表New>();
    try {
        Run(*fresh, "2024", "03", "03");
        FAIL() << "the first run went on without categories";
    } catch (const RuntimeErrorRaised& e) {
        EXPECT_EQ(e.Number, 9);
        EXPECT_EQ(e.Description, "下标越界");
    }
    ASSERT_EQ(dialogs.Messages().size(), 2u);
    for (const auto& m : dialogs.Messages()) EXPECT_EQ(m.Text.rfind("-2147217900", 0), 0u) << m.Text;
}

} // namespace
} // namespace quillon
