#include "charges/frmBuildFile.h"

#include "charges/RateKeys.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/reports/ReportLaunch.h"
#include "ui_frmBuildFile.h"

#include <QKeyEvent>

#include <limits>

namespace charges {

using ado::sql;
using base::Trim;
using controls::KeyRule;
using controls::on;
using session::gDeptCode;

namespace {

enum SearchBy { byDescription, byCode };

/// The first column, the section and the fixed rate are not shown.
constexpr int descriptionColumn = 1;
constexpr int codeColumn = 2;
constexpr int firstRateColumn = 4;
constexpr int lastRateColumn = 8;

constexpr const char* rateFields[] = {"RateA", "RateB", "RateC", "RateD", "RateE"};

/// By the place in the list of Medicare types, which has one entry: the list of sections is not asked.
constexpr const char* sectionLetters[] = {"", "M", "T"};

constexpr const char* browsing = "Nuclear Exams";

constexpr const char* keysBrowsing =
    "<b>Enter</b> in the search goes to the list &nbsp;·&nbsp; <b>Esc</b> leaves";
constexpr const char* keysEntering =
    "<b>Enter</b> in the description allows Save &nbsp;·&nbsp; <b>Esc</b> leaves without saving";

QString yesOrNo(const QCheckBox* box) {
    return box->isChecked() ? QStringLiteral("Y") : QStringLiteral("N");
}

QString numberText(const QString& text) {
    return base::CStr(base::Val(text));
}

} // namespace

struct frmBuildFile::State {
    bool detailsLive;
    const char* status;
    bool browses; ///< the grid is in use, and so are the commands that begin something
    bool saveShown;
    bool saveEnabled;
    bool cancelShown;
};

frmBuildFile::frmBuildFile(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmBuildFile>()) {
    m_ui->setupUi(this);
    m_rates = {m_ui->txtRateA, m_ui->txtRateB, m_ui->txtRateC, m_ui->txtRateD, m_ui->txtRateE};
    m_ui->fmeExamInfo->setMaximumWidth(controls::look::scaled(380)); // the list takes all other room
    m_ui->grdExams->setFixedCols(0);
    m_ui->grdExams->setRowSelect(true);
    m_ui->grdExams->setEmptyText(QStringLiteral("The file holds no exam. F8 adds one."));
    controls::look::setPrimary(m_ui->btnSave);
    setRules();
    connectControls();
    controls::noteKeys(m_ui->grdExams, {{"F5", "Refreshes the list"},
                                        {"F7", "Edits the exam"},
                                        {"F8", "Adds an exam"},
                                        {"F9", "Prints the list"}});
    controls::noteKeys(m_ui->txtSearch, {{"Enter, Down", "To the list"}});
    for (QWidget* resting : std::initializer_list<QWidget*>{this, m_ui->btnSave, m_ui->btnCancel})
        resting->setMouseTracking(true);
    for (QWidget* watched :
         std::initializer_list<QWidget*>{m_ui->btnSave, m_ui->btnCancel, m_ui->grdExams, m_ui->txtSearch})
        watched->installEventFilter(this);
}

frmBuildFile::~frmBuildFile() = default;

void frmBuildFile::setRules() {
    controls::setKeyRules(m_ui->txtDecription, KeyRule::UpperCase | KeyRule::BackQuote);
    controls::setKeyRules(m_ui->txtSearch, KeyRule::UpperCase | KeyRule::BackQuote);
    for (QLineEdit* rateBox : m_rates)
        RateKeys::attach(rateBox);
    controls::onEnter(m_ui->txtDecription, [this] { txtDecription_Enter(); });
    controls::onEnter(m_ui->txtSearch, [this] { m_ui->grdExams->setFocus(); });
    controls::enterMovesOn({m_ui->txtRateA, m_ui->txtRateB, m_ui->txtRateC, m_ui->txtRateD, m_ui->txtRateE,
                            m_ui->cmbMedicareType, m_ui->cmdSectionID, m_ui->chkCommon, m_ui->chkActive,
                            m_ui->chkVariableRate});
}

void frmBuildFile::connectControls() {
    on(m_ui->btnPrint, &QPushButton::clicked, this, [this] { btnPrint_Click(); });
    on(m_ui->btnRefresh, &QPushButton::clicked, this, [this] { btnRefresh_Click(); });
    on(m_ui->btnNew, &QPushButton::clicked, this, [this] { btnNew_Click(); });
    on(m_ui->btnEdit, &QPushButton::clicked, this, [this] { btnEdit_Click(); });
    on(m_ui->btnSave, &QPushButton::clicked, this, [this] { btnSave_Click(); });
    on(m_ui->btnCancel, &QPushButton::clicked, this, [this] { btnCancel_Click(); });
    on(m_ui->btnExit, &QPushButton::clicked, this, [this] { Unload(); });
    on(m_ui->grdExams, &controls::FlexGrid::Click, this, [this] { grdExams_Click(); });
    on(m_ui->txtSearch, &QLineEdit::textChanged, this, [this] { txtSearch_Change(); });
}

void frmBuildFile::Form_Load() {
    m_ui->bandHeader->setSubtitle(session::gHospitalName);
    m_ui->cmbSearch->addItems({QStringLiteral("Decription"), QStringLiteral("Code")});
    m_ui->cmbMedicareType->addItem(QStringLiteral("N = Non-Medicare"));
    m_ui->cmdSectionID->addItems(
        {QStringLiteral("O = Others"), QStringLiteral("M = MPI"), QStringLiteral("T = Therapy")});
    LoadExamList();
    EntryMode.clear();
    setState({.detailsLive = false,
              .status = browsing,
              .browses = true,
              .saveShown = false,
              .saveEnabled = true,
              .cancelShown = false});
    m_ui->txtSearch->setFocus();
}

// ---- modes

void frmBuildFile::setState(const State& state) {
    // What holds the focus goes last: the desktop would pass it to anything beside.
    if (state.browses)
        setBrowsing(true);
    m_ui->fmeExamInfo->setEnabled(state.detailsLive);
    showStatus(state.status);
    m_ui->btnSave->setVisible(state.saveShown);
    m_ui->btnSave->setEnabled(state.saveEnabled);
    m_ui->btnCancel->setVisible(state.cancelShown);
    if (!state.browses)
        setBrowsing(false);
}

void frmBuildFile::setBrowsing(bool browses) {
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->grdExams, m_ui->btnEdit, m_ui->btnNew,
                                                            m_ui->btnRefresh, m_ui->btnPrint})
        control->setEnabled(browses);
    m_ui->lblKeys->setText(QString::fromUtf8(browses ? keysBrowsing : keysEntering));
}

