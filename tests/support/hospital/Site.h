#pragma once

#include "platform/ado/Provider.h"

#include <QString>

#include <memory>

namespace tests::site {

// The SQL Server behind the data source that SCINTRA_TEST_DSN names. The tests delete and write its rows as
// they like, so it must be empty or hold the made-up hospital. Only one test program at a time works there.

/// The data source's name; empty when none is named.
QString name();
/// Once in a program: installs the kit and asks for the server's today. Raises what the server says; 58 when
/// somebody else's hospital is there.
void prepare();
/// Puts the rows of a hospital file there in the place of all others, their dates moved to the server's
/// today.
void put(const QString& hospitalFile);
/// The kit's procedures again, after a test that has made one of its own.
void putKitBack();
/// A session of its own in NUCLEAR.
std::unique_ptr<ado::Provider> open(const QString& workstation);

} // namespace tests::site
