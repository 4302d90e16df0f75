#include "results/ResultPicker.h"

#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "results/frmResult.h"
#include "session/Session.h"
#include "ui_ResultPicker.h"

namespace results {

using base::Trim;

namespace {

// The hidden leading column counts as 0.
enum GridColumn { hospitalCode = 1, lastName, firstName, middleName };

enum SearchBy { byAdmissionNumber, byLastName };

constexpr int widths[] = {100, 1200, 1800, 1800, 1800};

/// A blank row can be chosen as well, but not by Enter: the keys go to the grid only once it has a patient.
constexpr controls::ListVariant list = {.format =
                                            "  |Code |Last Name |First Name |Middle Name |Request Number",
                                        .widths = widths,
                                        .one = "patient",
                                        .many = "patients",
                                        .most = 200,
                                        .moreText = "%1 patients at most: type more of the name.",
                                        .nothingFound = controls::ListVariant::NothingFound::KeepsRows,
                                        .selectable = controls::ListVariant::Selectable::AsItStands,
                                        .emptyRow = controls::ListVariant::EmptyRow::NotEnter};

} // namespace

ResultPicker::ResultPicker(const PickerVariant& variant, QWidget* parent)
    : ListScreen(parent), m_variant(variant), m_ui(std::make_unique<Ui::ResultPicker>()) {
    m_ui->setupUi(this);
    setObjectName(QLatin1String(variant.name));
    setWindowTitle(QLatin1String(variant.caption));
    m_ui->bandHeader->setTitle(QLatin1String(variant.caption));
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              list);
}

ResultPicker::~ResultPicker() = default;

void ResultPicker::Form_Load() {
    ListScreen::Form_Load();
    const bool revokes = m_variant.passedMode(FormMode) == u"C";
    m_ui->bandHeader->setSubtitle(QLatin1String(revokes ? m_variant.subtitleToRevoke : m_variant.subtitle));
    // The choice is shown only: the server finds a name and a number alike.
    m_ui->cmbSearch->addItems({QStringLiteral("Adm #"), QStringLiteral("Last Name")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
}

void ResultPicker::search() {
    const Hourglass busy;
    ado::Recordset patients = session::Read(m_variant.search(Trim(m_ui->txtSearch->text())));
    if (bindRows(patients) > 0)
        setWidths();
}

void ResultPicker::rowTaken() {
    openRequests();
    if (!isUnloaded())
        backToSearch();
}

void ResultPicker::openRequests() {
    frmResult& result = controls::SharedScreen<frmResult>::fresh();
    result.load();
    result.HospitalNumber = Trim(cell(hospitalCode));
    result.setPatientName(cell(lastName) + QStringLiteral(", ") + cell(firstName) + u' ' + cell(middleName));
    ado::Recordset requests = session::Read(m_variant.requests(result.HospitalNumber));
    if (requests.RecordCount() > 0) {
        result.FormMode = m_variant.passedMode(FormMode);
        result.Init_Grid();
        result.showRequests(requests);
    }
    requests.Close();
    result.ShowModal();
}

} // namespace results