void frmBuildFile::showStatus(const char* status) {
    m_ui->lblStatus->setText(QLatin1String(status));
}

void frmBuildFile::btnNew_Click() {
    EntryMode = QStringLiteral("N");
    setState({.detailsLive = true,
              .status = "Add new exam",
              .browses = false,
              .saveShown = true,
              .saveEnabled = false,
              .cancelShown = true});
    clearDetails();
    m_ui->txtCode->setEnabled(false);
    m_ui->txtDecription->setFocus();
}

void frmBuildFile::btnEdit_Click() {
    EntryMode = QStringLiteral("E");
    setState({.detailsLive = true,
              .status = "Edit Exam",
              .browses = false,
              .saveShown = true,
              .saveEnabled = true,
              .cancelShown = true});
    ShowExamDetails(currentCode(), Rates::AsRead);
    m_ui->txtDecription->setFocus();
}

/// The mode stays as it was; nothing asks for it until the next New or Edit.
void frmBuildFile::btnCancel_Click() {
    setState({.detailsLive = false,
              .status = "Cancel Nuclear Exams",
              .browses = true,
              .saveShown = false,
              .saveEnabled = true,
              .cancelShown = false});
    m_ui->grdExams->setFocus();
}

void frmBuildFile::btnRefresh_Click() {
    RefreshExams();
    showStatus(browsing);
}

void frmBuildFile::btnPrint_Click() {
    showStatus("Print Nuclear Exams");
    session::PrepareReport(session::reportPath(QStringLiteral("NucExams.RPT")), QStringLiteral("NUCLEAR"),
                           {});
    session::ShowReport(false, QStringLiteral("List of Nuclear Procedures"), false);
}

// ---- keys and pointer

void frmBuildFile::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape)
        return Screen::keyPressEvent(event);
    event->accept();
    controls::ErrorBoundary::guard([this] {
        if (m_ui->btnCancel->isHidden())
            Unload();
        else
            btnCancel_Click();
    });
}

void frmBuildFile::mouseMoveEvent(QMouseEvent* event) {
    showStatus(browsing);
    Screen::mouseMoveEvent(event);
}

