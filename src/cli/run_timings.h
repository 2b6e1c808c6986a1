// run_timings.h — quillon-cli run … --timings: where the time of one run went, printed on
// stderr: the whole run, the database engine's part and its statements, the program's own work
// to fill the grid, and the workbook export.
#pragma once

#include <chrono>
#include <string>

#include "db/connection.h"

namespace quillon {

class RunTimings {
public:
    using Clock = std::chrono::steady_clock;

    // The run of this process; Start() when --timings is given, else every note is ignored.
    static RunTimings& Current();

    void Start();
    bool Wanted() const { return wanted_; }
    void SessionOpened(const Connection& connection);
    void ExportBegins();
    void ExportEnds();
    void SessionClosing();

    // "timings: total 0.812 s, engine 0.701 s in 39 statements, grid 0.090 s, export 0.020 s"
    std::string Line() const;

private:
    bool wanted_ = false;
    const Connection* connection_ = nullptr;
    Clock::time_point start_{}, opened_{}, exportBegin_{}, exportEnd_{}, end_{};
    Connection::EngineTime engine_{};         // at the close of the session
    Connection::EngineTime engineAtExport_{}; // when the export began
    bool exported_ = false;
};

} // namespace quillon
