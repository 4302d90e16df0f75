#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class PatientFrames;
}

namespace results {

/// The frames "Patient's Info." and "Hosp. Info." of every result screen.
class PatientFrames : public QWidget {
    Q_OBJECT

  public:
    explicit PatientFrames(QWidget* parent = nullptr);
    ~PatientFrames() override;

    /// Gives the first doctor's fields another caption and other names.
    void nameFirstDoctor(const QString& caption, const QString& codeField, const QString& nameField);

    /// Beside today's; "" when there is no saved result, or its date is not known.
    void showSavedDate(const QString& date);

  private:
    std::unique_ptr<Ui::PatientFrames> m_ui;
};

} // namespace results
