#pragma once

#include "platform/base/Value.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace report {

class ReportDefinition;

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

} // namespace report
