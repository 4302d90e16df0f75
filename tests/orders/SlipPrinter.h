#pragma once

#include <QStringList>
#include <QTemporaryDir>

namespace tests {

/// The charge slip's place is taken by a report that shows its ten values, one a line; the printer keeps
/// them. Installed while it lives.
class SlipPrinter {
  public:
    SlipPrinter();
    ~SlipPrinter();
    SlipPrinter(const SlipPrinter&) = delete;
    SlipPrinter& operator=(const SlipPrinter&) = delete;

    /// A printer that is there, or not.
    void usePrinter(bool ready);

    QStringList printed;

  private:
    QTemporaryDir m_programFolder;
};

} // namespace tests
