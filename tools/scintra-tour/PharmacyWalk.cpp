#include "tools/scintra-tour/PharmacyWalk.h"

#include "tools/scintra-tour/Steps.h"

#include <QAbstractButton>

namespace tour {

void addPharmacyWalk(Walk& walk, const QString& admissionNumber) {
    walk.step(QStringLiteral("Click the requests' main button again"), seen("frmMainMenu"),
              clicked("cmdMainMenu_0"));
    walk.step(QStringLiteral("Click \"Pharmacy Request\""), offered("Pharmacy Request"),
              commanded("Pharmacy Request"));
    walk.step(QStringLiteral("Choose the confined patients"), seen("frmPHEntry"),
              [](QWidget& window) { control<QAbstractButton>(window, QStringLiteral("optType_2")).click(); });
    walk.step(
        QStringLiteral("Type the admission number"), focused("frmPHEntry", "txtPName"),
        [&admissionNumber](QWidget& window) { typed("txtPName", admissionNumber, Qt::Key_Return)(window); });
    walk.step(QStringLiteral("Type the code of a medicine"), focused("frmPHEntry", "txtEntry"),
              typed("txtEntry", QStringLiteral("30001"), Qt::Key_Return));
    walk.picture(QStringLiteral("pharmacy-request"), focused("frmPHEntry", "txtEntry"));
    walk.step(QStringLiteral("Save the request"), seen("frmPHEntry"), clicked("cmdMedOption"));
}

} // namespace tour
