// report_windows.h — program: registers the report windows that exist with the main window's
// router; a report without a line here still opens its placeholder.
#pragma once

namespace quillon {

class MDIForm1;

void RegisterReportWindows(MDIForm1& mdi);

} // namespace quillon
