#include "platform/controls/guide/GuidePages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace controls {

namespace {

constexpr int mostHits = 40;
constexpr int longestLine = 160;

const QString contents = QStringLiteral("README.md");

struct Section {
    QString heading;
    QStringList lines;
};

/// A line as it is read: no marks, of a link its text, of a picture nothing.
QString plain(QString line) {
    static const QRegularExpression picture(QStringLiteral("!\\[[^\\]]*\\]\\([^)]*\\)"));
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]*)\\]\\([^)]*\\)"));
    static const QRegularExpression rule(QStringLiteral("^[\\s|:-]+$"));
    static const QRegularExpression marks(QStringLiteral("^\\s*(#+|-|\\d+\\.|>)\\s+|\\*\\*|`"));
    line.remove(picture).replace(link, QStringLiteral("\\1"));
    if (rule.match(line).hasMatch())
        return {};
    line.remove(marks).replace(u'|', u' ');
    return line.simplified();
}

std::vector<Section> sectionsOf(const QString& file) {
    std::vector<Section> sections{{}};
    QFile page(file);
    if (!page.open(QIODevice::ReadOnly))
        return sections;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(u'\n')) {
        if (line.startsWith(u'#'))
            sections.push_back({plain(line), {}});
        else if (const QString text = plain(line); !text.isEmpty())
            sections.back().lines += text;
    }
    if (sections.size() > 1)
        sections.erase(sections.begin());
    return sections;
}

bool holds(const QString& text, const QString& word) {
    return text.contains(word, Qt::CaseInsensitive);
}

QString escaped(QString text) {
    static const QRegularExpression marks(QStringLiteral("([\\\\`*_\\[\\]<>#])"));
    return text.replace(marks, QStringLiteral("\\\\1"));
}

} // namespace

QString GuidePages::slugOf(const QString& heading) {
    QString slug;
    for (const QChar each : heading.toLower()) {
        if (each.isLetterOrNumber() || each == u'-' || each == u'_')
            slug += each;
        else if (each == u' ')
            slug += u'-';
    }
    return slug;
}

QStringList GuidePages::names() const {
    QStringList names = QDir(m_folder).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    if (names.removeOne(contents))
        names.prepend(contents);
    return names;
}

std::vector<GuideHit> GuidePages::find(const QString& words) const {
    const QStringList all = words.split(u' ', Qt::SkipEmptyParts);
    std::vector<GuideHit> named, told;
    for (const QString& name : all.isEmpty() ? QStringList() : names()) {
        const std::vector<Section> sections = sectionsOf(QDir(m_folder).filePath(name));
        const QString title = sections.front().heading;
        for (const Section& section : sections) {
            const QString text = section.heading + u'\n' + section.lines.join(u'\n');
            if (!std::ranges::all_of(all, [&](const QString& word) { return holds(text, word); }))
                continue;
            const auto anyWord = [&](const QString& line) {
                return std::ranges::any_of(all, [&](const QString& word) { return holds(line, word); });
            };
            const auto line = std::ranges::find_if(section.lines, anyWord);
            const bool isTitle = &section == &sections.front();
            (anyWord(section.heading) ? named : told)
                .push_back({.link = isTitle ? name : name + u'#' + slugOf(section.heading),
                            .title = title,
                            .heading = isTitle ? QString() : section.heading,
                            .line = line == section.lines.end() ? section.lines.value(0) : *line});
        }
    }
    named.insert(named.end(), told.begin(), told.end());
    if (named.size() > mostHits)
        named.resize(mostHits);
    return named;
}

QString GuidePages::foundPage(const QString& words) const {
    QStringList lines{QStringLiteral("# Found: ") + escaped(words.simplified())};
    const std::vector<GuideHit> hits = find(words);
    if (hits.empty())
        lines += QStringLiteral("No section of the guide holds all of this. Try fewer words.");
    for (const GuideHit& hit : hits) {
        const QString place =
            hit.heading.isEmpty() ? hit.title : hit.title + QStringLiteral(": ") + hit.heading;
        QString line = hit.line.left(longestLine);
        if (hit.line.size() > longestLine)
            line += u'…';
        lines += QStringLiteral("[%1](%2)  \n%3").arg(escaped(place), hit.link, escaped(line));
    }
    return lines.join(QStringLiteral("\n\n"));
}

} // namespace controls
