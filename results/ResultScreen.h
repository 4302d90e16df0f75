#pragma once

#include "platform/controls/screen/Screen.h"
#include "results/ResultPoint.h"
#include "results/ResultVariant.h"

namespace results {

/// What the four result screens share: fields, keys, doctor lookup, save, print, edit and revocation. Where
/// they differ stands in their variants. A caller takes the fresh() instance, load()s it, fills it through
/// setText() and the properties, sets its point up (commands shown, fields disabled), and shows it.
class ResultScreen : public controls::Screen {
    Q_OBJECT

  public:
    ~ResultScreen() override;

    QString PatientType; ///< "I", "O" or "W"
    QString RequestNum;
    QString RefNum; ///< charge reference; finds the ward's rows at a revocation
    QString ItemCode;
    QString NurseRequestNum; ///< the ward's own request number; finds its rows at a save

    /// A text box, a memo or a label by its given name ("txtDose", "txtLeft_3"); raises 461 when the screen
    /// has none of that name. A memo's lines are parted by "\n".
    QString text(const char* name) const;
    void setText(const char* name, const QString& text);
    void enableFields(FieldNames names, bool enabled);
    /// btnSave, btnSavePrint, btnEdit, btnPrint, btnClear, btnRevoke (hidden at first), btnClose.
    void showCommands(FieldNames names, bool shown);
    /// txtCaseNum: shown, but not to be typed in.
    void lockCaseNum(bool locked);
    /// ResultPoint::New where it is not said. Before the screen is shown.
    void setPoint(ResultPoint point) { m_point = point; }
    /// When the saved result was made, as it is shown; "" when that is not known.
    void setSavedDate(const QString& date) { m_savedDate = date; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    explicit ResultScreen(const ResultVariant& variant, QWidget* parent);
    /// Connects the controls; the leaf calls it once they exist.
    void prepare();
    /// The value of a save's argument that comes from `from`, untrimmed.
    virtual QString argument(const char* from) const;

    void Form_Load() override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* widget(const char* name) const;
    bool fieldKey(const QString& field, const QKeyEvent& event);
    void insertSymbol(const char* field);
    void lookUpDoctor(const DoctorFields& doctor);
    void showPatient();
    void focusFirst();
    bool takesSymbols() const;

    void btnSave_Click();
    void btnSavePrint_Click();
    void btnEdit_Click();
    void goOnTyping();
    void btnPrint_Click();
    void btnClear_Click();
    void btnRevoke_Click();

    bool isCaseNumberTaken() const;
    ado::Statement saveStatement() const;
    void stampNurseStation() const;
    void revoke();

    const ResultVariant& m_variant;
    ResultPoint m_point = ResultPoint::New;
    QString m_savedDate;
    bool ResultSaved = false;
    QString m_resultMoment;
};

} // namespace results
