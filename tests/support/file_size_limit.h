// file_size_limit.h — test support: runs a piece of a test in a child process whose files may
// not grow past a size, as a full disk would stop them. A write past the limit fails with EFBIG
// (SIGXFSZ is ignored, as a full disk sends no signal) and the child's answer comes back as text.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>

namespace quillon {

// Runs `step` in a forked child with RLIMIT_FSIZE at `bytes` and gives the text it returned. A
// child that ends otherwise (an exception, a signal) gives "child failed: …".
inline std::string RunWithFileSizeLimit(rlim_t bytes, const std::function<std::string()>& step) {
    int pipeFds[2];
    if (pipe(pipeFds) != 0) throw std::runtime_error("pipe failed");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("fork failed");
    if (child == 0) {
        close(pipeFds[0]);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::string answer;
        try {
            answer = step();
        } catch (const std::exception& e) {
            answer = std::string("child failed: ") + e.what();
        }
        for (size_t done = 0; done < answer.size();) {
            const ssize_t n = write(pipeFds[1], answer.data() + done, answer.size() - done);
            if (n <= 0) break;
            done += static_cast<size_t>(n);
        }
        _exit(0);
    }
    close(pipeFds[1]);
    std::string answer;
    char buffer[4096];
    for (ssize_t n; (n = read(pipeFds[0], buffer, sizeof buffer)) > 0;)
        answer.append(buffer, static_cast<size_t>(n));
    close(pipeFds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return "child failed: status " + std::to_string(status) + " after \"" + answer + "\"";
    return answer;
}

} // namespace quillon
