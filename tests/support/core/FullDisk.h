#pragma once

#include <QtGlobal>

namespace tests {

/// As long as it lives no file of this process grows beyond `bytes`: what is written past them fails, as on a
/// disk that is full.
class FullDisk {
  public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    quint64 m_before;
    void (*m_handler)(int);
};

} // namespace tests
