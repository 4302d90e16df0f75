#include "results/ResultScreen.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/DateBox.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/look/Look.h"
#include "results/PageKeys.h"
#include "results/frmResultEntry.h"
#include "results/frmSymbols.h"
#include "session/Session.h"
#include "session/StampRow.h"
#include "session/WorkDone.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"
#include "session/services/Services.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <vector>

namespace results {

using ado::sql;
using base::Trim;
using namespace controls;
using session::gCodeFind;
using session::gConnection;
using session::gUser;
using session::Read;
using session::ReadForUpdate;
using session::Run;
using session::stampRow;

namespace {

constexpr int noSuchMember = 461;
/// What the user types goes behind the year or before the unit that stands there already.
constexpr const char* prefilled[] = {"txtCaseNum", "txtDose"};

bool isAmong(FieldNames names, const QString& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* one) { return name == QLatin1String(one); });
}

/// A memo's text as it was typed: the widget's own reading turns a hard blank into a soft one.
QString memoText(const QPlainTextEdit& memo) {
    QString text = memo.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

/// The workstation's time of day as text: "8:30:00 AM".
QString timeText() {
    return base::CStr(*base::makeDateTime({1899, 12, 30}, base::clockTime(base::now())));
}

} // namespace

ResultScreen::ResultScreen(const ResultVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant) {}

ResultScreen::~ResultScreen() = default;

void ResultScreen::prepare() {
    const auto button = [this](const char* name) { return qobject_cast<QPushButton*>(widget(name)); };
    look::setPrimary(button("btnSavePrint"));
    button("btnRevoke")->hide();
    look::setKind(button("btnRevoke"), QStringLiteral("danger"));
    sayPoint(*this, m_point, {});
    sayWhatCanBeDone(*this, m_point, true);
    on(button("btnSave"), &QPushButton::clicked, this, [this] { btnSave_Click(); });
    on(button("btnSavePrint"), &QPushButton::clicked, this, [this] { btnSavePrint_Click(); });
    on(button("btnEdit"), &QPushButton::clicked, this, [this] { btnEdit_Click(); });
    on(button("btnPrint"), &QPushButton::clicked, this, [this] { btnPrint_Click(); });
    on(button("btnClear"), &QPushButton::clicked, this, [this] { btnClear_Click(); });
    on(button("btnRevoke"), &QPushButton::clicked, this, [this] { btnRevoke_Click(); });
    on(button("btnClose"), &QPushButton::clicked, this, [this] { Unload(); });
    const auto browse = [this](const char* name) { return qobject_cast<QToolButton*>(widget(name)); };
    on(browse("cmdBrowse1"), &QToolButton::clicked, this, [this] { lookUpDoctor(m_variant.browse1); });
    on(browse("cmdBrowse2"), &QToolButton::clicked, this, [this] { lookUpDoctor(m_variant.browse2); });
    for (const char* name : m_variant.backQuotes) {
        if (auto* memo = qobject_cast<QPlainTextEdit*>(widget(name)))
            setKeyRules(memo, KeyRule::BackQuote);
        else
            setKeyRules(qobject_cast<QLineEdit*>(widget(name)), KeyRule::BackQuote);
    }
    for (const char* name : m_variant.symbols)
        noteKeys(widget(name), {{"F5", "Inserts a symbol"}});
    for (QTabWidget* tabs : findChildren<QTabWidget*>()) {
        tabs->setFocusPolicy(Qt::NoFocus);
        tabs->tabBar()->setFocusPolicy(Qt::NoFocus); // Tab goes from page to page by itself
        tabs->tabBar()->installEventFilter(this);
        keepFocusOnPages(*this, *tabs, *widget("btnClose"));
    }
    for (QWidget* field : findChildren<QWidget*>()) {
        if (qobject_cast<QLineEdit*>(field) || qobject_cast<QPlainTextEdit*>(field) ||
            qobject_cast<FlexGrid*>(field))
            field->installEventFilter(this);
        if (auto* memo = qobject_cast<QPlainTextEdit*>(field))
            memo->viewport()->installEventFilter(this);
    }
}

// ---- fields

QWidget* ResultScreen::widget(const char* name) const {
    if (auto* found = findChild<QWidget*>(QLatin1String(name)))
        return found;
    throw base::RunTimeError(noSuchMember, QStringLiteral("Method or data member not found: %1").arg(name));
}

