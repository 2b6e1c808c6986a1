// The detail windows' printed result: the whole run, not the page the pager shows.
#include <algorithm>

#include "base/vb_number.h"
#include "workbench/detail_report_form.h"

namespace quillon {

bool DetailReportForm::PrintResult(const std::function<void(const PrintJob&)>& print) {
    // A page as long as the whole result lays every row into the grid in one pass.
    struct WholeResult {
        DetailReportForm& w;
        const int pageSize = w.Pager.PageSize;
        const bool found = w.MSFlexGrid1.Rows() > 2;
        explicit WholeResult(DetailReportForm& window) : w(window) {
            if (!found) return;
            w.Pager.PageSize = w.Pager.PageCount * std::max(1, pageSize);
            w.Pager.RenderPage(1);
        }
        ~WholeResult() {
            if (!found) return;
            w.Pager.PageSize = pageSize;
            w.Pager.RenderPage(w.Pager.CurrentPage);
        }
        WholeResult(const WholeResult&) = delete;
        WholeResult& operator=(const WholeResult&) = delete;
    } whole(*this);
    const std::string dates = std::string(texts_.dateLabel) + ": " +
                              Format(DTPicker1_0.Value(), "yyyy-mm-dd") + " 至 " +
                              Format(DTPicker1_1.Value(), "yyyy-mm-dd");
    print(PrintJob{Label1_0.Caption(), dates, &MSFlexGrid1});
    return true;
}

} // namespace quillon
