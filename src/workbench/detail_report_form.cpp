#include "workbench/detail_report_form.h"

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "controls/screen.h"
#include "db/connection.h"
#include "model/bill_type_catalog.h"
#include "model/department_catalog.h"
#include "workbench/excel_export.h"

namespace quillon {

namespace {

// Design geometry of the criteria band and the pager bar over the grid (twips, in Picture3).
constexpr int kSplitGridTop = 840;
constexpr int kSplitGridHeight = 1200;
constexpr int kPagerTop = kSplitGridTop + kSplitGridHeight + 120;
constexpr int kPagerHeight = 420;
constexpr int kPagerWidth = 7200;
constexpr int kResultGridTop = kPagerTop + kPagerHeight + 60;

} // namespace

DetailReportForm::DetailReportForm(const DetailReportTexts& texts,
                                   const std::unique_ptr<Connection>& connection, Dialogs& dialogs)
    : ReportForm(texts.formName, texts.title, dialogs), Label4("Label4", texts.panelCaption),
      Label5("Label5", "选择部门"), List1("List1"), Label6("Label6", texts.dateLabel),
      DTPicker1_0("DTPicker1_0"), DTPicker1_1("DTPicker1_1"), Label7("Label7", "至"),
      Label8("Label8", "设置停车费分账比例"), MSFlexGrid2("MSFlexGrid2"), txtGRD("txtGRD"),
      Command6("Command6", "开始统计"), Picture8("Picture8"), Image2_0("Image2_0", "首页"),
      Image2_1("Image2_1", "上一页"), Image2_2("Image2_2", "下一页"), Image2_3("Image2_3", "尾页"),
      Label21("Label21", "转到"), Text6("Text6"), Label19("Label19", kEmptyPageLabel),
      Label2("Label2", kExportingText),
      Pager(MSFlexGrid1, Label19, Text6,
            {[this] { return ResultRowCount(); }, [this](int r) { WriteResultRow(r); }}),
      SplitTable(MSFlexGrid2, txtGRD, dialogs), texts_(texts), connection_(connection) {
    Label1_0.SetCaption(texts.title);
    Label3.SetCaption(texts.runWait);
    Command3.SetCaption("提取收费项目");
    PlaceControls();

    MSFlexGrid1.SetFixedRows(2);
    MSFlexGrid1.SetFixedCols(0);

    List1.Click.Connect([this] { RunUntrapped([this] { List1_Click(); }); });
    Command1.Clicked.Connect([this] { Unload(); });
    Command2.Clicked.Connect([this] { Command2_Click(); });
    Command3.Clicked.Connect([this] { RunUntrapped([this] { Command3_Click(); }); });
    Command6.Clicked.Connect([this] { RunUntrapped([this] { Command6_Click(); }); });
    MSFlexGrid2.Click.Connect([this] { SplitTable.MSFlexGrid2_Click(); });
    txtGRD.KeyPress.Connect([this](int& key) { SplitTable.txtGRD_KeyPress(key); });
    Image* pages[] = {&Image2_0, &Image2_1, &Image2_2, &Image2_3};
    for (int i = 0; i < 4; ++i) pages[i]->Click.Connect([this, i] { Pager.Image2_Click(i); });
    Text6.KeyPress.Connect([this](int& key) { Pager.Text6_KeyPress(key); });

    SetClientSize(kFrameClientWidth, kFrameClientHeight);
}

void DetailReportForm::PlaceControls() {
    const int panelWidth = Picture2.Width();
    AddControl(Label4, &Picture2);
    Label4.Move(120, 120, panelWidth - 240, 300);
    AddControl(Label5, &Picture2);
    Label5.Move(120, 480, panelWidth - 240, 255);
    AddControl(List1, &Picture2);
    List1.Move(60, 780, panelWidth - 120, Picture2.Height() - 780);

    AddControl(Label6, &Picture3);
    Label6.Move(120, 150, 1200, 270);
    AddControl(DTPicker1_0, &Picture3);
    DTPicker1_0.Move(1380, 90, 1500, 360);
    AddControl(Label7, &Picture3);
    Label7.Move(2940, 150, 240, 270);
    AddControl(DTPicker1_1, &Picture3);
    DTPicker1_1.Move(3240, 90, 1500, 360);
    AddControl(Command3, &Picture3);
    Command3.Move(4980, 45, 1500, 450);
    AddControl(Label8, &Picture3);
    Label8.Move(120, kSplitGridTop - 300, 2400, 270);
    AddControl(MSFlexGrid2, &Picture3);
    MSFlexGrid2.Move(120, kSplitGridTop, 5160, kSplitGridHeight);
    AddControl(txtGRD, &Picture3); // over MSFlexGrid2, in the same container
    AddControl(Command6, &Picture3);
    Command6.Move(5460, kSplitGridTop + kSplitGridHeight - 450, 1335, 450);
    Command6.SetEnabled(false);

    AddControl(Picture8, &Picture3);
    Picture8.Move((Picture3.Width() - kPagerWidth) / 2, kPagerTop, kPagerWidth, kPagerHeight);
    Image* pages[] = {&Image2_0, &Image2_1, &Image2_2, &Image2_3};
    for (int i = 0; i < 4; ++i) {
        AddControl(*pages[i], &Picture8);
        pages[i]->Move(60 + i * 900, 30, 840, 360);
    }
    AddControl(Label21, &Picture8);
    Label21.Move(3720, 75, 480, 270);
    AddControl(Text6, &Picture8);
    Text6.Move(4200, 30, 600, 360);
    AddControl(Label19, &Picture8);
    Label19.Move(4920, 75, 2220, 270);

    AddControl(Label2, &Picture3);
    Label2.Move(7000, 150, 3600, 270);
    Label2.SetVisible(false);
    Label2.ZOrder(0);

    MSFlexGrid1.Move(0, kResultGridTop, MSFlexGrid1.Width(),
                     Picture3.Height() - kResultGridTop - kGridMargin);
    Picture5.ZOrder(0);
}

void DetailReportForm::LoadDetailWindow() {
    for (DatePicker* picker : {&DTPicker1_0, &DTPicker1_1}) {
        picker->SetCustomFormat("yyyy-MM-dd");
        picker->SetValue(DateTime::Today());
    }
    SplitTable.InitGrid();
    Command6.SetEnabled(false);
    RunUntrapped([this] {
        InitGridHeader();
        LoadDepartmentList(Db(), dialogs_, List1);
        BillTypeInList = LoadBillTypeLists(Db(), BillTypeWindow::Detail).AllTypes;
    });
}

void DetailReportForm::Form_Resize() {
    Pager.PageSize = ResizeFamilyB(*this, List1, Picture8);
}

void DetailReportForm::List1_Click() {
    Label1_0.SetCaption("【" + DepartmentCaptionOf(List1.Text()) + "】" + texts_.title);
}

std::string DetailReportForm::StartText() const {
    return Format(DTPicker1_0.Value(), "yyyymmdd");
}

std::string DetailReportForm::EndText() const {
    return Format(DTPicker1_1.Value(), "yyyymmdd");
}

void DetailReportForm::Command3_Click() {
    const bool noDepartment = texts_.checkBySelCount ? List1.SelCount() == 0 : List1.ListIndex() == -1;
    if (noDepartment) {
        dialogs_.MsgBox("请先选择统计部门!", kReportMessageTitle, vbInformation);
        return;
    }
    if (DTPicker1_1.Value() < DTPicker1_0.Value()) {
        dialogs_.MsgBox("截至日期不能小于开始日期!", kReportMessageTitle, vbInformation);
        DTPicker1_1.SetFocus();
        return;
    }
    DeptCode.clear();
    OfficeCode.clear();
    DeptCode = DepartmentCodeOf(List1.Text());
    OfficeCode = OfficeCodeOf(List1.Text());

    BeginBusy(texts_.extractWait);
    if (texts_.extractionTrapped) {
        try {
            ExtractChargeItems();
        } catch (const VbError& e) {
            dialogs_.MsgBox(Str(e.Number) + e.Description, kReportMessageTitle, vbInformation);
        }
    } else {
        ExtractChargeItems();
    }
    EndBusy();

    if (!ChargeItems.empty())
        Command6.SetEnabled(true);
    else
        dialogs_.MsgBox(texts_.noItemsMessage, kReportMessageTitle, vbInformation);
}

void DetailReportForm::ExtractChargeItems() {
    Connection& conn = Db();
    conn.CommandTimeout = 0;
    Recordset rs = conn.OpenRecordset(ChargeItemQuery());
    // Emptied only once the statement has opened: a failed extraction keeps the items it had.
    ChargeItems.clear();
    for (; !rs.Eof(); rs.MoveNext()) ChargeItems.push_back(ReadChargeItem(rs));
    SplitTable.FillSplitRatioTable(ChargeItems);
    if (!ChargeItems.empty()) BuildChargeItemColumns();
}

void DetailReportForm::Command6_Click() {
    if (ChargeItems.empty()) return;
    Command6.SetEnabled(false);
    if (texts_.rebuildHeaderAtRun) BuildChargeItemColumns();
    TheScreen().SetMousePointer(kPointerHourglass);
    Pager.CurrentPage = 1;
    MSFlexGrid1.SetRows(2);
    ShowWaitText(texts_.runWait);
    try {
        if (RunReportQuery()) {
            Pager.RenderPage(Pager.CurrentPage);
        } else {
            MSFlexGrid1.SetRows(2);
            dialogs_.MsgBox(kNoResultMessage, kReportMessageTitle, vbInformation);
        }
    } catch (const VbError& e) {
        // The run ends here; nothing of it is kept, so no page shows rows of a half-read result.
        DropResultRows();
        MSFlexGrid1.SetRows(2);
        EndBusy();
        dialogs_.MsgBox("错误号: " + std::to_string(e.Number) + "错误描述: " + e.Description,
                        kReportMessageTitle, vbInformation);
        return;
    }
    EndBusy();
}

void DetailReportForm::FinishResult(int totalRows) {
    Pager.SetPageCount(totalRows);
    Pager.ShowPageLabel();
}

void DetailReportForm::WriteDetailWorkbook(const DetailSheetShape& shape,
                                           const std::function<void(Worksheet&, int, int, int)>& writeRows) {
    RunSheetWriter(dialogs_, CommonDialog1.FileName, texts_.exportedMessage, WriterTrap::NumberDescription,
                   [&](Worksheet& sheet) {
                       const int C = MSFlexGrid1.Cols();
                       WriteDetailSheetHead(sheet, MSFlexGrid1, Label1_0.Caption(), List1.Text(),
                                            DTPicker1_0.Value(), DTPicker1_1.Value());
                       MergeDetailHeader(sheet, C, shape.ownBlocks, shape.firstItemCol, ChargeItems,
                                         shape.closingCols, shape.allParking);
                       Label2.SetVisible(true);
                       dialogs_.Yield();
                       writeRows(sheet, C, AmountColumnCount, ResultRowCount().value_or(0));
                       Label2.SetVisible(false);
                   });
}

void DetailReportForm::Command2_Click() {
    ExportControls controls{MSFlexGrid1, CommonDialog1, ProgressBar1, {&Command1, &Command2}};
    ExportRequest request;
    request.defaultFileName = Label1_0.Caption() + "_" + StartText() + "-" + EndText();
    request.progressMax = ResultRowCount().value_or(0);
    RunExportEntry(controls, dialogs_, request, [this] { ExportDetailWorkbook(); });
}

} // namespace quillon
