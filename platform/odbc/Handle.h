#pragma once

#include "platform/odbc/Api.h"

#include <utility>

namespace odbc {

/// One handle of the driver manager. Owned; freed with the object.
class Handle {
  public:
    Handle() = default;
    /// Raises what the driver manager says; for an environment (no parent) 7, out of memory.
    Handle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent);
    ~Handle() { reset(); }
    Handle(Handle&& other) noexcept
        : m_kind(other.m_kind), m_handle(std::exchange(other.m_handle, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            m_kind = other.m_kind;
            m_handle = std::exchange(other.m_handle, nullptr);
        }
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const { return m_handle; }
    SQLSMALLINT kind() const { return m_kind; }
    void reset() noexcept {
        if (m_handle != nullptr)
            SQLFreeHandle(m_kind, std::exchange(m_handle, nullptr));
    }

  private:
    SQLSMALLINT m_kind = 0;
    SQLHANDLE m_handle = nullptr;
};

/// An environment that speaks ODBC 3.
Handle makeEnvironment();

} // namespace odbc
