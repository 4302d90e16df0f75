// The readers of texts under libFuzzer: long-fuzz TARGET FOLDER [libFuzzer's own words]. The folder takes the
// kept inputs first, and then whatever comes to something new.

#include "platform/base/DesksLanguage.h"
#include "tests/long/Fault.h"
#include "tests/long/FuzzTargets.h"
#include "tests/server/engine/Mutator.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const attacks::FuzzTarget* current = nullptr;

const attacks::FuzzTarget* find(const char* name) {
    for (const attacks::FuzzTarget& target : attacks::fuzzTargets())
        if (std::strcmp(target.name, name) == 0)
            return &target;
    return nullptr;
}

void layOut(const QString& folder) {
    QDir().mkpath(folder);
    int number = 0;
    for (const std::string& text : attacks::corpusOf(*current)) {
        QFile file(folder + QStringLiteral("/kept-%1").arg(++number));
        if (file.open(QIODevice::WriteOnly))
            file.write(text.data(), qint64(text.size()));
    }
}

} // namespace

[[noreturn]] void attacks::fault(const QString& line) {
    std::fprintf(stderr, "fault %s\n", qPrintable(line));
    std::abort();
}

extern "C" {

std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);
int LLVMFuzzerInitialize(int* argc, char*** argv);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed);

int LLVMFuzzerInitialize(int* argc, char*** argv) {
    current = *argc > 2 ? find((*argv)[1]) : nullptr;
    if (!current) {
        std::fputs("long-fuzz TARGET FOLDER [libFuzzer's own words]\n", stderr);
        std::exit(2);
    }
    base::ignoreDesksLanguage();
    static int none = 1;
    static char* name[] = {(*argv)[0], nullptr};
    new QGuiApplication(none, name);
    layOut(QString::fromLocal8Bit((*argv)[2]));
    std::copy(*argv + 2, *argv + *argc + 1, *argv + 1);
    --*argc;
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    current->target(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}

/// Every other change is one of words, as the attack makes it.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    if (seed % 2 == 0)
        return LLVMFuzzerMutate(data, size, most);
    static tests::Mutator mutator(seed);
    const std::string changed = mutator.mutated(std::string(reinterpret_cast<const char*>(data), size));
    const std::size_t kept = std::min(changed.size(), most);
    std::memcpy(data, changed.data(), kept);
    return kept;
}

} // extern "C"
