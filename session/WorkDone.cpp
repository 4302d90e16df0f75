#include "session/WorkDone.h"

namespace session {

namespace {

std::deque<WorkDone> done;
std::deque<std::size_t> marks; ///< of each, by what it is known by: most of 200 are told apart at a glance

std::size_t markOf(const WorkDone& work) {
    return qHashMulti(0, work.number, work.IdNum);
}

/// A result that was revoked is not looked at any more.
bool takesPlaceOf(const WorkDone& work, const WorkDone& former) {
    const bool sameThing =
        former.work == work.work || (work.work == Work::RevokedResult && former.work == Work::Result);
    return sameThing && former.number == work.number && former.IdNum == work.IdNum;
}

void drop(std::size_t place) {
    done.erase(done.begin() + std::ptrdiff_t(place));
    marks.erase(marks.begin() + std::ptrdiff_t(place));
}

} // namespace

void tellDone(WorkDone work) {
    work.at = base::now();
    const std::size_t mark = markOf(work);
    for (std::size_t i = work.number.isEmpty() ? 0 : done.size(); i > 0; --i) {
        if (marks[i - 1] == mark && takesPlaceOf(work, done[i - 1]))
            drop(i - 1);
    }
    done.push_front(std::move(work));
    marks.push_front(mark);
    if (done.size() > mostWorkDone)
        drop(mostWorkDone);
    Q_EMIT workTeller().Changed();
}

const std::deque<WorkDone>& workDone() {
    return done;
}

void forgetWorkDone() {
    done.clear();
    marks.clear();
    Q_EMIT workTeller().Changed();
}

WorkTeller& workTeller() {
    static WorkTeller teller;
    return teller;
}

} // namespace session
