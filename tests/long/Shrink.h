#pragma once

#include <QStringList>

#include <algorithm>
#include <functional>

namespace attacks {

/// The shortest list that still fails and that no single further cut keeps failing: pieces are left out,
/// halves first, single ones last. `fails(list)` must be true for `list` itself.
inline QStringList shrink(QStringList list, const std::function<bool(const QStringList&)>& fails) {
    for (qsizetype piece = std::max<qsizetype>(1, list.size() / 2);;) {
        bool shorter = false;
        for (qsizetype from = 0; from < list.size();) {
            const QStringList without = list.mid(0, from) + list.mid(from + piece);
            if (without.size() < list.size() && fails(without)) {
                list = without;
                shorter = true;
            } else {
                from += piece;
            }
        }
        if (piece == 1 && !shorter)
            return list;
        if (!shorter || piece > list.size())
            piece = std::max<qsizetype>(1, piece / 2);
    }
}

} // namespace attacks
