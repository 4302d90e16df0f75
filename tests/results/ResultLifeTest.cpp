// A result from its request to its second life, on the embedded server, as a clerk works: keys only.
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "results/frmRequestMaster.h"
#include "results/frmResult.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultMaster.h"
#include "results/frmResultRadioImmuno.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/HospitalServer.h"
#include "session/reports/ReportLaunch.h"
#include "tests/results/ListFixture.h"
#include "tests/support/screens/LoggedOn.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace {

using ado::sql;
using controls::FlexGrid;
using controls::SharedScreen;
using results::ResultScreen;
using tests::child;
using tests::keys;
using tests::keysToFocus;
using tests::Step;

/// A screen, an exam that leads to it, and something to type.
struct Kind {
    const char* name;
    const char* exam;
    const char* report;
    const char* resultTable;
    const char* field; ///< typed on entry, and found on paper
    const char* typed;
};

const Kind kinds[] = {
    {"frmResultEntry", "1001", "NucResult.rpt", "tbNucResult", "txtConclusion", "NORMAL BONE SCAN"},
    {"frmResultEntryMPI", "1301", "NucResultMPI.rpt", "tbNucResult", "txtConclusion", "NORMAL PERFUSION"},
    {"frmResultEntryGFR", "1101", "NucResultGFR.rpt", "tbNucResult", "txtScale", "97.5"},
    {"frmResultRadioImmuno", "1201", "NucResultRadio.rpt", "tbNucRadioResult", "txtNormal_4", "2.75 uIU/mL"},
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

QString withoutBlanks(QString text) {
    return text.remove(QRegularExpression(QStringLiteral("\\s")));
}

class LifeFixture : public tests::LoggedOn {
  protected:
    LifeFixture() {
        session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR));
        request("90001", "1001");
    }
    ~LifeFixture() override {
        session::gReport.reset();
        session::setProgramFolder({});
        controls::release<results::frmRequestMaster>();
        controls::release<results::frmResultMaster>();
        controls::release<results::frmResult>();
        controls::release<results::frmResultEntry>();
        controls::release<results::frmResultEntryMPI>();
        controls::release<results::frmResultEntryGFR>();
        controls::release<results::frmResultRadioImmuno>();
    }

    /// Files a request of 104001's as the latest one, with the ward's rows.
    static void request(const char* number, const char* exam) {
        session::Run(sql("DELETE FROM tbNucMaster WHERE RequestNum = '{}'", number));
        session::Run(sql("DELETE FROM STATION..tbNurseLogBook WHERE RequestNum = '{}'", number));
        session::Run(sql("sp_Nuclear_AddRequest '104001','26004001','{}', '{}','5200','204','I', "
                         "'C900J','1001','{}','','1', '','NU'",
                         number, exam, number));
        session::Run(sql("sp_addnurselogbook '104001','26004001', '{}','EXAM','5200', '1001','1001', "
                         "'C900J','NU','I','{}','1'",
                         exam, number));
    }
    static QString value(const ado::Statement& query) {
        ado::Recordset rows = session::Read(query);
        return rows.RecordCount() == 1 ? rows.Fields(0).text()
                                       : QStringLiteral("%1 rows").arg(rows.RecordCount());
    }
    /// "requeststatus|ward's status|case number and status of the log book, oldest first".
    static QString state() {
        QString text =
            value(sql("SELECT RequestStatus FROM tbNucMaster WHERE RequestNum = '90001'")) + u'|' +
            value(sql("SELECT RecordStatus FROM STATION..tbNurseLogBook WHERE RequestNum = '90001'"));
        ado::Recordset cases = session::Read(
            sql("SELECT CaseNumber, Status FROM tbNucLogBook WHERE RequestNum = '90001' ORDER BY LogBookID"));
        for (; !cases.Eof(); cases.MoveNext())
            text += u'|' + cases.Fields("CaseNumber").text() + u' ' + cases.Fields("Status").text();
        return text;
    }

    /// Through a door to the patient's list and its latest request; `steps` then find the entry screen.
    template <typename Door>
    void open(const char* formMode, bool byMpi, std::vector<Step> steps) {
        steps.insert(steps.begin(), {[](QWidget& door) {
                                         keys(child<QLineEdit>(door, "txtSearch"),
                                              QStringLiteral("104001<Enter>"));
                                         keysToFocus(door, QStringLiteral("<Down><Enter>"));
                                     },
                                     [byMpi](QWidget& list) {
                                         EXPECT_EQ(child<FlexGrid>(list, "grdTable").TextMatrix(1, 1),
                                                   QStringLiteral("90001"));
                                         keysToFocus(list, QStringLiteral("<Enter>"));
                                         if (byMpi)
                                             dynamic_cast<results::frmResult&>(list).LoadMPIResult();
                                     }});
        steps.push_back([](QWidget& door) { keysToFocus(door, QStringLiteral("<Esc>")); });
        Door& door = SharedScreen<Door>::fresh();
        door.FormMode = QLatin1String(formMode);
        tests::runModal([&] { door.ShowModal(); }, std::move(steps));
    }
    /// All pages of a report, as PrepareReport launches it.
    static QString printed(const char* file, const QString& idNum = QStringLiteral("26004001"),
                           const QString& requestNum = QStringLiteral("90001")) {
        session::PrepareReport(session::reportPath(QLatin1String(file)), QStringLiteral("NUCLEAR"),
                               {idNum, requestNum});
        const auto pages = session::gReport->run();
        return watermark(*pages) + u'\n' + textOf(*pages);
    }
    /// What stands across each page, once.
    static QString watermark(const report::PageDocument& pages) {
        QStringList marks;
        for (int i = 0; i < pages.pageCount(); ++i) {
            for (const report::Item& item : pages.page(i)->items) {
                const auto* run = std::get_if<report::TextRun>(&item);
                if (run && run->degrees != 0)
                    marks << run->text;
            }
        }
        return marks.size() == pages.pageCount() ? marks.value(0) : marks.join(u'|');
    }
    static QString textOf(const report::PageDocument& pages) {
        QString text;
        for (int i = 0; i < pages.pageCount(); ++i)
            text += report::textOf(*pages.page(i)) + u'\n';
        return text;
    }
    static Step pressing(const char* mnemonic) {
        return [mnemonic](QWidget& window) {
            keysToFocus(window, QStringLiteral("<Alt+%1>").arg(QLatin1String(mnemonic)));
        };
    }

    tests::MessageScript boxes;
};

