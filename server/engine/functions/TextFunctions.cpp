#include "server/engine/functions/FunctionHost.h"

#include "server/engine/errors/ServerError.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Like.h"
#include "server/engine/values/NumberText.h"

#include <QString>

#include <algorithm>

/// The functions on texts. Places and lengths count characters, from 1.
namespace engine {
namespace {

constexpr std::size_t longestText = 1 << 20;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

std::string_view part(std::string_view text, std::int64_t from, std::int64_t count) {
    if (count <= 0 || from < 0)
        return {};
    const std::size_t begin = bytesOf(text, std::size_t(from));
    return text.substr(begin, bytesOf(text.substr(begin), std::size_t(count)));
}

[[noreturn]] void failLength(const char* function) {
    throw serverError(537, QStringLiteral("Invalid length parameter passed to the %1 function.")
                               .arg(QLatin1StringView(function)));
}

template <bool Upper>
void changeCase(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    if (!isAscii(text)) {
        const QString wide = toQString(text);
        const QByteArray changed = (Upper ? wide.toUpper() : wide.toLower()).toUtf8();
        resultText(context, {changed.constData(), std::size_t(changed.size())});
        return;
    }
    std::string changed(text);
    for (char& c : changed)
        c = Upper ? upperOf(c) : (c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c);
    resultText(context, changed);
}

void length(sqlite3_context* context, sqlite3_value** values) {
    std::string_view text = valueText(values[0]);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    sqlite3_result_int64(context, std::int64_t(charactersOf(text)));
}

void left(sqlite3_context* context, sqlite3_value** values) {
    const std::int64_t count = sqlite3_value_int64(values[1]);
    if (count < 0)
        failLength("left");
    resultText(context, part(valueText(values[0]), 0, count));
}

void right(sqlite3_context* context, sqlite3_value** values) {
    const std::int64_t count = sqlite3_value_int64(values[1]);
    if (count < 0)
        failLength("right");
    const std::string_view text = valueText(values[0]);
    const auto characters = std::int64_t(charactersOf(text));
    resultText(context, part(text, std::max<std::int64_t>(0, characters - count), count));
}

void substring(sqlite3_context* context, sqlite3_value** values) {
    std::int64_t from = sqlite3_value_int64(values[1]) - 1;
    std::int64_t count = sqlite3_value_int64(values[2]);
    if (count < 0)
        failLength("substring");
    if (from < 0) { // what lies before the text is counted, but is not there
        count += from;
        from = 0;
    }
    resultText(context, part(valueText(values[0]), from, count));
}

/// Byte of `sought` in `text` from `from` on, without case; npos when it is not there.
std::size_t findText(std::string_view text, std::string_view sought, std::size_t from) {
    if (sought.empty() || sought.size() > text.size())
        return std::string_view::npos;
    for (std::size_t at = from; at + sought.size() <= text.size(); ++at) {
        if (sameWord(text.substr(at, sought.size()), sought))
            return at;
    }
    return std::string_view::npos;
}

void charIndex(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[1]);
    const std::int64_t first = std::max<std::int64_t>(1, sqlite3_value_int64(values[2]));
    const std::size_t at = findText(text, valueText(values[0]), bytesOf(text, std::size_t(first - 1)));
    sqlite3_result_int64(
        context, at == std::string_view::npos ? 0 : std::int64_t(charactersOf(text.substr(0, at))) + 1);
}

void replace(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    const std::string_view sought = valueText(values[1]);
    const std::string_view other = valueText(values[2]);
    std::string changed;
    std::size_t from = 0;
    for (std::size_t at = findText(text, sought, 0); at != std::string_view::npos;
         at = findText(text, sought, from)) {
        changed.append(text.substr(from, at - from)).append(other);
        from = at + sought.size();
        if (changed.size() > longestText)
            throw serverError(8152, QStringLiteral("String or binary data would be truncated."), "22001");
    }
    changed.append(text.substr(from));
    resultText(context, changed);
}

void replicate(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    const std::int64_t count = sqlite3_value_int64(values[1]);
    if (count < 0) {
        sqlite3_result_null(context);
        return;
    }
    constexpr std::size_t longest = 8000; // the server's own limit
    std::string repeated;
    for (std::int64_t i = 0; i < count && !text.empty() && repeated.size() + text.size() <= longest; ++i)
        repeated.append(text);
    resultText(context, repeated);
}

void stuff(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    const std::int64_t first = sqlite3_value_int64(values[1]);
    const std::int64_t count = sqlite3_value_int64(values[2]);
    if (first < 1 || count < 0 || first > std::int64_t(charactersOf(text))) {
        sqlite3_result_null(context);
        return;
    }
    const std::size_t begin = bytesOf(text, std::size_t(first - 1));
    const std::size_t removed = bytesOf(text.substr(begin), std::size_t(count));
    std::string changed(text.substr(0, begin));
    changed.append(valueText(values[3])).append(text.substr(begin + removed));
    resultText(context, changed);
}

void reverse(sqlite3_context* context, sqlite3_value** values) {
    const std::string_view text = valueText(values[0]);
    std::string reversed;
    reversed.reserve(text.size());
    std::size_t end = text.size();
    for (std::size_t at = text.size(); at-- > 0;) {
        if ((static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
            continue;
        reversed.append(text.substr(at, end - at));
        end = at;
    }
    resultText(context, reversed);
}

void str(sqlite3_context* context, sqlite3_value** values) {
    const std::int64_t width = sqlite3_value_int64(values[1]);
    const std::int64_t places = std::clamp<std::int64_t>(sqlite3_value_int64(values[2]), 0, 16);
    if (width < 1 || width > 8000) {
        sqlite3_result_null(context);
        return;
    }
    std::string text = fixedText(sqlite3_value_double(values[0]), int(places));
    if (std::int64_t(text.size()) > width) {
        const std::size_t point = text.find('.');
        const std::size_t whole = point == std::string::npos ? text.size() : point;
        if (std::int64_t(whole) > width) {
            resultText(context, std::string(std::size_t(width), '*'));
            return;
        }
        text = fixedText(sqlite3_value_double(values[0]),
                         int(std::max<std::int64_t>(0, width - std::int64_t(whole) - 1)));
    }
    if (std::int64_t(text.size()) < width)
        text.insert(0, std::size_t(width) - text.size(), ' ');
    resultText(context, text);
}

void like(sqlite3_context* context, sqlite3_value** values) {
    sqlite3_result_int(context, matchesLike(valueText(values[1]), valueText(values[0])));
}

bool latinOrder(sqlite3_context* context) {
    return static_cast<FunctionHost*>(sqlite3_user_data(context))->latinOrder;
}

void likeLow(sqlite3_context* context, sqlite3_value** values) {
    resultText(context, likePrefix(valueText(values[0]), latinOrder(context)));
}

void likeHigh(sqlite3_context* context, sqlite3_value** values) {
    std::string bound = likePrefix(valueText(values[0]), latinOrder(context));
    bound += "\xF4\x8F\xBF\xBF"; // the last character there is
    resultText(context, bound);
}

} // namespace

void registerTextFunctions(sqlite3* handle, FunctionHost& host) {
    registerFunction<changeCase<true>>(handle, host, "ts_upper", 1);
    registerFunction<changeCase<false>>(handle, host, "ts_lower", 1);
    registerFunction<length>(handle, host, "ts_len", 1);
    registerFunction<left>(handle, host, "ts_left", 2);
    registerFunction<right>(handle, host, "ts_right", 2);
    registerFunction<substring>(handle, host, "ts_substring", 3);
    registerFunction<charIndex>(handle, host, "ts_charindex", 3);
    registerFunction<replace>(handle, host, "ts_replace", 3);
    registerFunction<replicate>(handle, host, "ts_replicate", 2);
    registerFunction<stuff>(handle, host, "ts_stuff", 4);
    registerFunction<reverse>(handle, host, "ts_reverse", 1);
    registerFunction<str>(handle, host, "ts_str", 3);
    registerFunction<like>(handle, host, "ts_like", 2);
    registerFunction<likeLow>(handle, host, "ts_likelow", 1);
    registerFunction<likeHigh>(handle, host, "ts_likehigh", 1);
}

} // namespace engine