bool frmBuildFile::eventFilter(QObject* watched, QEvent* event) {
    bool taken = false;
    if (event->type() == QEvent::MouseMove && (watched == m_ui->btnSave || watched == m_ui->btnCancel))
        showStatus(browsing);
    if (event->type() == QEvent::KeyPress)
        controls::ErrorBoundary::guard([&] {
            auto& key = static_cast<QKeyEvent&>(*event);
            if (watched == m_ui->grdExams && m_ui->grdExams->isEnabled())
                taken = grdExams_KeyDown(key);
            else if (watched == m_ui->txtSearch && key.key() == Qt::Key_Down) {
                m_ui->grdExams->setFocus();
                taken = true;
            }
        });
    return taken || Screen::eventFilter(watched, event);
}

/// A command's key is the command's; behind any other one the exam of the row that it led to is shown.
bool frmBuildFile::grdExams_KeyDown(QKeyEvent& event) {
    static constexpr std::pair<Qt::Key, void (frmBuildFile::*)()> commands[] = {
        {Qt::Key_F5, &frmBuildFile::btnRefresh_Click},
        {Qt::Key_F7, &frmBuildFile::btnEdit_Click},
        {Qt::Key_F8, &frmBuildFile::btnNew_Click},
        {Qt::Key_F9, &frmBuildFile::btnPrint_Click}};
    for (const auto& [key, command] : commands) {
        if (event.key() != key || event.modifiers() != Qt::NoModifier)
            continue;
        event.accept();
        if (!event.isAutoRepeat())
            (this->*command)();
        return true;
    }
    if (event.key() == Qt::Key_Escape)
        return false;
    static_cast<QObject*>(m_ui->grdExams)->event(&event);
    ShowExamDetails(currentCode());
    return true;
}

void frmBuildFile::grdExams_Click() {
    showStatus("Search Exams");
    ShowExamDetails(currentCode());
}

void frmBuildFile::txtDecription_Enter() {
    m_ui->btnSave->setEnabled(true);
    m_ui->txtRateA->setFocus();
}

// ---- the list

void frmBuildFile::LoadExamList() {
    const Hourglass busy;
    ado::Recordset exams = session::Read(sql("build_file..sp_Bui_Find_Revenue_Center_Items '{}'", gDeptCode));
    if (exams.RecordCount() > 0) {
        controls::FlexGrid& grid = *m_ui->grdExams;
        grid.setFormatString(
            QStringLiteral(" dumm | Exam Description | Exam Code | NucSectionID | Rate A | Rate B "
                           "| Rate C| Rate D | Rate E | FixRate | Status "));
        grid.setColWidths({0, 3500, 900, 0, 1200, 1200, 1200, 1200, 1200, 0, 1100});
        for (int column = firstRateColumn; column <= lastRateColumn; ++column)
            grid.setColAlignment(column, Qt::AlignRight);
        grid.setDataSource(exams);
        grid.setCol(descriptionColumn); // no key moves in a column that is not shown
    }
    exams.Close();
}

void frmBuildFile::RefreshExams() {
    LoadExamList();
    clearDetails();
}

QString frmBuildFile::currentCode() const {
    const controls::FlexGrid& grid = *m_ui->grdExams;
    return grid.Cols() > codeColumn ? grid.TextMatrix(grid.Row(), codeColumn) : QString();
}

void frmBuildFile::txtSearch_Change() {
    const QString text = m_ui->txtSearch->text();
    if (m_ui->cmbSearch->currentIndex() == byCode) {
        ShowExamDetails(text);
        goToExam(Trim(text));
        return;
    }
    ado::Recordset found = session::Read(
        sql("select Top 1 NucExamID From BUILD_FILE..tbCoNucExam Where NucExam Like '{}%'", text));
    const QString code = found.Eof() ? QString() : found.Fields("NucExamID").text();
    found.Close();
    if (!code.isEmpty())
        ShowExamDetails(code);
    goToExam(code);
}

void frmBuildFile::goToExam(const QString& code) {
    controls::FlexGrid& grid = *m_ui->grdExams;
    if (grid.Cols() <= codeColumn)
        return;
    for (int row = 0; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, codeColumn) != code)
            continue;
        const QRect shown = grid.shownCellRect(row, codeColumn);
        const bool inSight =
            grid.viewport()->rect().translated(grid.viewport()->pos() + grid.pos()).contains(shown);
        grid.setRow(row);
        if (!inSight)
            grid.scrollTo(grid.currentIndex(), QAbstractItemView::PositionAtTop);
    }
}

