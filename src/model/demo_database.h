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
};

// Writes the demo database to `path`, replacing any file there. Throws std::runtime_error.
void WriteDemoDatabase(const std::string& path, const DemoOptions& options);

// The data version stamped into a demo database; -1 when the file is missing or no database.
int ReadDemoDataVersion(const std::string& path);

} // namespace quillon
