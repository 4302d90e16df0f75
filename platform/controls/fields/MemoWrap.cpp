#include "platform/controls/fields/MemoWrap.h"

#include "platform/controls/screen/Connect.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextDocument>

namespace controls {

namespace {

/// Longer than any word: the toolkit looks through the rest of a word for each line that it is cut into, so
/// that a megabyte without a blank would take minutes to wrap at words.
constexpr qsizetype endlessWord = 1000;

bool hasEndlessWord(const QString& text) {
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace())
            start = i + 1;
        else if (i - start == endlessWord)
            return true;
    }
    return false;
}

bool hasEndlessWord(QTextBlock block, const QTextBlock& behind) {
    for (; block.isValid() && block != behind; block = block.next()) {
        if (block.length() > endlessWord && hasEndlessWord(block.text()))
            return true;
    }
    return false;
}

void chooseWrap(QPlainTextEdit& memo, QTextOption::WrapMode usual, int from, int added) {
    const QTextDocument& text = *memo.document();
    const bool anywhere = memo.wordWrapMode() == QTextOption::WrapAnywhere;
    // Where a word was endless, any change may have ended it; else only what came can be.
    const bool endless = anywhere ? hasEndlessWord(text.begin(), text.end())
                                  : hasEndlessWord(text.findBlock(from), text.findBlock(from + added).next());
    if (endless != anywhere)
        memo.setWordWrapMode(endless ? QTextOption::WrapAnywhere : usual);
}

} // namespace

void wrapEndlessWords(QPlainTextEdit* memo) {
    // told before the change is laid out
    on(memo->document(), &QTextDocument::contentsChange, memo,
       [memo, usual = memo->wordWrapMode()](int from, int, int added) {
           chooseWrap(*memo, usual, from, added);
       });
}

} // namespace controls
