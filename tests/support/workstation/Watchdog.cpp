#include "tests/support/workstation/Watchdog.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

namespace tests {

namespace {

std::atomic<int> beats = 0;

} // namespace

Watchdog::Watchdog(int seconds) {
    std::thread([seconds] {
        int seen = -1;
        int waited = 0; // in turns of this thread, which stand still where the process does
        std::clock_t used = 0;
        for (;;) {
            if (const int now = beats; now != seen) {
                seen = now;
                waited = 0;
                used = std::clock();
            }
            if (std::clock() - used > std::clock_t(seconds) * CLOCKS_PER_SEC || waited++ > 10 * seconds) {
                std::puts("hangs");
                std::fflush(stdout);
                std::_Exit(3);
            }
            std::this_thread::sleep_for(std::chrono::seconds(1));
        }
    }).detach();
}

void Watchdog::beat() {
    ++beats;
}

} // namespace tests
