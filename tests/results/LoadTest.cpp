#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/screen/TestDoors.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultRadioImmuno.h"
#include "tests/results/ListFixture.h"

#include "results/ResultScreen.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using controls::FlexGrid;
using results::ResultScreen;
using tests::child;
using tests::disabled;
using tests::lines;
using tests::shown;

/// An entry screen and the way to it.
struct Entry {
    const char* name;
    const char* formType; ///< null: by LoadMPIResult, which nothing calls
    const char* editTable;
    const char* revokeTable;
    QString disabledToEdit; ///< sorted
    QString disabledToRevoke;
};

const QString technical = QStringLiteral("txtAttendingDrCode txtDose txtProjections txtRadiopharmaceutical "
                                         "txtRequestingDrCode txtRoute");
const QString generic =
    QStringLiteral("txtAttendingDrCode txtCaseNum txtClinicalHistory txtConclusion txtConsultation txtDose "
                   "txtProjections txtRadiopharmaceutical txtRemarks txtRequestingDrCode txtRoute");

const Entry entries[] = {
    {"frmResultEntry", "", "tbNucResult", "tbNucResult", generic, generic},
    {"frmResultEntryMPI", nullptr, "tbNucResult", "tbNucResult",
     QStringLiteral(
         "grdTable txtCardiologistCode txtCaseNum txtClinicalHistory txtConclusion txtProtocol "
         "txtQuantitativeData txtRadiopharmaceutical txtRemarks txtRequestingDrCode txtRestingImages "
         "txtStressDetails txtStressImages txtTechnique"),
     QStringLiteral(
         "txtCardiologistCode txtCaseNum txtClinicalHistory txtConclusion txtRadiopharmaceutical txtRemarks "
         "txtRequestingDrCode")},
    {"frmResultEntryGFR", "G", "tbNucResult", "tbNucResult", technical,
     QStringLiteral(
         "txtAttendingDrCode txtCaseNum txtDose txtProjections txtRadiopharmaceutical txtRequestingDrCode "
         "txtRoute")},
    {"frmResultRadioImmuno", "R", "tbNucRadioResult", "tbNucResultRadio", technical,
     QStringLiteral(
         "txtAttendingDrCode txtCaseNum txtDose txtProjections txtRadiopharmaceutical txtRequestingDrCode "
         "txtRoute")},
};

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << entry.name;
}

const QStringList commands{"btnSave",  "btnSavePrint", "btnEdit", "btnPrint",
                           "btnClear", "btnRevoke",    "btnClose"};

class LoadFixture : public tests::ListFixture {
  protected:
    LoadFixture() { answer("SELECT * FROM tbNucLogBook", "LogBookID"); }

    /// Opens the screen for the request that was answered; `look` sees it, then it is closed.
    void open(const Entry& entry, const QString& mode, const std::function<void(ResultScreen&)>& look) {
        const auto see = [&](QWidget& window) {
            EXPECT_EQ(window.objectName(), QLatin1String(entry.name));
            look(dynamic_cast<ResultScreen&>(window));
            tests::close(window);
        };
        if (entry.formType) {
            openEntry(QLatin1String(entry.formType), mode, [&](QWidget& window) {
                EXPECT_EQ(window.objectName(), QLatin1String(entry.name));
                look(dynamic_cast<ResultScreen&>(window));
            });
            return;
        }
        answerFormType(base::Value("T")); // chooses a request, and stays
        boxes.expect({QStringLiteral("No result form are available for theraphy.")});
        openList(mode, {[](QWidget& window) {
                            auto& list = dynamic_cast<results::frmResult&>(window);
                            tests::keys(child<FlexGrid>(list, "grdTable"), QStringLiteral("<Enter>"));
                            list.LoadMPIResult();
                        },
                        see});
    }
    void answerSavedRequest(const char* status = "W", bool once = false) {
        answerRequest({{"LastName", "SANTOS"},
                       {"FirstName", "MARIA"},
                       {"MiddleName", "REYES"},
                       {"Company", "TALA TELECOM"},
                       {"Address", "18 MAHOGANY ST"},
                       {"Age", "41"},
                       {"BirthDate", "12/16/1984"},
                       {"TransDate", "11/20/2026 9:15:00 AM"},
                       {"HospNum", "104001"},
                       {"IdNum", "26004001"},
                       {"RoomID", "213"},
                       {"Sex", "F"},
                       {"AttendingDocCode", "201"},
                       {"AttendingDocName", "CRUZ, ANA L"},
                       {"CardiologistCode", "204"},
                       {"Cardiologist", "TAN, LEO K"},
                       {"requestdoccode", "205"},
                       {"RequestDocName", "LIM, ROSA M"},
                       {"ItemID", "1001"},
                       {"NucExam", "BONE SCAN"},
                       {"PatientType", "I"},
                       {"RefNum", "C900J"},
                       {"NurseRequestNum", "500001"},
                       {"requeststatus", status}},
                      once);
    }
    static bool isLocked(ResultScreen& screen) { return child<QLineEdit>(screen, "txtCaseNum").isReadOnly(); }
};

