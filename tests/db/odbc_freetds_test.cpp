// The ODBC backend's open against SQL Server through FreeTDS, with no server: a closed port
// fails at once, a server that accepts but never answers gives up at the login timeout, and
// either way the description is the driver's own.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>

#include "db/connection.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

// A TCP port on 127.0.0.1 bound for the test's life. Listening, the kernel completes every
// connection into the backlog and nothing ever answers; not listening, the port refuses.
class LocalPort {
public:
    explicit LocalPort(bool listen) {
        fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in addr{};
        addr.sin_family = AF_INET;
        addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        addr.sin_port = 0;
        socklen_t len = sizeof addr;
        if (fd_ < 0 || ::bind(fd_, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
            ::getsockname(fd_, reinterpret_cast<sockaddr*>(&addr), &len) != 0 ||
            (listen && ::listen(fd_, 4) != 0))
            throw std::runtime_error("cannot set up a local port");
        port_ = ntohs(addr.sin_port);
    }
    ~LocalPort() { ::close(fd_); }
    LocalPort(const LocalPort&) = delete;
    LocalPort& operator=(const LocalPort&) = delete;

    // "127.0.0.1,<port>": the host,port form an administrator writes into Svr.
    std::string DataSource() const { return "127.0.0.1," + std::to_string(port_); }

private:
    int fd_ = -1;
    int port_ = 0;
};

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
