#pragma once

class QWidget;

namespace report {

class Report;

/// Asks for the parameters that have no value, in stored order, then for those of its sub-reports: Enter
/// moves on and ends with the last field, Escape gives up. True when every parameter has a value; asks
/// nothing when none is missing. A number or a date that cannot be read keeps its field.
bool promptForParameters(Report& report, QWidget* parent);

} // namespace report
