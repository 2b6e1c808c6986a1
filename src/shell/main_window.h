// main_window.h — shell layer: MDIForm1, the frame every window opens in: its caption, the menu
// with its routing to the windows, the banner across the top, the stretched background picture,
// and the two ways out. Headless; the Qt skin draws it and feeds it the user's actions.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/panel.h"
#include "shell/menu_entry.h"
#include "shell/window_router.h"

namespace quillon {

struct AppSession;
class Dialogs;

// The banner bitmap, in twips: its fixed left part ends at the strip, which is repeated to the
// right; the end piece starts at the strip too and is placed flush right.
inline constexpr int kBannerStripLeft = 8850;
inline constexpr int kBannerStripWidth = 300;
inline constexpr int kBannerEndWidth = 4000;
// The narrowest bitmap that holds the left part and a whole end piece, and the box's height.
inline constexpr int kBannerBitmapMinWidth = kBannerStripLeft + kBannerEndWidth;
inline constexpr int kBannerHeight = 1050;

// One copy of a full-height part of the banner bitmap into the banner box (plain copy, on top of
// the bitmap drawn at 0,0).
struct BannerCopy {
    int sourceLeft = 0;
    int width = 0;
    int destLeft = 0;
    bool operator==(const BannerCopy&) const = default;
};

// The copies the banner box makes at a given ScaleWidth: the middle strip repeated from
// 9150 onwards while it stays left of the end piece's place, then the end piece.
std::vector<BannerCopy> BannerCopies(int scaleWidth);

// Places a window in the middle of the frame's client area.
void CenterForm(Form& form, const Form& frame);

// The picture painted stretched over the frame's client area.
struct BackgroundPicture {
    std::string File;
    int Width = 0; // twips
    int Height = 0;
    bool operator==(const BackgroundPicture&) const = default;
};

inline constexpr const char* kBackgroundFileName = "MDI.BMP";

// The window each menu entry opens, in menu order.
struct MenuRoute {
    const char* entry;
    const char* window;
};
extern const MenuRoute kMenuRoutes[7];

class MDIForm1 : public Form {
public:
    // programFolder: where MDI.BMP is looked for.
    MDIForm1(AppSession& session, Dialogs& dialogs, std::string programFolder);

    // The menu, named by caption.
    MenuEntry 统计报表{"统计报表"};
    MenuEntry 停车费明细表{"停车费明细表"};
    MenuEntry 增值税开票明细表{"增值税开票明细表"};
    MenuEntry 增值税预开明细表{"增值税预开明细表"};
    MenuEntry 开票票据核对表{"开票票据核对表"};
    MenuEntry 增值税开票统计汇总表{"增值税开票统计汇总表"};
    MenuEntry mnuSeparator{"mnuSeparator", "-"};
    MenuEntry 预开票汇总表{"预开票汇总表"};
    MenuEntry 退出系统{"退出系统"};
    MenuEntry 退出{"退出"};
    MenuEntry 关于{"关于"};
    MenuEntry 关于软件{"关于软件"};
    MenuEntry 联系我们{"联系我们"};

    // The banner box, aligned to the top: always as wide as the client area.
    Panel Picture1{"Picture1"};

    // The top-level menu entries, in menu-bar order.
    const std::vector<MenuEntry*>& Menus() const { return menus_; }
    MenuEntry* FindMenu(const std::string& name) const;

    // The windows' default instances; register a window's real factory here to replace its
    // placeholder.
    WindowRouter Windows;

    const std::vector<BannerCopy>& BannerOps() const { return bannerOps_; }
    // Empty when MDI.BMP is missing or before the first resize.
    const std::optional<BackgroundPicture>& Picture() const { return picture_; }

    // Opens a window through the router (Show, ZOrder 0).
    Form& OpenWindow(const std::string& windowName);

    void 退出_Click();

    // The dialogs the frame and its windows show their messages and previews through.
    Dialogs& WindowDialogs() const { return dialogs_; }
    void 联系我们_Click() {}

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;

private:
    void Picture1_Resize();
    void PaintBackground();

    AppSession& session_;
    Dialogs& dialogs_;
    std::string programFolder_;
    std::vector<MenuEntry*> menus_;
    std::vector<BannerCopy> bannerOps_;
    std::optional<BackgroundPicture> picture_;
};

} // namespace quillon
