#pragma once

#include <QTemporaryDir>

#include <optional>

namespace attacks {

/// A user's folders of their own for this process and all that it starts: no dialog, driver or library that
/// an attack drives comes at the files of whoever runs it. They go with this. To stand before the
/// application.
class OwnHome {
  public:
    /// A process that was started by one with such folders keeps those.
    OwnHome();

  private:
    std::optional<QTemporaryDir> m_folder;
};

} // namespace attacks
