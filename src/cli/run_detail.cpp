#include "cli/run_detail.h"

#include "base/vb_number.h"
#include "cli/grid_tsv.h"

namespace quillon {

SplitOption ParseSplit(const std::string& text) {
    const std::size_t eq = text.find('=');
    const std::size_t colon = text.find(':', eq == std::string::npos ? 0 : eq);
    if (eq == std::string::npos || eq == 0 || colon == std::string::npos)
        throw UsageError("--split must be ITEMCODE=DEV:PROP, not '" + text + "'");
    return {text.substr(0, eq), text.substr(eq + 1, colon - eq - 1), text.substr(colon + 1)};
}

void TypeSplit(DetailReportForm& w, const SplitOption& split) {
    const int row = w.SplitTable.RowOf("'" + split.itemCode + "'");
    if (row < 0) throw std::runtime_error("no parking item " + split.itemCode + " in the split table");
    w.MSFlexGrid2.ClickCell(row, kSplitDeveloperCol);
    for (const std::string& typed : {split.developer, split.property}) {
        w.txtGRD.SetText(typed);
        w.txtGRD.PressKey(13);
    }
}

void WritePages(DetailReportForm& w, std::ostream& out) {
    WriteGridTsv(w.MSFlexGrid1, out, 0, 1);
    if (w.MSFlexGrid1.Rows() == 2) return; // the run found nothing
    for (int page = 1; page <= w.Pager.PageCount; ++page) {
        w.Pager.RenderPage(page);
        WriteGridTsv(w.MSFlexGrid1, out, 2);
    }
}

void WriteDetailPdf(DetailReportForm& w, const CliOptions& options) {
    if (!options.Get("pdf")) return; // the whole result goes into the grid only for a file
    w.PrintResult([&options](const PrintJob& job) { WritePdfIfAsked(options, job); });
}

} // namespace quillon
