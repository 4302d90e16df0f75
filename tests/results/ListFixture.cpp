#include "tests/results/ListFixture.h"

#include "platform/controls/screen/TestDoors.h"
#include "results/frmRequestMaster.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultMaster.h"
#include "results/frmResultRadioImmuno.h"
#include "session/Session.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tests {

using controls::SharedScreen;

namespace {

const QStringList entryColumns =
    QStringLiteral("LastName,FirstName,MiddleName,Company,Address,Age,BirthDate,TransDate,"
                   "HospNum,IdNum,RoomID,Sex,AttendingDocCode,AttendingDocName,"
                   "CardiologistCode,Cardiologist,requestdoccode,RequestDocName,ItemID,"
                   "NucExam,PatientType,RefNum,NurseRequestNum,requeststatus")
        .split(u',');

const QStringList resultColumns =
    QStringLiteral(
        "casenumber,dose,Radiopharmaceutical,route,Projections,Interpretation,conclusion,clinicalhistory,"
        "Weight,Height,Remarks,PROTOCOL,technique,stressdetails,stressimages,restingimages,"
        "quantitativedata,fraction,edv,esv,sv,wallmotion,Left1,Left2,Left3,Left4,Left5,Left6,Left7,Right1,"
        "Right2,Right3,Right4,Right5,Right6,Right7,Scale,Isotope,Calcitonin,AntiTG,TG,AntiTPO,TSH,FreeT4,"
        "FreeT3,T4,T3,Progesterone,Cortisol,DHEA,HGH,HLH,HFSH,AFP,BHCG,PSA,Osteocalcin,CPeptide,SHBG,"
        "Insulin,Technologist")
        .split(u',');

} // namespace

ListFixture::ListFixture() {
    takeTexts();
}

ListFixture::~ListFixture() {
    controls::release<results::frmRequestMaster>();
    controls::release<results::frmResultMaster>();
    controls::release<results::frmResult>();
    controls::release<results::frmResultEntry>();
    controls::release<results::frmResultEntryMPI>();
    controls::release<results::frmResultEntryGFR>();
    controls::release<results::frmResultRadioImmuno>();
}

void ListFixture::answer(const char* statement, const char* columns, const std::vector<Row>& rows,
                         bool once) {
    session.server().answer(QLatin1String(statement), ScriptedProvider::rowsOf(QLatin1String(columns), rows),
                            once);
}

void ListFixture::answerFormType(const std::optional<base::Value>& formType) {
    answer("Select top 1 * from Build_File..tbcoNucExam", "NucExamID,FormType",
           formType ? std::vector<Row>{{"1001", *formType}} : std::vector<Row>{}, true);
}

void ListFixture::answerRequest(const std::map<QString, base::Value>& columns, bool once) {
    Row row;
    for (const QString& name : entryColumns) {
        const auto given = columns.find(name);
        row.push_back(given == columns.end() ? base::Value(nullptr) : given->second);
    }
    answer("sp_Nuclear_ResultEntry", entryColumns.join(u',').toLatin1().constData(), {row}, once);
}

void ListFixture::answerResult(const char* table, const std::map<QString, base::Value>& columns, bool once) {
    Row row;
    for (const QString& name : resultColumns) {
        const auto given = columns.find(name);
        row.push_back(given == columns.end() ? base::Value(u'<' + name + u'>') : given->second);
    }
    answer((QByteArray("SELECT * FROM NUCLEAR..") + table + " ").constData(),
           resultColumns.join(u',').toLatin1().constData(), {row}, once);
}

void ListFixture::openList(const QString& formMode, std::vector<Step> steps) {
    answer("sp_Nuclear_getRequest", requestColumns,
           {{"90001 ", "11/20/2026", " 1001", "BONE SCAN", resultDate, "", "C900J"}});
    auto& list = SharedScreen<results::frmResult>::fresh();
    list.load();
    list.FormMode = formMode;
    list.Init_Grid();
    list.showRequests(session::Read(ado::sql("sp_Nuclear_getRequest '104001'")));
    takeTexts();
    runModal([&] { list.ShowModal(); }, std::move(steps));
}

void ListFixture::openEntry(const QString& formType, const QString& formMode, const Step& look) {
    answerFormType(base::Value(formType));
    openList(formMode, {[](QWidget& list) {
                            keys(child<controls::FlexGrid>(list, "grdTable"), QStringLiteral("<Enter>"));
                        },
                        [&](QWidget& entry) {
                            look(entry);
                            close(entry);
                        }});
}

std::string lines(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

QString shown(const QWidget& window, const QStringList& names) {
    QStringList found;
    for (const QString& name : names) {
        if (child<QPushButton>(window, name.toLatin1().constData()).isVisible())
            found << name;
    }
    return found.join(u' ');
}

QString disabled(const QWidget& window) {
    QStringList found;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isInput =
            qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
            qobject_cast<const QPushButton*>(widget) || qobject_cast<const controls::FlexGrid*>(widget);
        if (isInput && !widget->objectName().startsWith(u"qt_") && !widget->isEnabledTo(&window))
            found << widget->objectName();
    }
    found.sort();
    return found.join(u' ');
}

void close(QWidget& window) {
    dynamic_cast<controls::Screen&>(window).Unload();
}

} // namespace tests
