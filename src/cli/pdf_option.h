// pdf_option.h — quillon-cli's --pdf FILE, shared by the report drivers: the printed pages of a
// grid, as the GUI's print preview shows them, written to FILE.
#pragma once

#include "cli/cli_options.h"
#include "controls/print_job.h"

namespace quillon {

// With --pdf FILE, writes the job's pages to FILE; without it, does nothing. A build without the
// GUI has no PDF writer: then --pdf fails with "--pdf is not available in this build".
// Throws std::runtime_error when the file cannot be written.
void WritePdfIfAsked(const CliOptions& options, const PrintJob& job);

} // namespace quillon
