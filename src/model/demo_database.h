// demo_database.h — model layer: writes a deterministic demo billing database (two years of a
// property-management company's invoices, ledger and vouchers) for the demo run and benchmarks.
#pragma once

#include <string>

namespace quillon {

struct DemoOptions {
    int invoices = 6000;      // invoices written (a fixed set of showcase bills is among them)
    unsigned seed = 20240101; // same seed, same file
};

// Writes the demo database to `path`, replacing any file there. Throws std::runtime_error.
void WriteDemoDatabase(const std::string& path, const DemoOptions& options);

} // namespace quillon
