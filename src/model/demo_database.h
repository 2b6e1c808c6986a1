// demo_database.h — model layer: writes a deterministic demo billing database (two years of a
// property-management company's invoices, ledger and vouchers) for the demo run and benchmarks.
#pragma once

#include <string>

namespace quillon {

// Stamped into the file (SQLite's user_version) and raised whenever the generator's data change,
// so that a demo database written by an earlier build is made anew rather than shown stale.
inline constexpr int kDemoDataVersion = 4;

struct DemoOptions {
    int invoices = 6000;      // invoices written (a fixed set of showcase bills is among them)
    unsigned seed = 20240101; // same seed, same file
    // The last month of the two years of books; 2024-01 to 2025-12 unless moved. The books are
    // the same, moved by whole months (a day past a shorter month's end falls on its last day).
    int lastYear = 2025;
    int lastMonth = 12;
};

// Writes the demo database to `path`, replacing any file there. Throws std::runtime_error.
void WriteDemoDatabase(const std::string& path, const DemoOptions& options);

// The data version stamped into a demo database; -1 when the file is missing or no database.
int ReadDemoDataVersion(const std::string& path);

// The books' last month stamped into a demo database (SQLite's application_id), as yyyymm; 0 when
// the file is missing, no database, or has no stamp.
int ReadDemoLastMonth(const std::string& path);

} // namespace quillon
