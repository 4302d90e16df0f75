#pragma once

#include "platform/base/Value.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace report {

class ReportDefinition;
struct ReportData;

/// What stands above the rows of a sheet. An empty text takes no line.
struct SheetHeading {
    QString hospital;
    QString address;
    QString title;
    QStringList lines; ///< the period and what else was asked for
};

/// The heading of a report: its title, and a line "prompt: value" for each parameter that says something new.
/// `values` are the parameters', in the definition's order; Null: not given.
SheetHeading headingOf(const ReportDefinition& definition, const QString& hospital, const QString& address,
                       const std::vector<base::Value>& values);
/// The same of a report that has a sheet: that one's title and lines, told without a row. Without a sheet as
/// above.
SheetHeading headingOf(const std::shared_ptr<const ReportData>& data);

} // namespace report
