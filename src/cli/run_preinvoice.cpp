// quillon-cli run preinvoice …: the pre-invoice detail through frm票据预开明细表New.
#include "cli/run_detail.h"
#include "preinvoice/preinvoice_window.h"

namespace quillon {

int RunPreInvoiceReport(const std::vector<std::string>& args) {
    return RunDetailReport<frm票据预开明细表New>(args);
}

} // namespace quillon
