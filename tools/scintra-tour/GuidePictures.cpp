#include "tools/scintra-tour/GuidePictures.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QWidget>

#include <algorithm>
#include <climits>
#include <stdexcept>

namespace tour {

namespace {

constexpr qsizetype mostColours = 256;

int distance(QRgb one, QRgb other) {
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

QList<QRgb> frequentColours(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[line[x]];
    }
    QList<QRgb> colours = counts.keys();
    std::ranges::sort(colours, [&](QRgb one, QRgb other) {
        return std::pair(-counts[one], one) < std::pair(-counts[other], other);
    });
    if (colours.size() > mostColours)
        colours.resize(mostColours);
    return colours;
}

} // namespace

QImage withFewColours(const QImage& picture) {
    const QImage full = picture.convertToFormat(QImage::Format_RGB32);
    const QList<QRgb> colours = frequentColours(full);
    QImage few(full.size(), QImage::Format_Indexed8);
    few.setColorTable(colours);
    QHash<QRgb, uchar> nearest;
    const auto indexOf = [&](QRgb colour) {
        if (const auto known = nearest.constFind(colour); known != nearest.constEnd())
            return *known;
        const auto found =
            std::ranges::min_element(colours, {}, [&](QRgb each) { return distance(each, colour); });
        return *nearest.insert(colour, uchar(found - colours.begin()));
    };
    for (int y = 0; y < full.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(full.constScanLine(y));
        uchar* to = few.scanLine(y);
        for (int x = 0; x < full.width(); ++x)
            to[x] = indexOf(from[x]);
    }
    return few;
}

GuidePictures::GuidePictures(QString folder) : m_folder(std::move(folder)) {
    if (m_folder.isEmpty())
        return;
    QFile list(QStringLiteral(":/docs/guide/pictures/list.txt"));
    if (!QDir().mkpath(m_folder) || !list.open(QIODevice::ReadOnly))
        throw std::runtime_error("the guide's pictures cannot be made");
    for (const QString& line : QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts))
        m_waiting[line.section(u' ', 0, 0)] = line.section(u' ', 1, 1);
}

void GuidePictures::take(const QString& name, const QWidget& window, const QImage& picture) {
    const auto wanted = m_waiting.find(name);
    if (wanted == m_waiting.end())
        return;
    if (window.objectName() != wanted->second)
        throw std::runtime_error(QStringLiteral("the guide's picture %1 shows %2 instead of %3")
                                     .arg(name, window.objectName(), wanted->second)
                                     .toStdString());
    if (!withFewColours(picture).save(QDir(m_folder).filePath(name + QStringLiteral(".png")), "PNG", 1))
        throw std::runtime_error("the guide's picture cannot be written");
    m_waiting.erase(wanted);
}

QStringList GuidePictures::missing() const {
    QStringList names;
    for (const auto& [name, screen] : m_waiting)
        names += QStringLiteral("%1 (%2)").arg(name, screen);
    return names;
}

} // namespace tour