class Load : public LoadFixture, public testing::WithParamInterface<Entry> {
  protected:
    void openIn(const char* mode, const std::function<void(ResultScreen&)>& look) {
        open(GetParam(), QLatin1String(mode), look);
    }
    QStringList expectedTexts(const char* table) const {
        QStringList texts{
            QStringLiteral("Select top 1 * from Build_File..tbcoNucExam where NucExamID = '1001'"),
            QStringLiteral("sp_Nuclear_ResultEntry '90001'")};
        if (table)
            texts << QStringLiteral("SELECT * FROM NUCLEAR..%1 WHERE RequestNum = '90001'")
                         .arg(QLatin1String(table));
        return texts;
    }
    bool isRadio() const { return QLatin1String(GetParam().name) == u"frmResultRadioImmuno"; }
};

INSTANTIATE_TEST_SUITE_P(Screens, Load, testing::ValuesIn(entries),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST_P(Load, ARequestWithoutAResultOpensForEntry) {
    answerSavedRequest("");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(shown(screen, commands), QStringLiteral("btnSave btnSavePrint btnClear btnClose"));
        EXPECT_EQ(disabled(screen), QString());
        EXPECT_FALSE(isLocked(screen));
        EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("26-"));
        EXPECT_EQ(screen.text("txtRadiopharmaceutical"), QString());
    });
    EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(nullptr)));
}

TEST_P(Load, TheRequestFillsTheScreen) {
    answerSavedRequest("");
    openIn("R", [&](ResultScreen& screen) {
        const std::pair<const char*, const char*> filled[] = {{"txtPName", "SANTOS, MARIA REYES"},
                                                              {"txtAccountName", "TALA TELECOM"},
                                                              {"txtAddress", "18 MAHOGANY ST"},
                                                              {"txtAge", "41"},
                                                              {"txtBDate", "12/16/1984"},
                                                              {"txtExamDate", "11/20/2026 9:15:00 AM"},
                                                              {"txtHospNum", "104001"},
                                                              {"txtIdNum", "26004001"},
                                                              {"txtRoomID", "213"},
                                                              {"txtSex", "F"},
                                                              {"txtRequestingDrCode", "205"},
                                                              {"txtRequestingDr", "LIM, ROSA M"},
                                                              {"lblProcedure", "1001 BONE SCAN"}};
        for (const auto& [field, text] : filled)
            EXPECT_EQ(screen.text(field), QLatin1String(text)) << field;
        const bool perfusion = screen.objectName() == u"frmResultEntryMPI";
        EXPECT_EQ(screen.text(perfusion ? "txtCardiologistCode" : "txtAttendingDrCode"),
                  perfusion ? QStringLiteral("204") : QStringLiteral("201"));
        EXPECT_EQ(screen.text(perfusion ? "txtCardiologist" : "txtAttendingDr"),
                  perfusion ? QStringLiteral("TAN, LEO K") : QStringLiteral("CRUZ, ANA L"));
        EXPECT_EQ(screen.RequestNum, QStringLiteral("90001"));
        EXPECT_EQ(screen.ItemCode, QStringLiteral("1001"));
        EXPECT_EQ(screen.PatientType, QStringLiteral("I"));
        EXPECT_EQ(screen.RefNum, QStringLiteral("C900J"));
        EXPECT_EQ(screen.NurseRequestNum, QStringLiteral("500001"));
    });
}