// ---- the exam in hand

void frmBuildFile::ShowExamDetails(const QString& code, Rates rates) {
    ado::Recordset exam =
        session::Read(sql("build_file..sp_Bui_Show_Item_Details '{}','{}'", gDeptCode, Trim(code)));
    if (!exam.Eof()) {
        const auto text = [&](const char* field) { return exam.Fields(field).text(); };
        m_ui->txtCode->setText(text("NucExamID"));
        m_ui->txtDecription->setText(text("NucExam"));
        for (std::size_t i = 0; i < m_rates.size(); ++i)
            m_rates[i]->setText(rates == Rates::AsRead ? text(rateFields[i])
                                                       : numberText(text(rateFields[i])));
        m_ui->chkCommon->setChecked(text("common") != u"N");
        m_ui->chkActive->setChecked(text("Status") == u"A");
        m_ui->chkVariableRate->setChecked(text("Fixrate") == u"Y");
    }
    exam.Close();
}

void frmBuildFile::clearDetails() {
    m_ui->txtCode->clear();
    m_ui->txtDecription->clear();
    for (QLineEdit* rateBox : m_rates)
        rateBox->clear();
}

// ---- save

void frmBuildFile::btnSave_Click() {
    showStatus("Add Nuclear Exam");
    const int place = m_ui->cmbMedicareType->currentIndex();
    SectionLetter = place >= 0 && place < int(std::size(sectionLetters))
                        ? QLatin1String(sectionLetters[place])
                        : QLatin1String();
    const auto saved = [] {
        controls::MsgBox(QStringLiteral("Record Saved"), controls::vbInformation, QStringLiteral("Message"));
    };
    if (EntryMode == u"E") {
        updateExam();
        SaveSectionId();
        saved();
        RefreshExams();
        setBrowsing(true);
        m_ui->grdExams->setFocus();
        m_ui->btnCancel->hide();
        m_ui->btnSave->hide();
    } else if (EntryMode == u"N") {
        insertExam();
        SaveSectionId();
        m_ui->btnSave->setEnabled(false);
        saved();
        RefreshExams();
        // The next exam begins where this one did.
        m_ui->txtDecription->setFocus();
    }
    showStatus(browsing);
}

QString frmBuildFile::NextExamNumber() const {
    ado::Recordset last = session::Read(sql("sp_Bui_Find_Last_Item_Number '{}'", gDeptCode));
    const int next = base::CLng(base::Val(last.Fields("lastnumber").text()) + 1);
    last.Close();
    if (next > std::numeric_limits<qint16>::max() || next < std::numeric_limits<qint16>::min())
        throw base::RunTimeError(base::errors::overflow);
    return QString::number(next);
}

void frmBuildFile::insertExam() {
    const QString number = NextExamNumber();
    session::Run(sql("sp_Bui_Insert_Item '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'",
                     gDeptCode, number, m_ui->txtDecription->text(), rate(0), rate(1), rate(2), rate(3),
                     rate(4), yesOrNo(m_ui->chkVariableRate), activeLetter(), medicareType(),
                     yesOrNo(m_ui->chkCommon)));
}

void frmBuildFile::updateExam() {
    session::Run(
        sql("build_File..sp_Bui_Update_Item_Details '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
            "'{}'",
            gDeptCode, Trim(m_ui->txtCode->text()), m_ui->txtDecription->text(), rate(0), rate(1), rate(2),
            rate(3), rate(4), yesOrNo(m_ui->chkVariableRate), activeLetter(), medicareType(),
            yesOrNo(m_ui->chkCommon)));
}

void frmBuildFile::SaveSectionId() {
    session::Run(sql("UPDATE tbCoNucExam SET NucSectionID = '{}' WHERE NucExamID = '{}'", SectionLetter,
                     Trim(m_ui->txtCode->text())));
}

QString frmBuildFile::rate(int index) const {
    return numberText(m_rates[std::size_t(index)]->text());
}

QString frmBuildFile::activeLetter() const {
    return m_ui->chkActive->isChecked() ? QStringLiteral("A") : QStringLiteral("I");
}

QString frmBuildFile::medicareType() const {
    return m_ui->cmbMedicareType->currentIndex() == 0 ? QStringLiteral("N") : QString();
}

} // namespace charges
