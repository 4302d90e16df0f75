#pragma once

#include "platform/controls/Screen.h"

#include <memory>

namespace ado {
class Recordset;
class Statement;
}

namespace Ui {
class frmListPatient;
}

namespace lookup {

/// The admitted patients that answer to a text: the way into request entry.
class frmListPatient : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmListPatient(QWidget* parent = nullptr);
    ~frmListPatient() override;

    /// The admission number of the row that was chosen; "" when none was.
    QString ResultCode;
    bool Valid = false;

  protected:
    void Form_Load() override;

  private:
    std::unique_ptr<Ui::frmListPatient> m_ui;
};

} // namespace lookup