TEST_P(Load, NullsShowAsEmpty) {
    answerRequest({});
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(screen.text("txtPName"), QStringLiteral(",  "));
        EXPECT_EQ(screen.text("lblProcedure"), QStringLiteral(" "));
        EXPECT_EQ(screen.text("txtBDate"), QString());
        EXPECT_EQ(screen.RefNum, QString());
    });
}

TEST_P(Load, AnUnknownRequestOpensEmpty) {
    answer("sp_Nuclear_ResultEntry", "LastName");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(screen.text("txtPName"), QString());
        EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("26-"));
        EXPECT_EQ(screen.RequestNum, QStringLiteral("90001"));
        EXPECT_EQ(shown(screen, commands), QStringLiteral("btnSave btnSavePrint btnClear btnClose"));
    });
    EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(nullptr)));
}

TEST_P(Load, ASavedResultIsShownAndLocked) {
    answerSavedRequest();
    answerResult(GetParam().editTable);
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(shown(screen, commands),
                  QStringLiteral("btnSave btnSavePrint btnEdit btnPrint btnClear btnClose"));
        QStringList expected = GetParam().disabledToEdit.split(u' ');
        expected << QStringLiteral("btnClear");
        expected.sort();
        EXPECT_EQ(disabled(screen), expected.join(u' '));
        EXPECT_TRUE(isLocked(screen));
        EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("<casenumber>"));
        EXPECT_EQ(screen.text("txtRadiopharmaceutical"), QStringLiteral("<Radiopharmaceutical>"));
        EXPECT_EQ(screen.text("txtWeight"), QStringLiteral("<Weight>"));
        EXPECT_EQ(screen.text("txtHeight"), QStringLiteral("<Height>"));
    });
    EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(GetParam().editTable)));
}

TEST_P(Load, ASavedResultOpensForRevocationOnly) {
    answerSavedRequest();
    answerResult(GetParam().revokeTable);
    openIn("C", [&](ResultScreen& screen) {
        EXPECT_EQ(shown(screen, commands), QStringLiteral("btnRevoke btnClose"));
        EXPECT_EQ(disabled(screen), GetParam().disabledToRevoke);
        EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("<casenumber>"));
        EXPECT_EQ(screen.text("txtRadiopharmaceutical"), QStringLiteral("<Radiopharmaceutical>"));
        EXPECT_EQ(screen.text("txtWeight"), QStringLiteral("<Weight>"));
    });
    EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(GetParam().revokeTable)));
}

/// What the band and the line of commands say: "title|kind of the band|sentences|saved date".
QString pointOf(ResultScreen& screen) {
    const auto& band = child<controls::HeaderBand>(screen, "band");
    QStringList sentences;
    for (const char* name : {"lblSymbols", "lblPoint", "lblSavedDate"}) {
        const auto& label = child<QLabel>(screen, name);
        if (label.isVisible())
            sentences << label.text();
    }
    return band.title() + u'|' + band.property("kind").toString() + u'|' + sentences.join(u'|');
}

TEST_P(Load, ANewResultSaysWhereSymbolsGo) {
    answerSavedRequest("");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(pointOf(screen), QStringLiteral("Result Entry||Press F5 to insert symbols."));
    });
}

