// What stands on the screens, word for word.
#include "results/ResultLoad.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultRadioImmuno.h"
#include "results/frmSymbols.h"
#include "session/Session.h"
#include "tests/results/ResultFixture.h"

#include <gtest/gtest.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

using tests::child;
using tests::Kind;
using tests::listed;

namespace {

class Captions : public tests::ResultFixture {
  public:
    QString label(const char* name) { return child<QLabel>(screen(), name).text(); }
    /// The caption of the page that a field lies on, inner page last: "Visual Analysis (Spect)/Stress
    /// Images".
    QString pageOf(const char* field) {
        QStringList pages;
        for (QWidget* page = &widget(QString::fromLatin1(field)); page->parentWidget();
             page = page->parentWidget()) {
            const auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
            if (tabs && tabs->indexOf(page) >= 0)
                pages.prepend(tabs->objectName() + u':' + tabs->tabText(tabs->indexOf(page)));
        }
        return pages.join(u'/');
    }
    QString frameOf(const char* field) {
        for (const QWidget* part = &widget(QString::fromLatin1(field)); part; part = part->parentWidget())
            if (const auto* frame = qobject_cast<const QGroupBox*>(part))
                return frame->title();
        return {};
    }
    /// The caption in front of a box of a table.
    QString lineOf(const QString& box) {
        QWidget& field = widget(box);
        const auto* grid = qobject_cast<const QGridLayout*>(field.parentWidget()->layout());
        if (!grid)
            grid = field.parentWidget()->findChild<QGridLayout*>();
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(grid->indexOf(&field), &row, &column, &rows, &columns);
        return qobject_cast<QLabel*>(grid->itemAtPosition(row, 0)->widget())->text() + u'|' +
               qobject_cast<QLabel*>(grid->itemAtPosition(0, column)->widget())->text();
    }
};

struct Caption {
    const char* label;
    const char* text;
    const char* field;
    const char* frame;
};

constexpr const char* patient = "Patient's Info.";
constexpr const char* hospital = "Hosp. Info.";
constexpr const char* report = "Technical Report";

const Caption onAll[] = {
    {"lblPName", "Patient's  Name ", "txtPName", patient},
    {"lblAddress", "Address", "txtAddress", patient},
    {"lblBDate", "Birth Date", "txtBDate", patient},
    {"lblAge", "Age ", "txtAge", patient},
    {"lblSex", "Sex", "txtSex", patient},
    {"lblDoctor2", "Requesting Dr.", "txtRequestingDrCode", patient},
    {"lblDoctor2", "Requesting Dr.", "txtRequestingDr", patient},
    {"lblWeight", "Weight", "txtWeight", patient},
    {"lblHeight", "Height", "txtHeight", patient},
    {"lblHospNum", "Hospital No.", "txtHospNum", hospital},
    {"lblIdNum", "Adm. No.", "txtIdNum", hospital},
    {"lblAccountName", "Account Name", "txtAccountName", hospital},
    {"lblRoomID", "Room No.", "txtRoomID", hospital},
    {"lblExamDate", "Exam Date ", "txtExamDate", hospital},
    {"lblCaseNum", "NM No.", "txtCaseNum", hospital},
    {"lblResultDate", "Result Date ", "DtResultDate", hospital},
    {"lblProcedureCaption", "Procedure", "lblProcedure", report},
    {"lblRadiopharmaceutical", "Radiopharmaceutical ", "txtRadiopharmaceutical", report},
};

const Caption attending{"lblDoctor1", "Attending Dr.", "txtAttendingDrCode", patient};
const Caption dose{"lblDose", "Dose", "txtDose", report};
const Caption route{"lblRoute", "Route of Administration ", "txtRoute", report};
const Caption projections{"lblProjections", "Projections", "txtProjections", report};

struct ScreenCaptions {
    Kind kind;
    std::vector<Caption> own;
    std::vector<std::pair<const char*, const char*>> pages;
};

const ScreenCaptions screens[] = {
    {Kind::Generic,
     {attending, dose, route, projections},
     // Crossed: what is called the interpretation are the remarks, and the other way round.
     {{"txtConsultation", "SSTab1:Consultation Report"},
      {"txtConclusion", "SSTab1:Conclusion"},
      {"txtClinicalHistory", "SSTab1:Clinical History"},
      {"txtRemarks", "SSTab1:Interpretation"}}},
    {Kind::Perfusion,
     {{"lblDoctor1", "Cardiologist", "txtCardiologistCode", patient},
      {"lblDoctor1", "Cardiologist", "txtCardiologist", patient},
      {"lblProtocol", "Protocol", "txtProtocol", report}},
     {{"txtClinicalHistory", "SSTab1:Clinical History"},
      {"txtTechnique", "SSTab1:Technique"},
      {"txtStressDetails", "SSTab1:Stress Details"},
      {"txtStressImages", "SSTab1:Visual Analysis (Spect)/SSTab2:Stress Images"},
      {"txtRestingImages", "SSTab1:Visual Analysis (Spect)/SSTab2:Resting Images"},
      {"txtQuantitativeData", "SSTab1:Visual Analysis (Spect)/SSTab2:Quantitative Data"},
      {"grdTable", "SSTab1:Visual Analysis (Spect)/SSTab2:Functional Parameters"},
      {"txtConclusion", "SSTab1:Conclusion"},
      {"txtRemarks", "SSTab1:Remarks"}}},
    {Kind::Gfr, {attending, dose, route, projections, {"lblIsotope", "Isotope", "txtIsotope", report}}, {}},
    {Kind::Radio,
     {attending, dose, route, projections, {"lblTechnologist", "Technologist", "txtTechnologist", report}},
     {{"txtNormal_0", "SSTab1:PART 1"},
      {"txtLeft_10", "SSTab1:PART 1"},
      {"txtNormal_11", "SSTab1:PART 2"},
      {"txtLeft_21", "SSTab1:PART 2"}}},
};

void PrintTo(const ScreenCaptions& screen, std::ostream* out) {
    tests::PrintTo(screen.kind, out);
}

class CaptionsOf : public Captions, public testing::WithParamInterface<ScreenCaptions> {};
INSTANTIATE_TEST_SUITE_P(Screens, CaptionsOf, testing::ValuesIn(screens), testing::PrintToStringParamName());

TEST_P(CaptionsOf, FieldsFramesAndPages) {
    open(GetParam().kind);
    std::vector<Caption> all(std::begin(onAll), std::end(onAll));
    all.insert(all.end(), GetParam().own.begin(), GetParam().own.end());
    for (const Caption& caption : all) {
        EXPECT_EQ(label(caption.label), QLatin1String(caption.text));
        EXPECT_EQ(frameOf(caption.field), QLatin1String(caption.frame)) << caption.field;
    }
    for (const auto& [field, page] : GetParam().pages)
        EXPECT_EQ(pageOf(field), QLatin1String(page)) << field;
}

TEST_P(CaptionsOf, AWeightIsShownWhole) {
    open(GetParam().kind);
    for (const char* name : {"txtWeight", "txtHeight"}) {
        const auto& field = child<QLineEdit>(screen(), name);
        constexpr int frameAndMargins = 22;
        EXPECT_GE(field.width() - frameAndMargins, field.fontMetrics().horizontalAdvance("158.5 lbs"))
            << name;
    }
}

// ---- the lines of the two tables, and their columns on the server

TEST_F(Captions, OfTheMeasurements) {
    open(Kind::Gfr);
    const char* const captions[] = {"KIDNEY AREA (cm^2)",
                                    "KIDNEY DEPTH (cm)",
                                    "PERFUSION INDEX",
                                    "PERFUSION %  (Int) ",
                                    "PERFUSION % (Slo)",
                                    "UPTAKE % (Int)",
                                    "GFR"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(lineOf(QStringLiteral("txtLeft_%1").arg(i)), QLatin1String(captions[i]) + "|LEFT");
        EXPECT_EQ(lineOf(QStringLiteral("txtRight_%1").arg(i)), QLatin1String(captions[i]) + "|RIGHT");
        EXPECT_EQ(QString::fromLatin1(results::measurementLines[std::size_t(i)].leftColumn),
                  QStringLiteral("Left%1").arg(i + 1));
        EXPECT_EQ(QString::fromLatin1(results::measurementLines[std::size_t(i)].rightColumn),
                  QStringLiteral("Right%1").arg(i + 1));
    }
    EXPECT_EQ(label("lblScale"), "SCALED GFR (ml/min)");
}

constexpr std::pair<const char*, const char*> analytes[] = {
    {"Calcitonin", "Calcitonin"},
    {"Anti-TG", "AntiTG"},
    {"TG (Thyroglobulin)", "TG"},
    {"Anti-TPO (Thyroid Peroxidas)", "AntiTPO"},
    {"TSH (Thyroid Stimulating Hormone)", "TSH"},
    {"Free T4", "FreeT4"},
    {"Free T3", "FreeT3"},
    {"T4", "T4"},
    {"T3", "T3"},
    {"Progesterone", "Progesterone"},
    {"Cortisol", "Cortisol"},
    {"DHEA-S04 (Dehydroepiadrosterone)", "DHEA"},
    {"hGH (Growth Hormone)", "HGH"},
    {"hLH (Luteinizing Hormone)", "HLH"},
    {"hFSH (Follicle Stimulating Hormone)", "HFSH"},
    {"AFP (Alpha Fetoprotein", "AFP"},
    {"bHCG (Beta Human Chorionic Gonadotropin)", "BHCG"},
    {"PSA (Prostate Specific Antigen", "PSA"},
    {"Osteocalcin", "Osteocalcin"},
    {"C-Peptide", "CPeptide"},
    {"SHBG (Sex Hormone Binding Globulin)", "SHBG"},
    {"Insulin", "Insulin"},
};

/// Typed, saved, and loaded again: what stands in a line is what its column keeps.
TEST_F(Captions, OfTheAnalytesAndTheColumnsTheyAreKeptIn) {
    open(Kind::Radio);
    for (int i = 0; i < 22; ++i) {
        EXPECT_EQ(lineOf(QStringLiteral("txtNormal_%1").arg(i)),
                  QLatin1String(analytes[i].first) + "|RESULT");
        EXPECT_EQ(lineOf(QStringLiteral("txtLeft_%1").arg(i)), QLatin1String(analytes[i].first) + "|RESULT");
        screen().setText(qPrintable(QStringLiteral("txtNormal_%1").arg(i)), QStringLiteral("v%1").arg(i));
    }
    boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
    type("<Alt+S>");
    for (int i = 0; i < 22; ++i)
        EXPECT_EQ(value(QStringLiteral("SELECT %1 FROM NUCLEAR..tbNucRadioResult WHERE RequestNum = '90001'")
                            .arg(QLatin1String(analytes[i].second))),
                  QStringLiteral("v%1").arg(i))
            << analytes[i].second;
    screen().Unload();
    fill(Kind::Radio);
    results::fillResultScreen(screen(), results::radioLoad, "90001", "R");
    for (int i = 0; i < 22; ++i)
        EXPECT_EQ(text(qPrintable(QStringLiteral("txtLeft_%1").arg(i))), QStringLiteral("v%1").arg(i));
}

TEST_F(Captions, TheAnalytesKeepTheirColumnsFromPageToPage) {
    open(Kind::Radio);
    auto& tabs = tests::child<QTabWidget>(screen(), "SSTab1");
    const auto placeOf = [&](const char* box) {
        auto& field = tests::child<QLineEdit>(screen(), box);
        return QPair(field.mapTo(&tabs, QPoint()).x(), field.width());
    };
    tabs.setCurrentIndex(0);
    QCoreApplication::processEvents();
    const auto normal = placeOf("txtNormal_0");
    const auto left = placeOf("txtLeft_0");
    tabs.setCurrentIndex(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOf("txtNormal_11"), normal);
    EXPECT_EQ(placeOf("txtLeft_11"), left);
}

TEST_F(Captions, OfTheSymbols) {
    auto& symbols = controls::SharedScreen<results::frmSymbols>::fresh();
    symbols.Show();
    EXPECT_EQ(child<QLabel>(symbols, "bandTitle").text(), "Select Symbol");
    EXPECT_EQ(child<QLabel>(symbols, "lblHint").text(), "Double-Click the symbol to insert. ");
    EXPECT_EQ(child<QPushButton>(symbols, "cmdSelect").text(), "&Select ");
    EXPECT_EQ(child<QPushButton>(symbols, "Command1").text(), "&Close");
    symbols.Unload();
}

// ---- the pointer

/// Notes the pointer at each step of a transaction and at each text within.
class Pointer : public ado::Observer {
  public:
    Pointer() { session::gConnection->addObserver(this); }
    ~Pointer() override { session::gConnection->removeObserver(this); }
    Pointer(const Pointer&) = delete;
    Pointer& operator=(const Pointer&) = delete;
    void transactionStep(ado::TransactionStep step) override {
        if (step == ado::TransactionStep::Commit)
            atCommit = isHourglass();
    }
    static bool isHourglass() {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::WaitCursor;
    }
    bool atCommit = false;
};

class PointerOn : public Captions, public testing::WithParamInterface<Kind> {};
INSTANTIATE_TEST_SUITE_P(Screens, PointerOn, testing::ValuesIn(tests::allKinds),
                         testing::PrintToStringParamName());

TEST_P(PointerOn, IsAnHourglassWhileASaveAndARevocationRun) {
    open(GetParam());
    boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
    {
        const Pointer save;
        type("<Alt+S>");
        EXPECT_TRUE(save.atCommit);
    }
    EXPECT_FALSE(Pointer::isHourglass());
    screen().showCommands(std::array{"btnRevoke"}, true);
    boxes.expect({"Result successfully revoked!", controls::vbInformation, "Message"});
    {
        const Pointer revocation;
        press("btnRevoke");
        EXPECT_TRUE(revocation.atCommit);
    }
    EXPECT_FALSE(Pointer::isHourglass());
}

} // namespace