QString ResultScreen::text(const char* name) const {
    const QWidget* field = widget(name);
    if (const auto* line = qobject_cast<const QLineEdit*>(field))
        return line->text();
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(field))
        return memoText(*memo);
    if (const auto* label = qobject_cast<const QLabel*>(field))
        return label->text();
    throw base::RunTimeError(noSuchMember, QStringLiteral("No text in %1").arg(name));
}

void ResultScreen::setText(const char* name, const QString& text) {
    QWidget* field = widget(name);
    if (auto* line = qobject_cast<QLineEdit*>(field)) {
        line->setText(text);
        line->setCursorPosition(0); // a long text shows its beginning
        line->setToolTip(line->isReadOnly() ? text : QString());
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(field)) {
        memo->setPlainText(text);
    } else if (auto* label = qobject_cast<QLabel*>(field)) {
        label->setText(text);
    } else {
        throw base::RunTimeError(noSuchMember, QStringLiteral("No text in %1").arg(name));
    }
}

void ResultScreen::enableFields(FieldNames names, bool enabled) {
    for (const char* name : names) {
        QWidget* field = widget(name);
        field->setEnabled(enabled);
        if (auto* line = qobject_cast<QLineEdit*>(field)) // its end cannot be reached by the caret then
            line->setToolTip(enabled ? QString() : line->text());
    }
}

void ResultScreen::showCommands(FieldNames names, bool shown) {
    for (const char* name : names)
        widget(name)->setVisible(shown);
}

void ResultScreen::lockCaseNum(bool locked) {
    qobject_cast<QLineEdit*>(widget("txtCaseNum"))->setReadOnly(locked);
}

// ---- opening

void ResultScreen::Form_Load() {
    qobject_cast<DateBox*>(widget("DtResultDate"))->setDate(base::today());
    auto* caseNum = qobject_cast<QLineEdit*>(widget("txtCaseNum"));
    caseNum->setText(base::Format(base::today(), QStringLiteral("yy")) + u'-');
    if (findChild<QLineEdit*>(QStringLiteral("txtDose")))
        setText("txtDose", QStringLiteral(" mCi"));
}

void ResultScreen::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) { // else the window comes back from the task bar, as it was left
        showPatient();
        sayPoint(*this, m_point, m_savedDate);
        sayWhatCanBeDone(*this, m_point, takesSymbols());
        focusFirst();
    }
    Screen::showEvent(event);
}

void ResultScreen::showPatient() {
    auto* band = findChild<HeaderBand*>(QStringLiteral("band"));
    QStringList parts;
    for (const QString& part : {text("txtPName"), text("lblProcedure")}) {
        if (!Trim(part).isEmpty())
            parts += part;
    }
    band->setSubtitle(parts.join(QStringLiteral("   ·   ")));
    QStringList chips;
    if (!text("txtIdNum").isEmpty())
        chips += QStringLiteral("Adm. ") + text("txtIdNum");
    if (!text("txtHospNum").isEmpty())
        chips += QStringLiteral("Hosp. ") + text("txtHospNum");
    band->setChips(chips);
}

/// Where typing begins: the case number of a new result; else the command that a clerk came for, but never
/// the one that revokes.
void ResultScreen::focusFirst() {
    auto* caseNum = qobject_cast<QLineEdit*>(widget("txtCaseNum"));
    if (caseNum->isEnabled() && !caseNum->isReadOnly()) {
        caseNum->setFocus();
        caseNum->end(false);
        return;
    }
    QWidget* edit = widget("btnEdit");
    (edit->isVisibleTo(this) ? edit : widget("btnClose"))->setFocus();
}

/// What is revoked is typed in no more, though some of its fields stay open.
bool ResultScreen::takesSymbols() const {
    return m_point != ResultPoint::ToRevoke &&
           std::any_of(m_variant.symbols.begin(), m_variant.symbols.end(),
                       [this](const char* name) { return widget(name)->isEnabledTo(this); });
}

// ---- keys

bool ResultScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && isAmong(prefilled, watched->objectName()) &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
        // Reached by Tab a field is marked whole, and what is typed would replace the year or the unit.
        QFocusEvent plain(QEvent::FocusIn, Qt::OtherFocusReason);
        watched->event(&plain);
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        // Whoever clicks a page means to type there, not into the field that had the focus before.
        if (auto* bar = qobject_cast<QTabBar*>(watched))
            focusPage(*this, *qobject_cast<QTabWidget*>(bar->parentWidget()));
    }
    if (event->type() == QEvent::Wheel) {
        if (auto* memo = qobject_cast<QPlainTextEdit*>(watched->parent()); memo && !memo->isEnabled())
            scrollDisabled(*memo, *static_cast<QWheelEvent*>(event));
    }
    if (event->type() != QEvent::KeyPress)
        return Screen::eventFilter(watched, event);
    bool handled = false;
    ErrorBoundary::guard([&] { handled = fieldKey(watched->objectName(), *static_cast<QKeyEvent*>(event)); });
    return handled;
}

