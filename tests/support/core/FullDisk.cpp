#include "tests/support/core/FullDisk.h"

#ifdef _WIN32
#include <stdexcept>
#else
#include <sys/resource.h>

#include <csignal>
#endif

namespace tests {

#ifdef _WIN32
// Windows has no limit of a process's files: who asks for one is left out there (packaging/windows/left-out).
FullDisk::FullDisk(qint64) : m_before(0), m_handler(nullptr) {
    throw std::runtime_error("no full disk here");
}
FullDisk::~FullDisk() = default;
#else

FullDisk::FullDisk(qint64 bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    m_before = limit.rlim_cur;
    limit.rlim_cur = rlim_t(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = rlim_t(m_before);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, m_handler);
}
#endif

} // namespace tests