class Life : public LifeFixture, public testing::WithParamInterface<Kind> {
  protected:
    Life() { request("90001", GetParam().exam); }

    bool isMpi() const { return QLatin1String(GetParam().name) == u"frmResultEntryMPI"; }
    template <typename Door>
    void openEntry(const char* formMode, std::vector<Step> steps) {
        open<Door>(formMode, isMpi(), std::move(steps));
    }
    /// The perfusion screen is reached from an exam that leads nowhere.
    void expectNoForm() {
        if (isMpi())
            boxes.expect({QStringLiteral("No result form are available for theraphy.")});
    }
    void expectSaved() {
        expectNoForm();
        boxes.expect({QStringLiteral("Data Successfully Saved!"), controls::vbInformation,
                      QStringLiteral("Notification")});
    }
    /// Types a result with the case number "26-90001" and saves it.
    void enter() {
        expectSaved();
        openEntry<results::frmRequestMaster>(
            "R", {[](QWidget& entry) {
                EXPECT_EQ(entry.objectName(), QLatin1String(GetParam().name));
                keysToFocus(entry, QStringLiteral("90001"));
                auto& screen = dynamic_cast<ResultScreen&>(entry);
                EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("26-90001"));
                keys(child<QLineEdit>(entry, "txtRadiopharmaceutical"), QStringLiteral("Tc-99m"));
                typeIn(entry, GetParam().field, QLatin1String(GetParam().typed));
                keysToFocus(entry, QStringLiteral("<Alt+S>"));
                keysToFocus(entry, QStringLiteral("<Alt+C>"));
            }});
    }
    static void typeIn(QWidget& entry, const char* field, const QString& text) {
        auto& widget = child<QWidget>(entry, field);
        QWidget* page = &widget;
        while ((page = page->parentWidget()) != nullptr) {
            if (auto* pages = qobject_cast<QTabWidget*>(
                    page->parentWidget() ? page->parentWidget()->parentWidget() : nullptr))
                pages->setCurrentWidget(page);
        }
        keys(widget, text);
    }
    void revoke() {
        expectNoForm();
        boxes.expect({QStringLiteral("Result successfully revoked!"), controls::vbInformation,
                      QStringLiteral("Message")});
        openEntry<results::frmResultMaster>("C", {pressing("R")});
    }
};

