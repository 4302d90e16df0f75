#include "tests/support/workstation/PowerCut.h"

#include <cstdlib>

namespace tests {

PowerCut::PowerCut(int& pointsLeft, Points points) : m_left(pointsLeft), m_points(points) {}

void PowerCut::beforeStatement(const QString&, ado::StatementKind) {
    ++m_statements;
    point();
}

void PowerCut::afterStatement(const ado::StatementEvent&) {
    if (m_points == Points::BeforeAndBehind)
        point();
}

void PowerCut::transactionStep(ado::TransactionStep) {
    ++m_statements;
    point();
}

void PowerCut::point() {
    if (--m_left == 0)
        std::_Exit(died);
}

} // namespace tests
