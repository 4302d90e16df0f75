// What the request screen of a patient without a bed does in its own way.
#include "platform/base/Format.h"
#include "tests/orders/RequestFixture.h"

namespace {

class OutRequest : public tests::RequestFixture {
  public:
    OutRequest()
        : id(value(
              "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL AND AccountNum <> "
              "HospNum ORDER BY IdNum"))
        , hospital(value("SELECT HospNum" + stay()))
        , doctor(value("SELECT DoctorID1" + stay())) {}

    QString stay() const { return " FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" + id + "'"; }
    /// The moment by which the server dated the bill of a slip.
    QString billedAt(const QString& slip) const {
        return tests::toTestDays(base::Format(
            *LoggedOn::hospital
                 .run("SELECT TOP 1 TransDate FROM BILLING..tbDailyBill WHERE RefNum = '" + slip + "'")
                 .at(0, 0)
                 .asDateTime(),
            QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM")));
    }

    const QString id, hospital, doctor;
};

TEST_F(OutRequest, OpensWithItsOwnSearchAndNoRoom) {
    preparedOut({.IdNumber = id});
    takeTexts();
    screen().Show();
    QStringList own;
    for (const QString& text : takeTexts())
        if (!text.startsWith("SELECT "))
            own += text;
    EXPECT_EQ(own, QStringList{"sp_Nuclear_searchoutpatient '" + id + "'"});
    EXPECT_EQ(screen().windowTitle(), "RequestEntry");
    EXPECT_EQ(field("txtHospNum").text(), hospital);
    EXPECT_EQ(field("txtIdNum").text(), id);
    EXPECT_EQ(field("txtRoom").text(), "OPD");
    EXPECT_FALSE(button("cmdSave").isEnabled());
}

TEST_F(OutRequest, OneLineIsPricedAtRateAAndBilledAsAnOutPatients) {
    openOut({.IdNumber = id});
    type("NU<Enter>1001<Enter>R<Enter>2<Enter>");
    const QString rate = value("SELECT RateA FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1001'");
    EXPECT_EQ(cell(1, 5).toDouble(), rate.toDouble());
    const QString amount = QString::number(rate.toDouble() * 2);
    // the empty line behind it is posted like any other
    const int slip = nextSlip();
    const int request = nextRequest();
    const QString reference = QStringLiteral("C%1J").arg(slip);
    boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
    takeTexts();
    type("<Alt+S>");
    const QStringList sent = takeTexts();
    EXPECT_EQ(
        sent.join(u'\n').toStdString(),
        QStringList(
            {"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
             "sp_Nuclear_IncRefNum", "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             QStringLiteral("sp_Nuclear_AddRequest '%1','%2','%3', '1001','%4','%5','I', "
                            "'%6','1001','%3','','2', '','NU'")
                 .arg(hospital, id)
                 .arg(request)
                 .arg(amount, doctor, reference),
             QStringLiteral("sp_addnurselogbook '%1','%2', '1001','BONE SCAN, WHOLE BODY','%3', "
                            "'1001','1001', '%4','NU','I','%5','2'")
                 .arg(hospital, id, amount, reference)
                 .arg(request),
             QStringLiteral("sp_addbill 'O','%1','%2','%3', '1001','%4','NU','1001','2','','', '%5'")
                 .arg(id, billedAt(reference), reference, amount, hospital),
             "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
             QStringLiteral("sp_addnurselogbook '%1','%2', '','','0', '1001','1001', '%3','','I','%4','0'")
                 .arg(hospital, id, reference)
                 .arg(request + 1),
             "COMMIT"})
            .join(u'\n')
            .toStdString());
    EXPECT_TRUE(screen().isUnloaded());
}

} // namespace
