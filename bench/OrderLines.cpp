#include "bench/OrderLines.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"

namespace bench {

std::vector<OrderLine> tenLines() {
    std::vector<OrderLine> lines;
    const auto take = [&lines](const char* revenue, ado::Recordset rows, const char* amount) {
        for (; !rows.Eof(); rows.MoveNext())
            lines.push_back({QString::fromLatin1(revenue), base::Trim(rows.Fields(0).text()),
                             base::Trim(rows.Fields(1).text()), QString::fromLatin1(amount)});
    };
    take("NU", session::Read(ado::sql("SELECT TOP 6 NucExamID, NucExam FROM BUILD_FILE..tbcoNucExam")),
         "6250.00");
    take("MD", session::Read(ado::sql("SELECT TOP 2 DoctorID, LastName FROM BUILD_FILE..tbcoDoctor")),
         "1500.00");
    take("UR",
         session::Read(ado::sql("SELECT TOP 2 M.ItemID, M.ItemName FROM INVENTORY..tbInvMaster M INNER JOIN "
                                "INVENTORY..tbInvStock S ON S.ItemID = M.ItemID WHERE S.LocationID = '224'")),
         "360.00");
    if (lines.size() != 10)
        throw base::RunTimeError(3021,
                                 QStringLiteral("The hospital has too few exams, doctors or supplies."));
    return lines;
}

void fill(controls::FlexGrid& grid, const std::vector<OrderLine>& lines) {
    grid.setRows(int(lines.size()) + 1);
    for (int row = 1; row < grid.Rows(); ++row) {
        const OrderLine& line = lines[std::size_t(row) - 1];
        const QString cells[] = {line.revenue, line.code,           line.name,  QStringLiteral("ROUTINE"),
                                 line.amount,  QStringLiteral("1"), line.amount};
        for (int column = 0; column < 7; ++column)
            grid.setTextMatrix(row, column + 1, cells[column]);
    }
}

} // namespace bench