INSTANTIATE_TEST_SUITE_P(Screens, Life, testing::ValuesIn(kinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_P(Life, FromEntryOverRevocationToTheNextResult) {
    EXPECT_EQ(state(), QStringLiteral("|X"));
    enter();
    EXPECT_EQ(state(), QStringLiteral("W|W|26-90001 "));
    const QString paper = printed(GetParam().report);
    EXPECT_TRUE(paper.contains(QLatin1String(GetParam().typed))) << qPrintable(paper);
    EXPECT_TRUE(paper.contains(QStringLiteral("26-90001")));
    EXPECT_FALSE(paper.contains(QStringLiteral("REVOKED"), Qt::CaseInsensitive)) << qPrintable(paper);

    // Saved again under its own number, it is refused.
    expectNoForm();
    boxes.expect({QStringLiteral("The Case Number you entered is already used."), controls::vbExclamation,
                  QStringLiteral("Message")});
    openEntry<results::frmResultMaster>("R", {[](QWidget& entry) {
                                            auto& screen = dynamic_cast<ResultScreen&>(entry);
                                            EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("26-90001"));
                                            if (QLatin1String(GetParam().name) != u"frmResultEntryMPI") {
                                                EXPECT_EQ(screen.text(GetParam().field),
                                                          QLatin1String(GetParam().typed));
                                            }
                                            keysToFocus(entry, QStringLiteral("<Alt+E>"));
                                            keysToFocus(entry, QStringLiteral("<Alt+S>"));
                                            keysToFocus(entry, QStringLiteral("<Alt+C>"));
                                        }});

    revoke();
    EXPECT_EQ(state(), QStringLiteral("|X|26-90001 R"));
    const QString revoked = printed(GetParam().report);
    EXPECT_TRUE(revoked.startsWith(QStringLiteral("REVOKED\n")));
    EXPECT_TRUE(
        revoked.contains(QStringLiteral("This result was revoked. It is not valid and must not be used.")));
    EXPECT_FALSE(revoked.contains(QStringLiteral("Nuclear Medicine Physician"))) << "no place to sign";

    enter();
    EXPECT_EQ(state(), QStringLiteral("W|W|26-90001 R|26-90001 "));
    EXPECT_FALSE(printed(GetParam().report).contains(QStringLiteral("REVOKED"), Qt::CaseInsensitive));
}

TEST_P(Life, SaveAndPrintEndsInTheViewer) {
    expectSaved();
    openEntry<results::frmRequestMaster>(
        "R", {[](QWidget& entry) {
                  keysToFocus(entry, QStringLiteral("90001"));
                  typeIn(entry, GetParam().field, QLatin1String(GetParam().typed));
                  keysToFocus(entry, QStringLiteral("<Alt+P>"));
              },
              [](QWidget& viewer) {
                  EXPECT_EQ(viewer.windowTitle(), QStringLiteral("Imaging Section Report"));
                  const auto& pages = child<report::Viewer>(viewer, "CRViewer1");
                  const QString text = textOf(*pages.document());
                  EXPECT_TRUE(text.contains(QLatin1String(GetParam().typed))) << qPrintable(text);
                  keysToFocus(viewer, QStringLiteral("<Esc>"));
              }});
    EXPECT_EQ(state(), QStringLiteral("W|W|26-90001 "));
}

TEST_P(Life, TheNumberOfARevokedResultIsFreeForAnotherRequest) {
    enter();
    revoke();
    request("90002", "1001");
    session::Run(
        sql("sp_Nuclear_SaveResult '104001','26004001','90002','26-90001','I','201','205','1001','5 mCi',"
            "'MDP','IV','AP','TEXT','NORMAL','','60','165','1001','11/21/2026 8:30:00 AM',''"));
    EXPECT_EQ(
        value(
            sql("SELECT COUNT(*) AS Held FROM tbNucLogBook WHERE CaseNumber = '26-90001' AND Status <> 'R'")),
        QStringLiteral("1"));
}

// ---- the generic screen's text

class LongText : public LifeFixture {};

TEST_F(LongText, TwentyThousandCharactersSurviveSaveReloadAndPaper) {
    QString text;
    for (int paragraph = 0; text.size() < 20'000; ++paragraph)
        text +=
            QStringLiteral("%1. Señora Núñez: tracer uptake ½ of normal, 45º LAO, µ = 3 § \"focal\" {x} 'q'; "
                           "no   lesion.\n\tIndented line\n\n")
                .arg(paragraph);
    text = text.left(20'000).trimmed().replace(u'\'', u'`');
    boxes.expect({QStringLiteral("Data Successfully Saved!"), controls::vbInformation,
                  QStringLiteral("Notification")});
    open<results::frmRequestMaster>("R", false, {[&](QWidget& entry) {
                                        keysToFocus(entry, QStringLiteral("90001"));
                                        auto& screen = dynamic_cast<ResultScreen&>(entry);
                                        EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("26-90001"));
                                        screen.setText("txtConsultation", text);
                                        screen.setText("txtConclusion", text);
                                        keysToFocus(entry, QStringLiteral("<Alt+S>"));
                                        keysToFocus(entry, QStringLiteral("<Alt+C>"));
                                    }});
    EXPECT_EQ(value(sql("SELECT Interpretation FROM tbNucResult WHERE RequestNum = '90001'")), text);
    open<results::frmResultMaster>("R", false, {[&](QWidget& entry) {
                                       auto& screen = dynamic_cast<ResultScreen&>(entry);
                                       EXPECT_EQ(screen.text("txtConsultation"), text);
                                       EXPECT_EQ(screen.text("txtConclusion"), text);
                                       keysToFocus(entry, QStringLiteral("<Alt+C>"));
                                   }});
    session::PrepareReport(session::reportPath(QStringLiteral("NucResult.rpt")), QStringLiteral("NUCLEAR"),
                           {"26004001", "90001"});
    const auto pages = session::gReport->run();
    ASSERT_GT(pages->pageCount(), 5);
    QString body;
    for (int i = 0; i < pages->pageCount(); ++i) {
        const QString page = report::textOf(*pages->page(i));
        EXPECT_TRUE(page.contains(QStringLiteral("Page %1 of %2").arg(i + 1).arg(pages->pageCount())));
        EXPECT_TRUE(page.contains(QStringLiteral("26-90001"))) << qPrintable(page.left(600));
        // What stands between the page's head and foot.
        QStringList lines = page.split(u'\n');
        while (!lines.isEmpty() && !lines.last().contains(QStringLiteral("Page ")))
            lines.removeLast();
        lines.removeLast();
        if (i > 0)
            lines.erase(lines.begin(), lines.begin() + 3); // patient, number, exam
        body += lines.join(u'\n') + u'\n';
    }
    const QString expected = withoutBlanks(text);
    const QString found = withoutBlanks(body);
    EXPECT_EQ(found.count(expected), 2) << "findings and conclusion, whole and in their order";
}

TEST_F(LongText, APageIsFilledBeforeTheNextOneBegins) {
    session::Run(sql(
        "sp_Nuclear_SaveResult '104001','26004001','90001','26-90001','I','201','205','1001','5 mCi','MDP',"
        "'IV','AP','{}','NORMAL','','60','165','1001','11/21/2026 8:30:00 AM',''",
        QStringLiteral("One line.\n").repeated(60)));
    session::PrepareReport(session::reportPath(QStringLiteral("NucResult.rpt")), QStringLiteral("NUCLEAR"),
                           {"26004001", "90001"});
    const auto pages = session::gReport->run();
    ASSERT_EQ(pages->pageCount(), 2);
    EXPECT_GT(report::textOf(*pages->page(0)).count(QStringLiteral("One line.")), 20);
}

// ---- paper

class Paper : public LifeFixture {
  protected:
    static void saveGfr() {
        session::Run(sql(
            "sp_Nuclear_SaveResultGFR '104001','26004001','90001','26-90001','I','201','205','1101',' mCi',"
            "'DTPA','','','60','165','1001','11/21/2026 8:30:00 AM','Tc-99m', '61', '', '', '', '', '', "
            "'44', '59','','','','', '','43', ''"));
    }
};

TEST_F(Paper, MeasurementsThatHoldNothingAreLeftOut) {
    saveGfr();
    const QString text = printed("NucResultGFR.rpt");
    for (const char* line :
         {"Kidney Area (cm²)\t61\t59", "GFR\t44\t43", "Isotope\tTc-99m", "LEFT\tRIGHT", "REYES, JOAN P."})
        EXPECT_TRUE(text.contains(QString::fromUtf8(line))) << line << "\n" << qPrintable(text);
    for (const char* line : {"Kidney Depth", "Perfusion", "Uptake", "Scaled", "Dose", "Projections", "Route"})
        EXPECT_FALSE(text.contains(QLatin1String(line))) << line;
}

TEST_F(Paper, AnalytesShowOneValueOrBothWhereTheyDiffer) {
    QStringList first(22);
    QStringList second(22);
    first[4] = second[4] = QStringLiteral("2.5");
    second[5] = QStringLiteral("14.1");
    const auto save = [&] {
        session::Run(sql(
            "sp_Nuclear_SaveResultRadio "
            "'104001','26004001','90001','26-90001','I','201','205','1201','','','',"
            "'','60','165','1001','11/21/2026 8:30:00 AM','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
            "'{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
            "'{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','R. VILLANUEVA'",
            first[0], first[1], first[2], first[3], first[4], first[5], first[6], first[7], first[8],
            first[9], first[10], first[11], first[12], first[13], first[14], first[15], first[16], first[17],
            first[18], first[19], first[20], first[20], second[0], second[1], second[2], second[3], second[4],
            second[5], second[6], second[7], second[8], second[9], second[10], second[11], second[12],
            second[13], second[14], second[15], second[16], second[17], second[18], second[19], second[20],
            second[21]));
    };
    save();
    QString text = printed("NucResultRadio.rpt");
    EXPECT_TRUE(text.contains(QStringLiteral("TSH (Thyroid Stimulating Hormone)\t2.5\n")))
        << qPrintable(text);
    EXPECT_TRUE(text.contains(QStringLiteral("Free T4\t14.1\n")));
    EXPECT_FALSE(text.contains(QStringLiteral("Free T3")));
    EXPECT_TRUE(text.contains(QStringLiteral("Technologist")));
    EXPECT_TRUE(text.contains(QStringLiteral("Examination\tRESULT\n")));
    first[4] = QStringLiteral("0.3 - 5.0");
    save();
    text = printed("NucResultRadio.rpt");
    EXPECT_TRUE(text.contains(QStringLiteral("TSH (Thyroid Stimulating Hormone)\t0.3 - 5.0\t2.5\n")))
        << qPrintable(text);
    EXPECT_TRUE(text.contains(QStringLiteral("Examination\tRESULT\tRESULT\n")));
}

/// All eight pairs of a renal study, told apart by their values.
TEST_F(Paper, EveryMeasurementStandsInItsLineAndColumn) {
    session::Run(sql(
        "sp_Nuclear_SaveResultGFR '104001','26004001','90001','26-90001','I','201','205','1101','5 mCi',"
        "'DTPA','IV','PA','60','165','1001','11/21/2026 8:30:00 AM','Tc-99m', 'L1', 'L2', 'L3', 'L4', 'L5', "
        "'L6', 'L7', 'R1','R2','R3','R4','R5', 'R6','R7', 'S8'"));
    const QString text = printed("NucResultGFR.rpt");
    const QString table = QString::fromUtf8("Measurement\tLEFT\tRIGHT\n"
                                            "Kidney Area (cm²)\tL1\tR1\n"
                                            "Kidney Depth (cm)\tL2\tR2\n"
                                            "Perfusion Index\tL3\tR3\n"
                                            "Perfusion % (Int)\tL4\tR4\n"
                                            "Perfusion % (Slo)\tL5\tR5\n"
                                            "Uptake % (Int)\tL6\tR6\n"
                                            "GFR\tL7\tR7\n"
                                            "Scaled GFR (ml/min)\tS8\n");
    EXPECT_TRUE(text.contains(table)) << qPrintable(text);
}

TEST_F(Paper, EveryAnalyteStandsInItsLine) {
    QStringList values;
    for (int i = 0; i < 22; ++i)
        values << QStringLiteral("v%1").arg(i);
    const QString series = u'\'' + values.join(QStringLiteral("','")) + u'\'';
    hospital.run(
        QStringLiteral("sp_Nuclear_SaveResultRadio '104001','26004001','90001','26-90001','I','201','205',"
                       "'1212','','','','','','','1001','11/21/2026 8:30:00 AM',%1,%1,''")
            .arg(series));
    const char* const captions[] = {"Calcitonin",
                                    "Anti-TG",
                                    "TG (Thyroglobulin)",
                                    "Anti-TPO (Thyroid Peroxidase)",
                                    "TSH (Thyroid Stimulating Hormone)",
                                    "Free T4",
                                    "Free T3",
                                    "T4",
                                    "T3",
                                    "Progesterone",
                                    "Cortisol",
                                    "DHEA-SO4 (Dehydroepiandrosterone)",
                                    "hGH (Growth Hormone)",
                                    "hLH (Luteinizing Hormone)",
                                    "hFSH (Follicle Stimulating Hormone)",
                                    "AFP (Alpha Fetoprotein)",
                                    "bHCG (Beta Human Chorionic Gonadotropin)",
                                    "PSA (Prostate Specific Antigen)",
                                    "Osteocalcin",
                                    "C-Peptide",
                                    "SHBG (Sex Hormone Binding Globulin)",
                                    "Insulin"};
    QString table;
    for (int i = 0; i < 22; ++i)
        table += QStringLiteral("%1\tv%2\n").arg(QLatin1String(captions[i])).arg(i);
    const QString text = printed("NucResultRadio.rpt");
    EXPECT_TRUE(text.contains(table)) << qPrintable(text);
}

/// A perfusion result whose table would begin low on the first page: without its headings a value does not
/// tell rest from stress.
TEST_F(Paper, AParameterTableIsNeverPartedFromItsHeadings) {
    int moved = 0;
    for (int lines = 20; lines < 44; ++lines) {
        session::Run(sql(
            "sp_Nuclear_SaveResultMPI '104001','26004001','90001','26-90001','I','201','205','1024','MIBI',"
            "'Bruce','{}','','','','','','60|65','100|90','50|40','|5','normal|','','60','165','1001',"
            "'11/21/2026 8:30:00 AM',''",
            QStringLiteral("History.\n").repeated(lines)));
        session::PrepareReport(session::reportPath(QStringLiteral("NucResultMPI.rpt")),
                               QStringLiteral("NUCLEAR"), {"26004001", "90001"});
        const auto pages = session::gReport->run();
        const QString table = QStringLiteral("Visual Analysis (Spect)\n"
                                             "Functional Parameters\n"
                                             "Parameter\tRESTING\tSTRESS\n"
                                             "Ejection Fraction\t60\t65\n"
                                             "EDV\t100\t90\n"
                                             "ESV\t50\t40\n"
                                             "SV\t5\n"
                                             "Wall Motion\tnormal\n");
        const bool onFirst = report::textOf(*pages->page(0)).contains(table);
        const bool onSecond = pages->pageCount() > 1 && report::textOf(*pages->page(1)).contains(table);
        EXPECT_NE(onFirst, onSecond) << lines << '\n' << qPrintable(textOf(*pages));
        moved += onSecond ? 1 : 0;
    }
    EXPECT_GT(moved, 0);
    EXPECT_LT(moved, 24);
}

TEST_F(Paper, LongNamesAreNeverCut) {
    const QString last = QStringLiteral("VILLANUEVA-SANTIAGO DELOS ANGELES");
    session::Run(
        sql("UPDATE PATIENT_DATA..tbMaster SET LastName = '{}', FirstName = 'MARIA CONSOLACION "
            "PURIFICACION', MiddleName = 'MAGSAYSAY-BUENAVENTURA', HouseStreet = 'UNIT 1204 TOWER B, SAN "
            "LORENZO RUIZ RESIDENCES, 18 MAHOGANY STREET CORNER NARRA AVENUE' WHERE HospNum = '104001'",
            last));
    session::Run(sql("UPDATE BUILD_FILE..tbcoDoctor SET LastName = '{}', FirstName = 'FELIPE BUENAVENTURA "
                     "PURIFICACION', MiddleName = 'MAGSAYSAY' WHERE DoctorID IN ('201', '205')",
                     last));
    session::Run(sql("sp_Nuclear_SaveResult "
                     "'104001','26004001','90001','26-90001','I','201','205','1001','','','','','{}',"
                     "'','','','','1001','11/21/2026 8:30:00 AM',''",
                     QStringLiteral("One line.\n").repeated(60)));
    session::PrepareReport(session::reportPath(QStringLiteral("NucResult.rpt")), QStringLiteral("NUCLEAR"),
                           {"26004001", "90001"});
    const auto pages = session::gReport->run();
    ASSERT_EQ(pages->pageCount(), 2);
    for (int i = 0; i < 2; ++i) {
        const QString page = withoutBlanks(report::textOf(*pages->page(i)));
        EXPECT_TRUE(page.contains(withoutBlanks(last) + QStringLiteral(",MARIA"))) << qPrintable(page);
        EXPECT_TRUE(page.contains(QStringLiteral("MAGSAYSAY-BUENAVENTURA"))) << qPrintable(page);
        EXPECT_TRUE(page.contains(QStringLiteral("NMNo.26-90001VILLANUEVA"))) << "in the page's foot";
    }
    const QString first = report::textOf(*pages->page(0));
    EXPECT_TRUE(first.contains(QStringLiteral("NARRA"))) << qPrintable(first);
    EXPECT_EQ(first.count(QStringLiteral("MAGSAYSAY\n")) + first.count(QStringLiteral("MAGSAYSAY\t")), 2)
        << qPrintable(first);
    EXPECT_TRUE(withoutBlanks(report::textOf(*pages->page(1))).contains(QStringLiteral("MAGSAYSAYEncodedby")))
        << qPrintable(report::textOf(*pages->page(1)));
}

TEST_F(Paper, WithoutAResultThereIsNothingToSign) {
    for (const Kind& kind : kinds) {
        const QString text = printed(kind.report);
        EXPECT_TRUE(text.contains(QStringLiteral("No result is on file for this request.")))
            << qPrintable(text);
        EXPECT_FALSE(text.contains(QStringLiteral("Nuclear Medicine Physician")));
        EXPECT_FALSE(text.contains(QStringLiteral("NM No."))) << "nor a number in the page's foot";
    }
}

TEST_F(Paper, AResultOfACancelledRequestIsNotValid) {
    saveGfr();
    session::Run(sql("UPDATE tbNucMaster SET RequestStatus = 'R' WHERE RequestNum = '90001'"));
    EXPECT_TRUE(printed("NucResultGFR.rpt").startsWith(QStringLiteral("REVOKED\n")));
}

} // namespace
