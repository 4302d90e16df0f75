#include "session/WorkDone.h"

namespace session {

namespace {

std::vector<WorkDone> done;

/// A result that was revoked is not looked at any more.
bool takesPlaceOf(const WorkDone& work, const WorkDone& former) {
    const bool sameThing =
        former.work == work.work || (work.work == Work::RevokedResult && former.work == Work::Result);
    return sameThing && former.number == work.number && former.IdNum == work.IdNum;
}

} // namespace

void tellDone(WorkDone work) {
    work.at = base::now();
    if (!work.number.isEmpty())
        std::erase_if(done, [&](const WorkDone& former) { return takesPlaceOf(work, former); });
    done.insert(done.begin(), std::move(work));
    if (done.size() > mostWorkDone)
        done.resize(mostWorkDone);
    Q_EMIT workTeller().Changed();
}

const std::vector<WorkDone>& workDone() {
    return done;
}

void forgetWorkDone() {
    done.clear();
    Q_EMIT workTeller().Changed();
}

WorkTeller& workTeller() {
    static WorkTeller teller;
    return teller;
}

} // namespace session
