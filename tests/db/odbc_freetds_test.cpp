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

#include "db/backend.h"
#include "db/connection.h"
#include "db/db_error.h"

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

TEST(OdbcFreeTds, AClosedPortFailsAtOnceWithTheDriversText) {
    LocalPort bound(/*listen=*/false); // bound but not listening: connections are refused
    Connection conn;
    conn.ConnectionString = StartupText(bound.DataSource());
    conn.ConnectionTimeout = 2;
    auto start = Clock::now();
    try {
        conn.Open();
        ADD_FAILURE() << "opened a connection to a closed port";
    } catch (const DbError& e) {
        EXPECT_EQ(e.Number, kAdoErrGeneric);
        EXPECT_NE(e.Description.find("[FreeTDS]"), std::string::npos) << e.Description;
    }
    EXPECT_LT(SecondsSince(start), 2.0);
    EXPECT_FALSE(conn.IsOpen());
}

TEST(OdbcFreeTds, ASilentServerIsGivenUpAtTheLoginTimeoutNotSooner) {
    LocalPort silent(/*listen=*/true);
    // The open runs on a thread of its own: were the login timeout lost, it would wait for ever,
    // and the test fails at a deadline instead of hanging the run (the thread is left behind).
    std::promise<DbError> failure;
    auto outcome = failure.get_future();
    auto start = Clock::now();
    std::thread([text = StartupText(silent.DataSource()), failure = std::move(failure)]() mutable {
        try {
            MakeOdbcBackend()->Open(ConnectionString::Parse(text), OpenOptions{2, "FreeTDS"});
            failure.set_value(DbError(0, "opened a connection to a server that never answered"));
        } catch (const DbError& e) {
            failure.set_value(e);
        }
    }).detach();
    ASSERT_EQ(outcome.wait_for(std::chrono::seconds(15)), std::future_status::ready)
        << "the open was still waiting after 15 s with a login timeout of 2 s";
    double seconds = SecondsSince(start);
    DbError e = outcome.get();
    EXPECT_EQ(e.Number, kAdoErrGeneric);
    EXPECT_NE(e.Description.find("[FreeTDS]"), std::string::npos) << e.Description;
    EXPECT_GE(seconds, 1.9);
    EXPECT_LT(seconds, 6.0);
}

} // namespace
} // namespace quillon
