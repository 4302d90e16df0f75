#include "server/demo/Hospital.h"

#include "server/demo/World.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"

namespace demo {

namespace {

constexpr std::uint64_t demoSeed = 1978;

void writeDemo(engine::EmbeddedProvider& provider, const hospital::Progress& progress) {
    World world{provider.handle(), base::now(), Chance(demoSeed), {}, {}, {}};
    const auto tell = [&](int percent, const char* stage) {
        if (progress)
            progress(percent, QString::fromLatin1(stage));
    };
    tell(60, "Users");
    writeUsers(world);
    tell(80, "Files");
    writeCatalogue(world);
    tell(84, "Patients");
    writePatients(world);
    tell(90, "Requests");
    writeRequests(world);
    tell(96, "Wards and cashier");
    writeWards(world);
    writeCashier(world);
    writeReaderPayments(world);
}

} // namespace

void createHospital(const QString& file, const hospital::Progress& progress) {
    hospital::createFilledHospital(file, writeDemo, progress);
}

} // namespace demo
