#include "platform/controls/guide/GuideBrowser.h"

#include "platform/controls/look/Look.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace controls {

namespace {

const QString search = QStringLiteral("find");

/// A picture as wide as the column lets it be, with all the points that the desktop shows.
QImage fitted(QImage picture, int widest, qreal scale) {
    if (picture.width() > widest) {
        picture = picture.scaledToWidth(qRound(widest * scale), Qt::SmoothTransformation);
        picture.setDevicePixelRatio(scale);
    }
    return picture;
}

} // namespace

GuideBrowser::GuideBrowser(const QString& folder, QWidget* parent)
    : QTextBrowser(parent), m_root(QStringLiteral("qrc") + folder + u'/'), m_pages(folder) {
    setObjectName(QStringLiteral("guidePage"));
    setAccessibleName(QStringLiteral("Page of the guide"));
    setOpenExternalLinks(false);
    QPalette colours = palette();
    colours.setColor(QPalette::Link, look::accent);
    setPalette(colours);
    document()->setDocumentMargin(look::scaled(14));
}

void GuideBrowser::showPage(const QString& page) {
    setSource(QUrl(m_root + page), QTextDocument::MarkdownResource);
}

void GuideBrowser::showFound(const QString& words) {
    QUrl url(m_root + search);
    url.setQuery(QString::fromLatin1(QUrl::toPercentEncoding(words)));
    setSource(url, QTextDocument::MarkdownResource);
}

QString GuideBrowser::page() const {
    const QString path = source().path().section(u'/', -1);
    return path == search ? QString() : path;
}

QVariant GuideBrowser::loadResource(int type, const QUrl& name) {
    const QUrl url = source().resolved(name);
    if (url.path().endsWith(u'/' + search))
        return m_pages.foundPage(url.query(QUrl::FullyDecoded)).toUtf8();
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    const QImage picture(u':' + url.path());
    return picture.isNull() ? QVariant() : fitted(picture, look::scaled(680), devicePixelRatioF());
}

void GuideBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    QUrl page = source().resolved(url);
    const QString fragment = page.fragment();
    page.setFragment({});
    const bool isFound = page.path().endsWith(u'/' + search);
    if (page.scheme() != QLatin1String("qrc") || (!isFound && !QFile::exists(u':' + page.path())))
        return; // a link to what is not at hand
    page.setFragment(fragment);
    QTextBrowser::doSetSource(page, isFound ? QTextDocument::MarkdownResource : type);
    setHeadings();
    setTables();
    goToSection(fragment);
}

void GuideBrowser::setHeadings() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() < 2)
            continue;
        QTextBlockFormat spacing;
        spacing.setTopMargin(look::scaled(20));
        spacing.setBottomMargin(look::scaled(6));
        QTextCursor(block).mergeBlockFormat(spacing);
    }
}

/// Plain rules instead of the toolkit's raised frames.
void GuideBrowser::setTables() {
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(look::line);
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setCellPadding(look::scaled(4));
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

void GuideBrowser::goToSection(const QString& slug) {
    m_section.clear();
    if (slug.isEmpty())
        return;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || GuidePages::slugOf(block.text()) != slug)
            continue;
        m_section = block.text();
        verticalScrollBar()->setValue(int(document()->documentLayout()->blockBoundingRect(block).top()));
        return;
    }
}

} // namespace controls
