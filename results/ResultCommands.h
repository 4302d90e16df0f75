#pragma once

#include <QWidget>

namespace results {

/// The row of commands of every result screen.
class ResultCommands : public QWidget {
    Q_OBJECT

  public:
    explicit ResultCommands(QWidget* parent = nullptr);
};

} // namespace results