bool ResultScreen::fieldKey(const QString& field, const QKeyEvent& event) {
    const int key = event.key();
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && !control)
        return stepOverPages(*this, key == Qt::Key_Tab && !event.modifiers().testFlag(Qt::ShiftModifier));
    if (event.modifiers() & ~Qt::KeypadModifier)
        return false;
    if (key == Qt::Key_F5 && isAmong(m_variant.symbols, field)) {
        insertSymbol(field.toLatin1().constData());
        return true;
    }
    if (!isEnter(key))
        return false;
    for (const EnterMove& move : m_variant.enterMoves) {
        if (field == QLatin1String(move.from)) {
            focusOnItsPage(*widget(move.to));
            return true;
        }
    }
    for (const EnterLookup& lookup : m_variant.enterLookups) {
        if (field == QLatin1String(lookup.code)) {
            lookUpDoctor(lookup.browse == 1 ? m_variant.browse1 : m_variant.browse2);
            return true;
        }
    }
    return false;
}

void ResultScreen::keyPressEvent(QKeyEvent* event) {
    if (!pageKey(*this, *event))
        Screen::keyPressEvent(event);
}

void ResultScreen::insertSymbol(const char* field) {
    auto& symbols = SharedScreen<frmSymbols>::fresh();
    symbols.ShowModal();
    // Appended as if typed at the end, so that it can be undone.
    if (auto* memo = qobject_cast<QPlainTextEdit*>(widget(field))) {
        memo->moveCursor(QTextCursor::End);
        memo->insertPlainText(symbols.Symbol());
    } else if (auto* line = qobject_cast<QLineEdit*>(widget(field))) {
        line->end(false);
        line->insert(symbols.Symbol());
    }
}

// ---- doctors

void ResultScreen::lookUpDoctor(const DoctorFields& doctor) {
    gCodeFind->SearchMode = true;
    if (!gCodeFind->SearchListing(text(doctor.code), session::clsLookupPad::doctors))
        return;
    const session::DoctorRecord found = gCodeFind->DoctorRecord;
    const QString code = gCodeFind->ResultCode;
    setText(doctor.name,
            QStringLiteral("DR. ") + found.LastName + u',' + found.FirstName + u' ' + found.MiddleName);
    setText(doctor.code, code);
}

// ---- save

void ResultScreen::btnSave_Click() {
    m_resultMoment = base::CStr(qobject_cast<DateBox*>(widget("DtResultDate"))->date()) + u' ' + timeText();
    if (Trim(text("txtCaseNum")).isEmpty()) {
        MsgBox(QStringLiteral("Cannot save incomplete data. Please enter Case Number."), vbExclamation,
               QStringLiteral("Message"));
        widget("txtCaseNum")->setFocus();
        return;
    }
    if (isCaseNumberTaken()) {
        MsgBox(QStringLiteral("The Case Number you entered is already used."), vbExclamation,
               QStringLiteral("Message"));
        focusOnItsPage(*widget("txtCaseNum"));
        return;
    }
    {
        const Hourglass hourglass;
        ResultSaved = false;
        gConnection->BeginTrans();
        Run(saveStatement());
        stampNurseStation();
        gConnection->CommitTrans();
        ResultSaved = true;
    }
    session::tellDone({.work = session::Work::Result,
                       .number = RequestNum,
                       .patient = text("txtPName"),
                       .IdNum = Trim(text("txtIdNum")),
                       .report = QString::fromLatin1(m_variant.report)});
    MsgBox(QStringLiteral("Data Successfully Saved!"), vbInformation, QStringLiteral("Notification"));
}

bool ResultScreen::isCaseNumberTaken() const {
    const QString typed = text("txtCaseNum");
    const QString checked = m_variant.trimsCheckedNumber ? Trim(typed) : typed;
    return Read(m_variant.caseNumberCheck.with({{"##", checked}})).RecordCount() >= 1;
}

ado::Statement ResultScreen::saveStatement() const {
    std::vector<QString> values;
    for (const Argument& given : m_variant.save.arguments()) {
        const QString value = argument(given.from);
        values.push_back(given.trimmed ? Trim(value) : value);
    }
    return ado::joinStatement(m_variant.save.text(), values.data(), qsizetype(values.size()));
}