TEST_P(Load, ASavedResultSaysSoWithItsDateAndSymbolsBehindEditOnly) {
    answerSavedRequest();
    answerResult(GetParam().editTable);
    resultDate = QStringLiteral("11/18/2026");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(pointOf(screen), QStringLiteral("Result Entry   ·   Saved Result||Edit unlocks the "
                                                  "fields.|Saved 11/18/2026"));
        EXPECT_EQ(screen.text("DtResultDate"), QStringLiteral("11/21/2026"));
        const auto& today = child<QLineEdit>(screen, "DtResultDate");
        EXPECT_GT(today.width(), today.fontMetrics().horizontalAdvance(today.text()) + 40) << "cut";
        tests::keysToFocus(screen, QStringLiteral("<Alt+E>"));
        EXPECT_EQ(pointOf(screen), QStringLiteral("Result Entry   ·   Saved Result||Press F5 to insert "
                                                  "symbols.|Saved 11/18/2026"));
    });
}

TEST_P(Load, ARevocationLooksLikeOne) {
    answerSavedRequest();
    answerResult(GetParam().revokeTable);
    resultDate = QStringLiteral("11/18/2026");
    openIn("C", [&](ResultScreen& screen) {
        EXPECT_EQ(pointOf(screen), QStringLiteral("Result Entry   ·   Revoke Result|danger|Revoke takes this "
                                                  "result back at once.|Saved 11/18/2026"));
        const auto& revoke = child<QPushButton>(screen, "btnRevoke");
        const auto& close = child<QPushButton>(screen, "btnClose");
        EXPECT_EQ(revoke.property("kind").toString(), QStringLiteral("danger"));
        EXPECT_GT(revoke.x(), screen.width() / 2);
        EXPECT_LT(revoke.x(), close.x());
        EXPECT_TRUE(close.hasFocus()) << "never on the one that revokes";
    });
}

TEST_P(Load, NothingToRevokeLooksLikeANewResult) {
    answerSavedRequest("");
    openIn("C", [&](ResultScreen& screen) {
        EXPECT_EQ(pointOf(screen), QStringLiteral("Result Entry||Press F5 to insert symbols."));
    });
}

TEST_P(Load, AStatusWithoutARowLeavesTheScreenAsForANewResult) {
    answerSavedRequest();
    answer((QByteArray("SELECT * FROM NUCLEAR..") + GetParam().editTable).constData(), "RequestNum");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(shown(screen, commands), QStringLiteral("btnSave btnSavePrint btnClear btnClose"));
        EXPECT_EQ(disabled(screen), QString());
        EXPECT_FALSE(isLocked(screen));
    });
    EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(GetParam().editTable)));
}

TEST_P(Load, WithoutAResultThereIsNothingToRevoke) {
    answerSavedRequest("");
    openIn("C", [&](ResultScreen& screen) {
        // The radio-immunoassay screen hides btnEdit twice, and so keeps btnPrint.
        EXPECT_EQ(shown(screen, commands),
                  isRadio() ? QStringLiteral("btnSave btnSavePrint btnPrint btnClear btnClose")
                            : QStringLiteral("btnSave btnSavePrint btnClear btnClose"));
        EXPECT_EQ(disabled(screen), QString());
    });
}

TEST_P(Load, OtherStatusesAreNoResult) {
    for (const char* status : {"R", "X", "w"}) {
        answerSavedRequest(status, true);
        openIn("R", [&](ResultScreen& screen) { EXPECT_EQ(disabled(screen), QString()); });
        EXPECT_EQ(lines(takeTexts()), lines(expectedTexts(nullptr)));
    }
}

TEST_P(Load, TheNextRequestFindsTheScreenEmptyAgain) {
    answerSavedRequest();
    answerResult(GetParam().editTable, {}, true);
    answer((QByteArray("SELECT * FROM NUCLEAR..") + GetParam().editTable + " ").constData(), "RequestNum");
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(screen.text("txtRadiopharmaceutical"), QStringLiteral("<Radiopharmaceutical>"));
    });
    openIn("R", [&](ResultScreen& screen) {
        EXPECT_EQ(screen.text("txtRadiopharmaceutical"), QString());
        EXPECT_EQ(disabled(screen), QString());
        EXPECT_FALSE(isLocked(screen));
    });
}

