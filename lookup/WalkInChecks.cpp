#include "lookup/WalkInChecks.h"

#include "lookup/frmAddWalkIn.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/MaskedDate.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace lookup {

namespace {

const QString title = QStringLiteral("Message");

} // namespace

void refuseField(QWidget* field, const QString& prompt) {
    controls::MsgBox(prompt, controls::vbInformation, title);
    field->setFocus();
    if (auto* text = qobject_cast<QLineEdit*>(field))
        controls::SelectAllText(text);
}

bool areGiven(std::initializer_list<RequiredText> fields) {
    for (const RequiredText& required : fields) {
        if (!base::Trim(required.field->text()).isEmpty())
            continue;
        refuseField(required.field, QString::fromLatin1(required.prompt));
        return false;
    }
    return true;
}

bool areWithin(std::initializer_list<TextLimit> limits) {
    for (const TextLimit& limit : limits) {
        const qsizetype length = limit.field->text().size();
        if (length <= limit.most)
            continue;
        refuseField(limit.field, QStringLiteral("%1 can hold %2 characters, not %3.")
                                     .arg(QString::fromLatin1(limit.what))
                                     .arg(limit.most)
                                     .arg(length));
        return false;
    }
    return true;
}

bool isLikelyAge(QLineEdit* age) {
    if (base::Val(age->text()) <= mostYears)
        return true;
    refuseField(age, QStringLiteral("Age cannot be over %1.").arg(mostYears));
    return false;
}

bool isLikelyBirthDate(controls::MaskedDate* field) {
    if (field->isEmpty())
        return true;
    const std::optional<base::DateTime> birthDate = field->date();
    if (!birthDate)
        refuseField(field, QStringLiteral("The birth date is no day of the calendar (mm/dd/yyyy)."));
    else if (*birthDate > base::today())
        refuseField(field, QStringLiteral("The birth date is still to come."));
    else if (frmAddWalkIn::CalcAge(*birthDate) > mostYears)
        refuseField(field, QStringLiteral("The birth date is more than %1 years ago.").arg(mostYears));
    else
        return true;
    return false;
}

void likelyDateMovesOn(controls::MaskedDate* birthDate) {
    controls::onEnter(birthDate, [birthDate] {
        if (isLikelyBirthDate(birthDate))
            controls::sendTab(birthDate);
    });
}

void refuseLetters(QLineEdit* age) {
    static const QRegularExpression digits(QStringLiteral("[0-9]*"));
    age->setValidator(new QRegularExpressionValidator(digits, age));
    controls::on(age, &QLineEdit::inputRejected, age, [] {
        controls::MsgBox(QStringLiteral("Cannot accept non-numeric values."), controls::vbExclamation, title);
    });
}

} // namespace lookup
