#include "cli/pdf_option.h"

#include <stdexcept>

#ifdef QUILLON_WITH_PDF
#include "pdf/grid_pdf.h"
#endif

namespace quillon {

void WritePdfIfAsked(const CliOptions& options, const PrintJob& job) {
    const auto path = options.Get("pdf");
    if (!path) return;
#ifdef QUILLON_WITH_PDF
    WriteGridPdf(job, *path);
#else
    (void)job;
    throw std::runtime_error("--pdf is not available in this build");
#endif
}

} // namespace quillon
