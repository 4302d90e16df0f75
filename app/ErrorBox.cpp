#include "app/ErrorBox.h"

#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/ScreenContents.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "ui_ErrorBox.h"

#include <QClipboard>
#include <QGuiApplication>

namespace app {

namespace {

QString detailsOf(const base::RunTimeError& error) {
    QStringList lines;
    if (!error.sqlState().isEmpty())
        lines += QStringLiteral("SQLSTATE ") + error.sqlState();
    if (!error.statement().isEmpty())
        lines += error.statement();
    return lines.join(u'\n');
}

QString reportOf(const base::RunTimeError& error) {
    QStringList parts{ErrorBox::textOf(error)};
    if (const QString details = detailsOf(error); !details.isEmpty())
        parts += details;
    for (const controls::Screen* screen : controls::Screen::openScreens()) {
        parts += QStringLiteral("[%1]").arg(screen->windowTitle()) + u'\n' +
                 controls::contentsAsText(*screen).trimmed();
    }
    return parts.join(QStringLiteral("\n\n")).trimmed() + u'\n';
}

/// Screen by screen, innermost last; a screen in which nothing stands is left out.
QString typedOnScreens() {
    QStringList parts;
    for (const controls::Screen* screen : controls::Screen::openScreens()) {
        const QString typed = controls::typedAsText(*screen);
        if (typed.isEmpty())
            continue;
        const auto* band = screen->findChild<controls::HeaderBand*>();
        const QString about = band ? band->subtitle() : QString();
        parts += QStringLiteral("[%1]").arg(screen->windowTitle().trimmed()) +
                 (about.isEmpty() ? QString() : u' ' + about) + u'\n' + typed;
    }
    return parts.isEmpty() ? QString() : parts.join(QStringLiteral("\n\n")) + u'\n';
}

/// Which fields may be why the server could not read a statement: those with a quote, of them those whose
/// text stands in it; "" for any other error and where no field holds one.
QString quoteSentence(const base::RunTimeError& error) {
    constexpr int incorrectSyntax = 102;
    constexpr int unclosedQuote = 105;
    if (error.number() != incorrectSyntax && error.number() != unclosedQuote)
        return {};
    QStringList holders;
    QStringList sent;
    for (const controls::Screen* screen : controls::Screen::openScreens()) {
        for (const controls::HeldText& each : controls::heldTexts(*screen)) {
            if (!each.text.contains(u'\''))
                continue;
            const QString caption = u'"' + each.caption + u'"';
            holders += caption;
            if (error.statement().contains(each.text.trimmed()))
                sent += caption;
        }
    }
    const QStringList& named = sent.isEmpty() ? holders : sent;
    constexpr int mostNames = 3;
    return named.isEmpty() ? QString()
                           : QStringLiteral("A quote (') stands in %1: the server refuses a text with one.")
                                 .arg(named.mid(0, mostNames).join(QStringLiteral(", ")));
}

/// Before the box: a desk whose clerk is at lunch must not hold the hospital's file with an open transaction.
void closeConnection() noexcept {
    try {
        if (session::gUser)
            session::LogOff();
    } catch (const std::exception&) {
        // The server has lost the connection by itself then.
    }
}

void showError(const base::RunTimeError& error) {
    ErrorBox box(error);
    closeConnection();
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    box.exec();
}

} // namespace

ErrorBox::ErrorBox(const base::RunTimeError& error, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::ErrorBox>())
    , m_report(reportOf(error))
    , m_typed(typedOnScreens()) {
    m_ui->setupUi(this);
    const int side = 2 * fontMetrics().height();
    m_ui->lblIcon->setPixmap(controls::look::icon("error", controls::look::danger).pixmap(side, side));
    m_ui->lblError->setText(textOf(error).section(u'\n', 0, 0));
    m_ui->lblDescription->setText(error.description());
    const QString quote = quoteSentence(error);
    m_ui->lblQuote->setText(quote);
    m_ui->lblQuote->setVisible(!quote.isEmpty());
    m_ui->txtDetails->setPlainText(detailsOf(error));
    m_ui->cmdDetails->setVisible(!detailsOf(error).isEmpty());
    controls::look::setPrimary(m_ui->cmdEnd);
    // An Enter that was meant for the screen must not end what was typed there.
    (m_typed.isEmpty() ? m_ui->cmdEnd : m_ui->cmdCopyTyped)->setFocus();
    controls::ignoreHeldKeys(m_ui->cmdEnd);
    controls::ignoreHeldKeys(m_ui->cmdCopyTyped);
    for (QPushButton* button : {m_ui->cmdDetails, m_ui->cmdCopy, m_ui->cmdCopyTyped})
        controls::onEnter(button, [button] { button->click(); });
    connect(m_ui->cmdDetails, &QPushButton::toggled, this, [this](bool shown) {
        m_ui->txtDetails->setVisible(shown);
        adjustSize();
    });
    connect(m_ui->cmdCopy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_report); });
    m_ui->cmdCopyTyped->setVisible(!m_typed.isEmpty());
    connect(m_ui->cmdCopyTyped, &QPushButton::clicked, this, [this] {
        QGuiApplication::clipboard()->setText(m_typed);
        m_ui->cmdEnd->setFocus();
    });
    connect(m_ui->cmdEnd, &QPushButton::clicked, this, &QDialog::accept);
}

ErrorBox::~ErrorBox() = default;

QString ErrorBox::textOf(const base::RunTimeError& error) {
    return QStringLiteral("Run-time error '%1':\n\n").arg(error.number()) + error.description();
}

void installBoundary() {
    controls::ErrorBoundary::setHandler(showError);
}

} // namespace app
