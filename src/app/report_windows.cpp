#include "app/report_windows.h"

#include <memory>

#include "deptrate/deptrate_window.h"
#include "invoice/invoice_window.h"
#include "parking/parking_window.h"
#include "preinvoice/preinvoice_window.h"
#include "reconciliation/recon_window.h"
#include "shell/main_window.h"
#include "summary/summary_window.h"

namespace quillon {
namespace {

template <typename W> std::unique_ptr<Form> MakeWindow(AppSession& session, Dialogs& dialogs) {
    return std::make_unique<W>(session, dialogs);
}

} // namespace

void RegisterReportWindows(MDIForm1& mdi) {
    // One line per report window that is built; the others open their placeholder.
    mdi.Windows.Register("frm票据核对表", MakeWindow<frm票据核对表>);
    mdi.Windows.Register("frm部门开票分税率统计表", MakeWindow<frm部门开票分税率统计表>);
    mdi.Windows.Register("frm票据预开明细表New", MakeWindow<frm票据预开明细表New>);
    mdi.Windows.Register("frm停车费明细表New", MakeWindow<frm停车费明细表New>);
    mdi.Windows.Register("frm票据开票明细表New", MakeWindow<frm票据开票明细表New>);
    mdi.Windows.Register("frm预开票汇总表", MakeWindow<frm预开票汇总表>);
}

} // namespace quillon