QString ResultScreen::argument(const char* from) const {
    const QLatin1String name(from);
    if (name == QLatin1String(source::requestNum))
        return RequestNum;
    if (name == QLatin1String(source::patientType))
        return PatientType;
    if (name == QLatin1String(source::itemCode))
        return ItemCode;
    if (name == QLatin1String(source::encoder))
        return gUser->employeecode();
    if (name == QLatin1String(source::resultMoment))
        return m_resultMoment;
    return text(from);
}

/// Only the first row of each file: a request without a ward's own has none, and is saved all the same.
void ResultScreen::stampNurseStation() const {
    ado::Recordset communication =
        ReadForUpdate(sql("SELECT * FROM STATION..tbNurseCommunicationFile WHERE "
                          "IdNum = '{}' and RequestNum = '{}' and Revenueid = 'NU'",
                          Trim(text("txtIdNum")), Trim(NurseRequestNum)));
    stampRow(communication, "", {{"RecordStatus", "W"}});
    communication.Close();
    ado::Recordset logBook = ReadForUpdate(sql("SELECT * FROM STATION..tbNurseLogBook WHERE "
                                               "IdNum = '{}' and RequestNum = '{}' and Revenueid = 'NU'",
                                               Trim(text("txtIdNum")), Trim(NurseRequestNum)));
    stampRow(logBook, "",
             {{"RecordStatus", "W"}, {"resultdate", m_resultMoment}, {"resultby", gUser->employeecode()}});
    logBook.Close();
}

/// Prints as well when a save that was refused follows one that went well: ResultSaved still tells of that
/// one.
void ResultScreen::btnSavePrint_Click() {
    btnSave_Click();
    if (ResultSaved)
        btnPrint_Click();
}

// ---- edit, print, clear

/// The case number is unlocked on frmResultEntry, whichever screen this is: the others keep theirs locked.
void ResultScreen::btnEdit_Click() {
    enableFields(m_variant.edited, true);
    if (!widget("btnClear")->isEnabled())
        widget("btnClear")->setEnabled(true);
    frmResultEntry& generic = SharedScreen<frmResultEntry>::fresh();
    generic.load();
    generic.lockCaseNum(false);
    sayWhatCanBeDone(*this, m_point, takesSymbols());
    goOnTyping();
}

/// To the text that is shown; a screen without pages begins with its first field, behind the case number.
void ResultScreen::goOnTyping() {
    auto* tabs = findChild<QTabWidget*>();
    if (!tabs || !focusPage(*this, *tabs))
        widget(m_variant.edited[1])->setFocus();
}

void ResultScreen::btnPrint_Click() {
    if (text("txtIdNum").isEmpty()) {
        MsgBox(QStringLiteral("No Result to process."));
        return;
    }
    session::PrepareResult(QString::fromLatin1(m_variant.report), Trim(text("txtIdNum")), RequestNum);
    Unload();
    session::ShowResult();
}

void ResultScreen::btnClear_Click() {
    for (const char* name : m_variant.cleared)
        setText(name, {});
}

// ---- revocation

void ResultScreen::btnRevoke_Click() {
    if (!m_variant.revocationIsTrapped) {
        revoke();
        return;
    }
    try {
        revoke();
    } catch (const base::RunTimeError&) {
        gConnection->RollbackTrans();
        MsgBox(QStringLiteral("Data Not Successfully Saved."), vbOKOnly, QStringLiteral("Warning"));
    }
}

void ResultScreen::revoke() {
    {
        gConnection->BeginTrans();
        const Hourglass hourglass;
        ado::Recordset communication = ReadForUpdate(
            sql("SELECT * FROM STATION..tbNurseCommunicationFile WHERE ReferenceNum = '{}'", Trim(RefNum)));
        stampRow(communication, "", {{"RecordStatus", "X"}});
        communication.Close();
        ado::Recordset logBook = ReadForUpdate(
            sql("SELECT * FROM STATION..tbNurseLogBook WHERE ReferenceNum = '{}'", Trim(RefNum)));
        stampRow(logBook, "", {{"RecordStatus", "X"}});
        logBook.Close();
        Run(sql("sp_Nuclear_CancelResult '{}'", RequestNum));
        gConnection->CommitTrans();
    }
    session::tellDone({.work = session::Work::RevokedResult,
                       .number = RequestNum,
                       .patient = text("txtPName"),
                       .IdNum = Trim(text("txtIdNum"))});
    MsgBox(QStringLiteral("Result successfully revoked!"), vbInformation, QStringLiteral("Message"));
    Unload();
}

} // namespace results
