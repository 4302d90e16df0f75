#include "tests/support/core/FullDisk.h"

#include <sys/resource.h>

#include <csignal>

namespace tests {

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

} // namespace tests
