// The main window: menu routing to default instances, the two ways out, the banner strip and
// the background picture, and the About box centred in the frame.
#include "shell/main_window.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/vb_error.h"
#include "controls/flex_grid.h"
#include "controls/scripted_dialogs.h"
#include "program_version.h"
#include "shell/about_window.h"
#include "shell/app_session.h"
#include "shell/placeholder_window.h"
#include "support/temp_dir.h"

namespace quillon {
namespace {

// A report window with a grid, standing in for a real one: it counts its loads, so a test sees
// whether the router made a fresh instance.
class GridWindow : public Form {
public:
    explicit GridWindow(int& loads) : Form("frm票据核对表", "开票票据核对表"), loads_(loads) {
        AddControl(MSFlexGrid1);
    }
    FlexGrid MSFlexGrid1{"MSFlexGrid1"};

protected:
    void Form_Load() override {
        ++loads_;
        MSFlexGrid1.SetRows(2);
    }

private:
    int& loads_;
};

// The frame shown at 15000 × 9000 twips, in a program folder of its own (no MDI.BMP yet).
struct Frame {
    AppSession session;
    ScriptedDialogs dialogs;
    TempDir folder;
    MDIForm1 mdi{session, dialogs, folder.Path().string()};
    int gridLoads = 0;

    Frame() {
        mdi.Windows.Register("frm票据核对表", [this](AppSession&, Dialogs&) {
            return std::make_unique<GridWindow>(gridLoads);
        });
        mdi.Show();
        mdi.SetClientSize(15000, 9000);
    }
    GridWindow* Recon() { return dynamic_cast<GridWindow*>(mdi.Windows.Find("frm票据核对表")); }
};

} // namespace

void PrintTo(const BannerCopy& c, std::ostream* os) {
    *os << "{from " << c.sourceLeft << ", " << c.width << " wide, to " << c.destLeft << "}";
}

namespace {

std::vector<std::string> CaptionsOf(const std::vector<MenuEntry*>& entries) {
    std::vector<std::string> captions;
    for (const MenuEntry* e : entries) captions.push_back(e->Caption());
    return captions;
}

TEST(MainWindow, CaptionAndMenuTree) {
    Frame f;
    EXPECT_EQ(f.mdi.Caption(), "Quillon收费报表");
    using Texts = std::vector<std::string>;
    EXPECT_EQ(CaptionsOf(f.mdi.Menus()), (Texts{"统计报表", "退出系统", "关于"}));
    EXPECT_EQ(CaptionsOf(f.mdi.统计报表.Children()),
              (Texts{"停车费明细表", "增值税开票明细表", "增值税预开明细表", "开票票据核对表",
                     "增值税开票统计汇总表", "-", "预开票汇总表"}));
    EXPECT_EQ(CaptionsOf(f.mdi.退出系统.Children()), (Texts{"退出"}));
    EXPECT_EQ(CaptionsOf(f.mdi.关于.Children()), (Texts{"关于软件", "联系我们"}));
    EXPECT_TRUE(f.mdi.mnuSeparator.IsSeparator());
    EXPECT_FALSE(f.mdi.mnuSeparator.Click()) << "a separator is no entry";
}

TEST(MainWindow, EachReportEntryOpensItsWindow) {
    Frame f;
    struct Case {
        const char* entry;
        const char* window;
    } cases[] = {
        {"停车费明细表", "frm停车费明细表New"},
        {"增值税开票明细表", "frm票据开票明细表New"},
        {"增值税预开明细表", "frm票据预开明细表New"},
        {"开票票据核对表", "frm票据核对表"},
        {"增值税开票统计汇总表", "frm部门开票分税率统计表"},
        {"预开票汇总表", "frm预开票汇总表"},
        {"关于软件", "frmAbout"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entry);
        ASSERT_NE(f.mdi.FindMenu(c.entry), nullptr);
        EXPECT_TRUE(f.mdi.FindMenu(c.entry)->Click());
        Form* window = f.mdi.Windows.Find(c.window);
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->Name(), c.window);
        EXPECT_TRUE(window->IsLoaded());
        EXPECT_TRUE(window->Visible());
    }
    EXPECT_TRUE(f.mdi.联系我们.Click()) << "an entry that does nothing";
    EXPECT_EQ(f.mdi.Windows.OpenWindows().size(), 7u) << "several windows stand open together";
    EXPECT_TRUE(f.dialogs.Messages().empty());
}

TEST(MainWindow, ReportsNotBuiltYetOpenAPlaceholderThatSaysSo) {
    Frame f;
    f.mdi.预开票汇总表.Click();
    auto* placeholder = dynamic_cast<PlaceholderReportForm*>(f.mdi.Windows.Find("frm预开票汇总表"));
    ASSERT_NE(placeholder, nullptr);
    EXPECT_EQ(placeholder->Caption(), "预开票汇总表");
    EXPECT_NE(placeholder->Label1.Caption().find("尚未完成"), std::string::npos)
        << placeholder->Label1.Caption();
    placeholder->Command1.Click();
    EXPECT_EQ(f.mdi.Windows.Find("frm预开票汇总表"), nullptr) << "its 退出 closes it";
}

TEST(MainWindow, SecondClickBringsTheSameWindowForwardAClosedOneOpensFresh) {
    Frame f;
    int loadsSeen = -1;
    f.mdi.Windows.Created.Connect([&](Form& form) {
        EXPECT_FALSE(form.IsLoaded()) << "a skin sees the new window before its load";
        loadsSeen = f.gridLoads;
    });
    f.mdi.开票票据核对表.Click();
    EXPECT_EQ(loadsSeen, 0);
    GridWindow* recon = f.Recon();
    ASSERT_NE(recon, nullptr);
    recon->MSFlexGrid1.SetRows(40);
    recon->MSFlexGrid1.SetTextMatrix(39, 1, "合计");
    f.mdi.关于软件.Click(); // another window in front
    Form* about = f.mdi.Windows.Find("frmAbout");
    ASSERT_NE(about, nullptr);
    EXPECT_GT(about->ZLevel(), recon->ZLevel());

    f.mdi.开票票据核对表.Click();
    EXPECT_EQ(f.Recon(), recon) << "the same instance";
    EXPECT_EQ(f.gridLoads, 1) << "not loaded again";
    EXPECT_EQ(recon->MSFlexGrid1.Rows(), 40);
    EXPECT_EQ(recon->MSFlexGrid1.TextMatrix(39, 1), "合计");
    EXPECT_GT(recon->ZLevel(), about->ZLevel()) << "brought to the front";

    EXPECT_TRUE(recon->Close());
    EXPECT_EQ(f.Recon(), nullptr);
    f.mdi.开票票据核对表.Click();
    ASSERT_NE(f.Recon(), nullptr);
    EXPECT_EQ(f.gridLoads, 2) << "a new instance, loaded anew";
    EXPECT_EQ(f.Recon()->MSFlexGrid1.Rows(), 2) << "nothing of the closed one is kept";
}

TEST(MainWindow, CloseBoxAsksFirst) {
    Frame f;
    f.mdi.开票票据核对表.Click();
    f.Recon()->MSFlexGrid1.SetRows(12);
    f.dialogs.QueueAnswer(vbNo);
    EXPECT_FALSE(f.mdi.Close());
    ASSERT_EQ(f.dialogs.Messages().size(), 1u);
    const RecordedMessage& box = f.dialogs.Messages()[0];
    EXPECT_EQ(box.Text, "确认要退出系统吗？");
    EXPECT_EQ(box.Title, "") << "the program's default title";
    EXPECT_EQ(box.Flags, vbYesNo + vbInformation);
    EXPECT_TRUE(f.mdi.Visible()) << "answered No: everything stays";
    ASSERT_NE(f.Recon(), nullptr);
    EXPECT_EQ(f.Recon()->MSFlexGrid1.Rows(), 12);

    f.dialogs.QueueAnswer(vbYes);
    EXPECT_THROW(f.mdi.Close(), ProgramEnded);
    EXPECT_EQ(f.dialogs.Messages().size(), 2u);
}

TEST(MainWindow, ExitEntryEndsWithoutAQuestion) {
    Frame f;
    f.mdi.开票票据核对表.Click();
    EXPECT_THROW(f.mdi.退出.Click(), ProgramEnded);
    EXPECT_TRUE(f.dialogs.Messages().empty());
}

// The banner box follows the client width; its copies come from the width alone.
TEST(MainWindow, BannerStripsAndEndPiece) {
    struct Case {
        const char* why;
        int scaleWidth;
        std::vector<BannerCopy> copies;
    } cases[] = {
        {"narrower than the bitmap: only the end piece", 12000, {{8850, 4000, 8000}}},
        {"exactly the bitmap's width", 12850, {{8850, 4000, 8850}}},
        {"9150 would be the first strip, but the end piece starts there", 13150, {{8850, 4000, 9150}}},
        {"one twip more: one strip", 13151, {{8850, 300, 9150}, {8850, 4000, 9151}}},
        {"four strips: 10050 is still left of 10300, 10350 is not",
         14300,
         {{8850, 300, 9150}, {8850, 300, 9450}, {8850, 300, 9750}, {8850, 300, 10050}, {8850, 4000, 10300}}},
        {"narrower than the left part", 9000, {{8850, 4000, 5000}}},
    };
    Frame f;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(BannerCopies(c.scaleWidth), c.copies);
        f.mdi.SetClientSize(c.scaleWidth, 6000);
        EXPECT_EQ(f.mdi.BannerOps(), c.copies);
        EXPECT_EQ(f.mdi.Picture1.Width(), c.scaleWidth);
        EXPECT_EQ(f.mdi.Picture1.Height(), kBannerHeight);
    }
}

