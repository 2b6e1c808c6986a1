// quillon-cli run invoice …: the invoice detail through frm票据开票明细表New.
#include "cli/run_detail.h"
#include "invoice/invoice_window.h"

namespace quillon {

int RunInvoiceReport(const std::vector<std::string>& args) {
    return RunDetailReport<frm票据开票明细表New>(args);
}

} // namespace quillon