// ---- what each screen fills of a saved result

class LoadedResult : public LoadFixture {
  protected:
    LoadedResult() { answerSavedRequest(); }
    static QString at(ResultScreen& screen, const char* series, int index) {
        return screen.text((QByteArray(series) + '_' + QByteArray::number(index)).constData());
    }
};

TEST_F(LoadedResult, TheGenericScreenCrossesInterpretationAndRemarks) {
    answerResult("tbNucResult");
    for (const char* mode : {"R", "C"})
        open(entries[0], QLatin1String(mode), [](ResultScreen& screen) {
            EXPECT_EQ(screen.text("txtConsultation"), QStringLiteral("<Interpretation>"));
            EXPECT_EQ(screen.text("txtRemarks"), QStringLiteral("<Remarks>"));
            EXPECT_EQ(screen.text("txtConclusion"), QStringLiteral("<conclusion>"));
            EXPECT_EQ(screen.text("txtClinicalHistory"), QStringLiteral("<clinicalhistory>"));
            EXPECT_EQ(screen.text("txtDose"), QStringLiteral("<dose>"));
            EXPECT_EQ(screen.text("txtRoute"), QStringLiteral("<route>"));
            EXPECT_EQ(screen.text("txtProjections"), QStringLiteral("<Projections>"));
        });
}

TEST_F(LoadedResult, ThePerfusionScreenFillsItsGridToEditOnly) {
    answerResult(
        "tbNucResult",
        {{"fraction", "60|55"}, {"edv", "100"}, {"esv", nullptr}, {"sv", "|9"}, {"wallmotion", "a|b|c"}});
    for (const char* mode : {"R", "C"})
        open(entries[1], QLatin1String(mode), [&](ResultScreen& screen) {
            for (const auto& [field, text] :
                 {std::pair("txtProtocol", "<PROTOCOL>"), std::pair("txtTechnique", "<technique>"),
                  std::pair("txtStressDetails", "<stressdetails>"),
                  std::pair("txtStressImages", "<stressimages>"),
                  std::pair("txtRestingImages", "<restingimages>"),
                  std::pair("txtQuantitativeData", "<quantitativedata>"),
                  std::pair("txtConclusion", "<conclusion>"),
                  std::pair("txtClinicalHistory", "<clinicalhistory>"), std::pair("txtRemarks", "<Remarks>")})
                EXPECT_EQ(screen.text(field), QLatin1String(text)) << field;
            QStringList cells;
            const auto& grid = child<FlexGrid>(screen, "grdTable");
            for (int row = 1; row <= 5; ++row)
                cells << grid.TextMatrix(row, 1) + u'/' + grid.TextMatrix(row, 2);
            EXPECT_EQ(cells.join(u' '),
                      *mode == 'R' ? QStringLiteral("60/55 100/ / /9 a/b") : QStringLiteral("/ / / / /"));
            EXPECT_EQ(grid.isEnabled(), *mode == 'C');
        });
}

TEST_F(LoadedResult, TheGfrScreenFillsItsTableToEditOnly) {
    answerResult("tbNucResult");
    for (const char* mode : {"R", "C"})
        open(entries[2], QLatin1String(mode), [&](ResultScreen& screen) {
            for (int i = 0; i < int(results::measurementLines.size()); ++i) {
                EXPECT_EQ(at(screen, "txtLeft", i),
                          *mode == 'R' ? QStringLiteral("<Left%1>").arg(i + 1) : QString());
                EXPECT_EQ(at(screen, "txtRight", i),
                          *mode == 'R' ? QStringLiteral("<Right%1>").arg(i + 1) : QString());
            }
            EXPECT_EQ(screen.text("txtScale"), *mode == 'R' ? QStringLiteral("<Scale>") : QString());
            EXPECT_EQ(screen.text("txtIsotope"), QString()) << "the isotope is not read back";
            EXPECT_EQ(screen.text("txtDose"), QStringLiteral("<dose>"));
        });
}

