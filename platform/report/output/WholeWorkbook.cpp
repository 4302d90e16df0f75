#include "platform/report/output/WholeWorkbook.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <zlib.h>

#include <optional>

namespace report {
namespace {

constexpr quint32 isElsewhere = 0xFFFFFFFF; // a number too large for its place

template <typename Number>
Number numberAt(const QByteArray& bytes, qsizetype at) {
    return bytes.size() < at + qsizetype(sizeof(Number)) ? Number()
                                                         : qFromLittleEndian<Number>(bytes.constData() + at);
}

QByteArray readAt(QIODevice& file, qint64 at, qint64 length) {
    return file.seek(at) ? file.read(length) : QByteArray();
}

/// One of the texts that a workbook is packed from, by its line in the directory.
struct Part {
    qint64 header = 0;
    qint64 packedSize = 0;
    bool isPacked = false;
};

/// The first and the last signs of a part: enough to see whether the element that it begins with is closed.
struct Ends {
    QByteArray first, last;

    void add(const QByteArray& block) {
        constexpr qsizetype kept = 1024;
        if (first.size() < kept)
            first += block.left(kept - first.size());
        last = (last + block).right(kept);
    }
};

/// Nothing when the packed bytes are no text.
std::optional<Ends> endsOf(QIODevice& file, const Part& part) {
    constexpr qsizetype fixedHeader = 30;
    const QByteArray header = readAt(file, part.header, fixedHeader);
    const qint64 begin =
        part.header + fixedHeader + numberAt<quint16>(header, 26) + numberAt<quint16>(header, 28);
    Ends ends;
    if (!part.isPacked) {
        ends.add(readAt(file, begin, part.packedSize));
        return ends;
    }
    z_stream stream = {};
    if (!file.seek(begin) || inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return std::nullopt;
    QByteArray text(1 << 16, Qt::Uninitialized);
    int state = Z_OK;
    for (qint64 left = part.packedSize; state == Z_OK && left > 0;) {
        QByteArray packed = file.read(std::min<qint64>(left, text.size()));
        if (packed.isEmpty())
            break;
        left -= packed.size();
        stream.next_in = reinterpret_cast<Bytef*>(packed.data());
        stream.avail_in = uInt(packed.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(text.data());
            stream.avail_out = uInt(text.size());
            state = inflate(&stream, Z_NO_FLUSH);
            ends.add(text.left(text.size() - qsizetype(stream.avail_out)));
        } while (state == Z_OK && stream.avail_out == 0);
    }
    inflateEnd(&stream);
    return state == Z_STREAM_END ? std::optional(ends) : std::nullopt;
}

QByteArray nameAt(const QByteArray& text, qsizetype at) {
    qsizetype end = at;
    while (end < text.size() && !QByteArrayView(" />\r\n\t").contains(text[end]))
        ++end;
    return text.mid(at, end - at);
}

bool isClosed(const Ends& ends) {
    qsizetype root = ends.first.startsWith("<?") ? ends.first.indexOf("?>") : 0;
    root = root < 0 ? -1 : ends.first.indexOf('<', root);
    const QByteArray end = ends.last.trimmed();
    const qsizetype tag = end.lastIndexOf('<');
    if (root < 0 || tag < 0 || !end.endsWith('>'))
        return false;
    const bool closesItself = end.endsWith("/>");
    return nameAt(ends.first, root + 1) == nameAt(end, closesItself ? tag + 1 : tag + 2) &&
           (closesItself || end[tag + 1] == '/');
}

} // namespace

bool isWholeWorkbook(QIODevice& workbook) {
    constexpr qint64 endOfDirectory = 22;
    constexpr qsizetype fixedLine = 46;
    const QByteArray end =
        readAt(workbook, std::max<qint64>(workbook.size() - endOfDirectory, 0), endOfDirectory);
    if (!end.startsWith("PK\5\6"))
        return false;
    qint64 at = numberAt<quint32>(end, 16);
    if (at == isElsewhere)
        return true; // more than 4 GB: its rows were looked at while they were written
    for (int parts = numberAt<quint16>(end, 10); parts > 0; --parts) {
        const QByteArray line = readAt(workbook, at, fixedLine);
        if (!line.startsWith("PK\1\2"))
            return false;
        const Part part{.header = numberAt<quint32>(line, 42),
                        .packedSize = numberAt<quint32>(line, 20),
                        .isPacked = numberAt<quint16>(line, 10) != 0};
        if (part.packedSize != isElsewhere) {
            const std::optional<Ends> ends = endsOf(workbook, part);
            if (!ends || !isClosed(*ends))
                return false;
        }
        at += fixedLine + numberAt<quint16>(line, 28) + numberAt<quint16>(line, 30) +
              numberAt<quint16>(line, 32);
    }
    return true;
}

} // namespace report
