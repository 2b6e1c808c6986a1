// The ODBC backend's open against SQL Server through FreeTDS, with no server: a closed port
// fails at once, a server that accepts but never answers gives up at the login timeout, and
// either way the description is the driver's own.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "db/connection.h"
#include "db_test_support.h"
#include "support/local_port.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

std::string StartupText(const std::string& server) {
    return "Provider=SQLOLEDB.1;Password=secret;Persist Security Info=False;User ID=reader;"
           "Initial Catalog='物业收费';Data Source='" +
           server + "'";
}

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

TEST(OdbcFreeTds, WithNoServerTheOpenFailsWithTheDriversTextWithinTheLoginTimeout) {
    struct Case {
        const char* why;
        bool listen;
        double atLeast, below; // seconds
    } cases[] = {
        {"a port bound but not listening refuses at once", false, 0.0, 2.0},
        {"a silent server is given up at the login timeout, not sooner", true, 1.9, 6.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        LocalPort port(c.listen);
        // The open runs on a thread of its own: were the login timeout lost, it would wait for
        // ever, and the test fails at a deadline instead of hanging the run (the thread is left
        // behind).
        std::promise<std::pair<DbError, bool>> done;
        auto outcome = done.get_future();
        const auto start = Clock::now();
        std::thread([text = StartupText(port.DataSource()), done = std::move(done)]() mutable {
            Connection conn;
            conn.ConnectionString = text;
            conn.ConnectionTimeout = 2;
            const DbError e = testing::ErrorOf([&] { conn.Open(); });
            done.set_value({e, conn.IsOpen()});
        }).detach();
        ASSERT_EQ(outcome.wait_for(std::chrono::seconds(15)), std::future_status::ready)
            << "the open was still waiting after 15 s with a login timeout of 2 s";
        const double seconds = SecondsSince(start);
        const auto [e, open] = outcome.get();
        EXPECT_EQ(e.Number, kAdoErrGeneric);
        EXPECT_NE(e.Description.find("[FreeTDS]"), std::string::npos) << e.Description;
        EXPECT_FALSE(open);
        EXPECT_GE(seconds, c.atLeast);
        EXPECT_LT(seconds, c.below);
    }
}

} // namespace
} // namespace quillon