TEST_F(LoadedResult, BothBoxesOfAnAnalyteShowTheOneValueToEditOnly) {
    answerResult("tbNucRadioResult");
    answerResult("tbNucResultRadio", {{"dose", "of the other table"}});
    for (const char* mode : {"R", "C"})
        open(entries[3], QLatin1String(mode), [&](ResultScreen& screen) {
            const bool edits = *mode == 'R';
            for (int i = 0; i < int(results::analytes.size()); ++i) {
                const QString kept = u'<' + QLatin1String(results::analytes[std::size_t(i)].column) + u'>';
                EXPECT_EQ(at(screen, "txtLeft", i), edits ? kept : QString());
                EXPECT_EQ(at(screen, "txtNormal", i), edits ? kept : QString());
            }
            EXPECT_EQ(screen.text("txtTechnologist"), edits ? QStringLiteral("<Technologist>") : QString());
            EXPECT_EQ(screen.text("txtDose"),
                      edits ? QStringLiteral("<dose>") : QStringLiteral("of the other table"));
        });
}

TEST_F(LoadedResult, MeasuredValuesCanBeTypedInAtAnyTime) {
    answerResult("tbNucResult");
    answerResult("tbNucRadioResult");
    open(entries[2], QStringLiteral("R"), [&](ResultScreen& screen) {
        tests::keys(child<QLineEdit>(screen, "txtLeft_0"), QStringLiteral("61"));
        EXPECT_TRUE(at(screen, "txtLeft", 0).contains(QStringLiteral("61")));
    });
    open(entries[3], QStringLiteral("R"),
         [&](ResultScreen& screen) { EXPECT_TRUE(child<QLineEdit>(screen, "txtNormal_0").isEnabled()); });
}

TEST_F(LoadedResult, EditOpensTheFieldsAndTheCaseNumberOfTheGenericScreenOnly) {
    answerResult("tbNucResult");
    answerResult("tbNucRadioResult");
    for (const Entry& entry : entries)
        open(entry, QStringLiteral("R"), [&](ResultScreen& screen) {
            tests::click(child<QPushButton>(screen, "btnEdit"));
            EXPECT_TRUE(child<QPushButton>(screen, "btnClear").isEnabled());
            EXPECT_TRUE(child<QLineEdit>(screen, "txtCaseNum").isEnabled());
            EXPECT_EQ(isLocked(screen), QLatin1String(entry.name) != u"frmResultEntry") << entry.name;
        });
}

/// The one that btnEdit of another screen made is the one that the next request opens.
TEST_F(LoadedResult, TheHiddenGenericScreenIsFilledAndShownLater) {
    answerResult("tbNucResult");
    controls::release<results::frmResultEntry>();
    open(entries[2], QStringLiteral("R"),
         [&](ResultScreen& screen) { tests::click(child<QPushButton>(screen, "btnEdit")); });
    ASSERT_TRUE(controls::SharedScreen<results::frmResultEntry>::exists());
    const ResultScreen* hidden = &controls::SharedScreen<results::frmResultEntry>::current();
    for (const bool first : {true, false})
        open(entries[0], QStringLiteral("R"), [&](ResultScreen& screen) {
            EXPECT_EQ(&screen == hidden, first);
            EXPECT_TRUE(screen.isVisible());
            EXPECT_EQ(screen.text("txtCaseNum"), QStringLiteral("<casenumber>"));
            EXPECT_TRUE(isLocked(screen));
            EXPECT_EQ(shown(screen, commands),
                      QStringLiteral("btnSave btnSavePrint btnEdit btnPrint btnClear btnClose"));
        });
}

} // namespace
