#include "cli/run_timings.h"

#include <cstdio>

namespace quillon {
namespace {

double Seconds(std::chrono::nanoseconds d) {
    return std::chrono::duration<double>(d).count();
}

} // namespace

RunTimings& RunTimings::Current() {
    static RunTimings timings;
    return timings;
}

void RunTimings::Start() {
    *this = RunTimings();
    wanted_ = true;
    start_ = Clock::now();
}

void RunTimings::SessionOpened(const Connection& connection) {
    connection_ = &connection;
    opened_ = Clock::now();
}

void RunTimings::ExportBegins() {
    exportBegin_ = Clock::now();
    if (connection_) engineAtExport_ = connection_->Engine();
}

void RunTimings::ExportEnds() {
    exportEnd_ = Clock::now();
    exported_ = true;
}

void RunTimings::SessionClosing() {
    if (connection_) engine_ = connection_->Engine();
    connection_ = nullptr;
    end_ = Clock::now();
}

std::string RunTimings::Line() const {
    const auto end = end_ == Clock::time_point{} ? Clock::now() : end_;
    // The grid: from the open session to the export (or the end), less the engine's part in it.
    const auto gridEnd = exported_ ? exportBegin_ : end;
    const auto engineBeforeExport = exported_ ? engineAtExport_.spent : engine_.spent;
    const double grid = Seconds(gridEnd - opened_) - Seconds(engineBeforeExport);
    const double exportTime = exported_ ? Seconds(exportEnd_ - exportBegin_) : 0.0;
    char line[160];
    std::snprintf(line, sizeof line,
                  "timings: total %.3f s, engine %.3f s in %d statements, grid %.3f s, export %.3f s",
                  Seconds(end - start_), Seconds(engine_.spent), engine_.statements, grid, exportTime);
    return line;
}

} // namespace quillon