TEST(MainWindow, BackgroundIsTheProgramFoldersPictureStretched) {
    Frame f;
    EXPECT_FALSE(f.mdi.Picture().has_value()) << "no MDI.BMP: the background stays empty";
    std::ofstream(f.folder.File("MDI.BMP")) << "BM";
    f.mdi.SetClientSize(12000, 8000);
    ASSERT_TRUE(f.mdi.Picture().has_value());
    EXPECT_EQ(f.mdi.Picture()->File, f.folder.File("MDI.BMP"));
    EXPECT_EQ(f.mdi.Picture()->Width, 12000);
    EXPECT_EQ(f.mdi.Picture()->Height, 8000);
}

TEST(AboutBox, CaptionsVersionCompanyAndItsTwoButtons) {
    Frame f;
    f.session.CompanyDisplayName = "某某物业管理有限公司";
    f.session.CompanyDisplayNameEng = "Mou Mou Property Co.";
    f.mdi.关于软件.Click();
    auto* about = dynamic_cast<frmAbout*>(f.mdi.Windows.Find("frmAbout"));
    ASSERT_NE(about, nullptr);
    struct Case {
        const char* control;
        std::string caption;
    } cases[] = {
        {"Label7", std::string("系统信息设置系统") + QUILLON_PROJECT_VERSION},
        {"lblTitle", "Quillon的一部分"},
        {"Label4", "某某物业管理有限公司"},
        {"Label5", "Mou Mou Property Co."},
        {"lblVersion", "版本"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.control);
        auto* label = dynamic_cast<Label*>(about->FindControl(c.control));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->Caption(), c.caption);
    }
    EXPECT_EQ(about->Caption(), "关于Quillon");
    EXPECT_EQ(about->cmdOK.Caption(), "确定");
    EXPECT_EQ(about->cmdSysInfo.Caption(), "系统信息");
    for (const Label* own : {&about->Label1, &about->Label2, &about->Label3, &about->lblDisclaimer})
        EXPECT_FALSE(own->Caption().empty()) << own->Name();
    // Centred in the frame's 15000 × 9000 client area.
    EXPECT_EQ(about->Left(), (15000 - about->Width()) / 2);
    EXPECT_EQ(about->Top(), (9000 - about->Height()) / 2);

    about->cmdSysInfo.Click();
    ASSERT_EQ(f.dialogs.Messages().size(), 1u);
    EXPECT_EQ(f.dialogs.Messages()[0].Text, "此时系统信息不可用");
    about->cmdOK.Click();
    EXPECT_EQ(f.mdi.Windows.Find("frmAbout"), nullptr);
}

TEST(WindowRouter, FailedLoadKeepsNoInstanceAndUnloadingTwiceIsHarmless) {
    class Failing : public Form {
    public:
        Failing() : Form("frmFail", "x") {}

    protected:
        void Form_Load() override { throw VbError(5, "无效的过程调用或参数"); }
    };
    AppSession session;
    ScriptedDialogs dialogs;
    WindowRouter router(session, dialogs);
    int made = 0;
    router.Register("frmFail", [](AppSession&, Dialogs&) { return std::make_unique<Failing>(); });
    router.Register("w", [&made](AppSession&, Dialogs&) {
        ++made;
        return std::make_unique<Form>("w", "w");
    });
    EXPECT_THROW(router.Open("frmFail"), VbError);
    EXPECT_EQ(router.Find("frmFail"), nullptr);

    Form& first = router.Open("w");
    first.Unload();
    first.Unload();
    EXPECT_EQ(router.Find("w"), nullptr);
    router.Open("w");
    EXPECT_NE(router.Find("w"), nullptr);
    EXPECT_EQ(made, 2);
}

} // namespace
} // namespace quillon
