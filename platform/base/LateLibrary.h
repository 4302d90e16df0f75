#pragma once

#include <QLibrary>
#include <QString>

namespace base {

/// A library that a part of the program needs, loaded when that part is first used and kept: a program that
/// links it pays for it at every start, used or not.
class LateLibrary {
  public:
    /// `need` is the part, in the plural, for the words of the error: "Workbooks". Raises `error` when there
    /// is no library of that name and version; a path stands for one of our own, which has none (-1).
    LateLibrary(int error, QString need, const QString& name, int version);

    /// Raises the error when the library has no function of that name.
    template <typename Function>
    void resolve(const char* name, Function& function) {
        function = reinterpret_cast<Function>(address(name));
    }

  private:
    QFunctionPointer address(const char* name);

    int m_error;
    QString m_need;
    QLibrary m_library;
};

} // namespace base
