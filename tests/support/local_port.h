// local_port.h — test support: a TCP port on 127.0.0.1 bound for the test's life, standing in for
// a SQL Server that cannot be reached. Listening, the kernel completes every connection into the
// backlog and nothing ever answers (a silent server); not listening, the port refuses.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace quillon {

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

} // namespace quillon
