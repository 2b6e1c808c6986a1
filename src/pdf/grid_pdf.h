// grid_pdf.h — the printed pages of a grid as a PDF file, for callers that know nothing of Qt
// (quillon-cli). The pages are those of the print preview: one layout, one painter.
#pragma once

#include <string>

#include "controls/print_job.h"

namespace quillon {

// Lays the job out on A4 and writes its pages to `path`. The file is written beside the target
// and renamed over it once complete, so a failure leaves any earlier file as it was and no part
// of the new one. Without a running Qt application, one is started on the offscreen platform for
// the call. Throws std::runtime_error naming the path when the file cannot be written.
void WriteGridPdf(const PrintJob& job, const std::string& path);

} // namespace quillon
