#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class PatientFrames;
}

namespace results {

/// The frames "Patient's Info." and "Hosp. Info." of every result screen. Where there is no room side by side
/// the second lies below the first, in two rows.
class PatientFrames : public QWidget {
    Q_OBJECT

  public:
    explicit PatientFrames(QWidget* parent = nullptr);
    ~PatientFrames() override;

    /// Gives the first doctor's fields another caption and other names.
    void nameFirstDoctor(const QString& caption, const QString& codeField, const QString& nameField);

    /// Beside today's; "" when there is no saved result, or its date is not known.
    void showSavedDate(const QString& date);

  protected:
    bool event(QEvent* event) override;

  private:
    bool isFlat() const;
    void flattenHospital();

    std::unique_ptr<Ui::PatientFrames> m_ui;
};

} // namespace results
