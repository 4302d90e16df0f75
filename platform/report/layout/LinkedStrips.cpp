#include "platform/report/layout/LinkedStrips.h"

#include "platform/base/Conversion.h"
#include "platform/base/DateTime.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/layout/StripLayout.h"

#include <algorithm>

namespace report {
namespace {

constexpr std::size_t keptStrips = 64;
constexpr qsizetype mostCells = 4'000'000; // of all values together: some 200 MB

/// Tells values apart that differ in kind or in length; no two lists make the same text.
QString textOf(const LinkedValues& values) {
    QString text;
    for (const auto& [parameter, value] : values) {
        const QString one = value.asDateTime() ? base::toIso(*value.asDateTime()) : base::textOf(value);
        text += QStringLiteral("%1 %2 %3 ").arg(parameter).arg(int(value.isNull())).arg(one.size()) + one;
    }
    return text;
}

} // namespace

const LaidBand& LinkedStrips::strip(int subReport, const LinkedValues& values) {
    const Key key(subReport, textOf(values));
    const auto kept =
        std::find_if(m_strips.begin(), m_strips.end(), [&](const Kept& one) { return one.key == key; });
    if (kept != m_strips.end()) {
        m_strips.splice(m_strips.begin(), m_strips, kept);
        return m_strips.front().strip;
    }
    m_strips.push_front({key, layStrip(rowsOf(key, values))});
    ++m_statistics.layouts;
    if (m_strips.size() > keptStrips)
        m_strips.pop_back();
    return m_strips.front().strip;
}

const std::shared_ptr<const ReportData>& LinkedStrips::rowsOf(const Key& key, const LinkedValues& values) {
    const auto kept = m_rows.find(key);
    if (kept != m_rows.end())
        return kept->second;
    std::shared_ptr<const ReportData> data = m_data->linked.at(std::size_t(key.first))(values);
    ++m_statistics.reads;
    for (const ado::Rows& rows : data->tables)
        m_cells += qsizetype(rows.values.size());
    if (m_cells > mostCells)
        throw base::RunTimeError(errorDamaged,
                                 QStringLiteral("The report's sub-reports bring too many rows."));
    return m_rows[key] = std::move(data);
}

} // namespace report
