#include "cli/run_detail.h"
#include "parking/parking_window.h"

namespace quillon {

int RunParkingReport(const std::vector<std::string>& args) {
    return RunDetailReport<frm停车费明细表New>(args);
}

} // namespace quillon
